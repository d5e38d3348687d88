#pragma once

#include <QString>

#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

namespace velorama {

struct FileCopy {
    QString source;
    QString target;
};

/// Copies files on as many threads as there are processors, as `FileCopyNew` does; no target may be
/// the source or the target of another. Names at and below `exact`, which has no closing separator,
/// are taken letter by letter. `told` is asked on the caller's thread, at times, how many are done.
/// Ends before the next file where a stop is requested or a copy fails; tells the first that failed
/// in their order.
std::optional<FileCopy> copyFiles(const std::vector<FileCopy>& copies, const QString& exact,
                                  const std::stop_token& stop,
                                  const std::function<void(int done)>& told);

}  // namespace velorama

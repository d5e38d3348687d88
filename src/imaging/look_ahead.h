#pragma once

#include "imaging/decode/picture.h"

#include <QStringList>

#include <memory>

namespace velorama {

/// Loads pictures ahead of their use on worker threads. What `load` returns is what loading at that
/// moment would return, `Picture::fitted` filled in besides, and of a picture for an area that one
/// alone. Work ahead counts only while the file's size and time of change are those it was made
/// from.
class LookAhead {
public:
    /// `threads` 0: one per processor.
    explicit LookAhead(int threads = 0);
    LookAhead(const LookAhead&) = delete;
    LookAhead& operator=(const LookAhead&) = delete;
    ~LookAhead();

    /// Names the pictures wanted next, soonest first; empty paths are passed over. Work on any
    /// other is dropped; work already done or running on these is kept. Does not block.
    void expect(const QStringList& paths, const Fit& fit);

    /// The picture, from the work ahead where there is any, else loaded now by the caller's thread.
    /// Removes it from the work ahead.
    Picture load(const QString& path, const Fit& fit);

    /// True if `load` would return at once. For measurements and tests.
    bool isReady(const QString& path, const Fit& fit) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

}  // namespace velorama

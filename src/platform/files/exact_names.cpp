#include "platform/files/exact_names.h"

#include <utility>

namespace velorama {
namespace {

/// The one made last; each knows the one before it.
thread_local const ExactNames* innermost = nullptr;

bool isAtOrBelow(const QString& path, const QString& folder) {
    const qsizetype length = folder.size();
    return length > 0 && path.startsWith(folder) &&
           (path.size() == length || path[length] == u'/' || path[length] == u'\\');
}

}  // namespace

ExactNames::ExactNames(const QString& folder)
    : outer_(std::exchange(innermost, this)), folder_(folder) {}

ExactNames::~ExactNames() {
    innermost = outer_;
}

bool ExactNames::hold(const QString& path) {
    for (const ExactNames* names = innermost; names != nullptr; names = names->outer_) {
        if (isAtOrBelow(path, names->folder_)) {
            return true;
        }
    }
    return false;
}

}  // namespace velorama

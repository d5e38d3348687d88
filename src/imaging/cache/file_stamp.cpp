#include "imaging/cache/file_stamp.h"

#include <QDateTime>
#include <QFile>

#include <sys/stat.h>

#include <algorithm>

namespace velorama {
namespace {

constexpr qint64 nanoseconds = 1'000'000'000;
constexpr qint64 longestTick = 2 * nanoseconds;

qint64 inNanoseconds(const timespec& time) {
    return time.tv_sec * nanoseconds + time.tv_nsec;
}

}  // namespace

FileStamp FileStamp::of(const QString& path) {
    FileStamp stamp{.path = QFile::encodeName(path)};
    struct stat state = {};
    if (::stat(stamp.path.constData(), &state) == 0 && S_ISREG(state.st_mode)) {
        stamp.size = state.st_size;
        stamp.modified = inNanoseconds(state.st_mtim);
        stamp.changed = inNanoseconds(state.st_ctim);
        stamp.inode = static_cast<qint64>(state.st_ino);
    }
    return stamp;
}

bool FileStamp::isSettled() const {
    const qint64 now = QDateTime::currentMSecsSinceEpoch() * 1'000'000;
    // A time that lies ahead is of a clock that went wrong, and nothing settles by it.
    return std::max(modified, changed) + longestTick < now;
}

}  // namespace velorama

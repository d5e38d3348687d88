#include "platform/files/file_beside.h"

#include <QRandomGenerator>
#include <QString>

#include <fcntl.h>
#include <unistd.h>
#include <cerrno>

namespace velorama {

bool Descriptor::close() {
    const int number = std::exchange(number_, -1);
    return number < 0 || ::close(number) == 0;
}

FileBeside::FileBeside(const QByteArray& folder)
    : folder_(::open(folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC)), file_(create()) {}

FileBeside::~FileBeside() {
    if (!name_.isEmpty()) {
        ::unlinkat(folder_.number(), name_.constData(), 0);
    }
}

/// A short name of its own: the target's may leave no room for an ending.
int FileBeside::create() {
    constexpr int tries = 16;
    for (int i = 0; i < tries; ++i) {
        name_ = ".velorama-" + QByteArray::number(QRandomGenerator::global()->generate64(), 36);
        const int number = ::openat(folder_.number(), name_.constData(),
                                    O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (number >= 0 || errno != EEXIST) {
            name_ = number >= 0 ? name_ : QByteArray();
            return number;
        }
    }
    name_.clear();
    return -1;
}

bool FileBeside::becomes(const QByteArray& target) {
    if (!file_.close() ||
        ::renameat(folder_.number(), name_.constData(), AT_FDCWD, target.constData()) != 0) {
        return false;
    }
    name_.clear();
    return true;
}

bool reachesDisk(int file) {
    int result = 0;
    do {
        result = ::fsync(file);
    } while (result != 0 && errno == EINTR);
    return result == 0 || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP ||
           errno == EROFS;
}

bool writeAll(int to, const char* bytes, qint64 count) {
    while (count > 0) {
        const ssize_t written = ::write(to, bytes, static_cast<size_t>(count));
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes += written > 0 ? written : 0;
        count -= written > 0 ? written : 0;
    }
    return true;
}

}  // namespace velorama

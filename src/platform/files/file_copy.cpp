#include "platform/files/file_copy.h"

#include "platform/files/file_beside.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <vector>

namespace velorama {
namespace {

/// Bytes copied; -1 where the kernel cannot copy between these two files.
qint64 copyInKernel(int from, int to) {
    constexpr size_t atOnce = size_t(1) << 30;
    qint64 total = 0;
    while (true) {
        const ssize_t copied = ::copy_file_range(from, nullptr, to, nullptr, atOnce, 0);
        if (copied == 0) {
            return total;
        }
        if (copied < 0 && errno != EINTR) {
            return total == 0 ? -1 : -2;
        }
        total += copied > 0 ? copied : 0;
    }
}

/// Bytes copied; -2 on failure.
qint64 copyByHand(int from, int to) {
    std::vector<char> block(size_t(1) << 18);
    qint64 total = 0;
    while (true) {
        const ssize_t got = ::read(from, block.data(), block.size());
        if (got == 0) {
            return total;
        }
        if ((got < 0 && errno != EINTR) || (got > 0 && !writeAll(to, block.data(), got))) {
            return -2;
        }
        total += got > 0 ? got : 0;
    }
}

/// True if at least `size` bytes arrived.
bool copyBytes(int from, int to, qint64 size) {
    if (::ioctl(to, FICLONE, from) == 0) {
        return true;
    }
    qint64 copied = copyInKernel(from, to);
    // Some file systems call their files empty and still give bytes to those who read.
    if (copied == -1 || copied == 0) {
        copied = copyByHand(from, to);
    }
    return copied >= size;
}

void copyTime(const struct stat& source, int to) {
    const timespec times[2] = {{0, UTIME_OMIT}, source.st_mtim};
    ::futimens(to, times);
}

}  // namespace

bool copyFileWhole(const QString& source, const QString& target) {
    // Never waits for the other end of a pipe that has taken the file's name.
    const Descriptor from(
        ::open(QFile::encodeName(source).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (from.number() < 0 || ::fstat(from.number(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return false;
    }
    FileBeside copy(QFile::encodeName(QFileInfo(target).path()));
    if (copy.number() < 0 || !copyBytes(from.number(), copy.number(), status.st_size)) {
        return false;
    }
    copyTime(status, copy.number());
    return copy.becomes(QFile::encodeName(target));
}

}  // namespace velorama

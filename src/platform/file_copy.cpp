#include "platform/file_copy.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_LINUX
#include <QRandomGenerator>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>

#include <cstdio>
#include <utility>
#include <vector>
#else
#include <QSaveFile>
#endif

namespace velorama {

#ifdef Q_OS_LINUX
namespace {

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { close(); }

    int number() const { return number_; }
    /// False if what was written did not all arrive.
    bool close() {
        const int number = std::exchange(number_, -1);
        return number < 0 || ::close(number) == 0;
    }

private:
    int number_;
};

/// A new file in a folder, gone again unless it has been given its final name.
class FileBeside {
public:
    explicit FileBeside(const QByteArray& folder) : file_(create(folder)) {}
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;
    ~FileBeside() {
        if (!name_.isEmpty()) {
            ::unlink(name_.constData());
        }
    }

    int number() const { return file_.number(); }
    bool becomes(const QByteArray& target) {
        if (!file_.close() || std::rename(name_.constData(), target.constData()) != 0) {
            return false;
        }
        name_.clear();
        return true;
    }

private:
    /// A short name of its own: the target's may leave no room for an ending.
    int create(const QByteArray& folder) {
        constexpr int tries = 16;
        for (int i = 0; i < tries; ++i) {
            name_ = folder + "/.velorama-" +
                    QByteArray::number(QRandomGenerator::global()->generate64(), 36);
            const int number =
                ::open(name_.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (number >= 0 || errno != EEXIST) {
                name_ = number >= 0 ? name_ : QByteArray();
                return number;
            }
        }
        name_.clear();
        return -1;
    }

    QByteArray name_;
    Descriptor file_;
};

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

bool writeAll(int to, const char* bytes, ssize_t count) {
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

#else

bool copyFileWhole(const QString& source, const QString& target) {
    QFile from(source);
    QSaveFile to(target);
    if (!from.open(QIODevice::ReadOnly) || !to.open(QIODevice::WriteOnly)) {
        return false;
    }
    constexpr qint64 blockSize = 1024 * 1024;
    for (QByteArray block = from.read(blockSize); !block.isEmpty(); block = from.read(blockSize)) {
        if (to.write(block) != block.size()) {
            return false;
        }
    }
    to.setFileTime(QFileInfo(source).lastModified(), QFileDevice::FileModificationTime);
    return from.error() == QFileDevice::NoError && to.commit();
}

#endif

}  // namespace velorama

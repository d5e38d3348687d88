#pragma once

#include <QFile>
#include <QString>

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace velorama::test {

/// Stops who opens a file, in the midst of that, until it is let go: for 45 seconds at most.
class FileGate {
public:
    explicit FileGate(const QString& path)
        : file_(::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC)),
          // The signal that tells of the waiting would end the test; this one does nothing.
          closed_(::fcntl(file_, F_SETSIG, SIGURG) == 0 &&
                  ::fcntl(file_, F_SETLEASE, F_WRLCK) == 0) {}
    ~FileGate() { open(); }
    FileGate(const FileGate&) = delete;
    FileGate& operator=(const FileGate&) = delete;

    bool isClosed() const { return closed_; }
    bool isSomebodyWaiting() const { return ::fcntl(file_, F_GETLEASE) != F_WRLCK; }
    void open() {
        if (file_ >= 0) {
            ::close(file_);
            file_ = -1;
        }
    }

private:
    int file_;
    bool closed_;
};

}  // namespace velorama::test

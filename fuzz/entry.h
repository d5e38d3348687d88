#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

#include <cstdint>
#include <cstdlib>
#include <thread>

namespace velorama::fuzz {

/// Ends the entry as a crash does where what must hold does not.
inline void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

inline QByteArray asBytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

/// The threads of this process.
inline auto threads() {
    struct stat tasks = {};
    require(::stat("/proc/self/task", &tasks) == 0);
    return tasks.st_nlink;
}

/// Waits for the threads that the reader left to themselves: what they still hold, or are about to
/// free, would count as lost. `before` is how many there were.
inline void awaitThreads(decltype(threads()) before) {
    while (threads() > before) {
        std::this_thread::yield();
    }
}

/// A folder of the process's own, for readers that take a path.
class Folder {
public:
    QString write(const QString& name, const QByteArray& bytes) const {
        const QString path = folder_.filePath(name);
        QFile file(path);
        require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        return path;
    }
    QDir folder() const { return QDir(folder_.path()); }
    void clear() const {
        for (const QString& name : folder().entryList(QDir::Files | QDir::Hidden)) {
            QFile::remove(folder_.filePath(name));
        }
    }

private:
    QTemporaryDir folder_;
};

}  // namespace velorama::fuzz

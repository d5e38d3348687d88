#pragma once

#include <QByteArray>
#include <QString>

namespace velorama {

/// What tells one state of a file from every other: its place, size in bytes, the times of the last
/// change of its content and of its entry, in nanoseconds, and its number in the file system. The
/// second time cannot be set back by hand, so it tells a file that another was moved or restored
/// over, old times and all; the number does where a file system has no such time.
struct FileStamp {
    QByteArray path;
    qint64 size = -1;
    qint64 modified = 0;
    qint64 changed = 0;
    qint64 inode = 0;

    /// `path` is one of this machine. A size of -1 for anything but an ordinary file.
    static FileStamp of(const QString& path);

    bool isFile() const { return size >= 0; }
    /// False while a further change might not show, since clocks of file systems tick up to two
    /// seconds apart.
    bool isSettled() const;

    bool operator==(const FileStamp&) const = default;
};

}  // namespace velorama

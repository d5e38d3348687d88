#include "platform/files/obstacles.h"

#include <QFile>
#include <QFileInfo>

#include <sys/statvfs.h>
#include <unistd.h>
#include <array>
#include <cerrno>
#include <cstring>

namespace velorama {
namespace {

struct Words {
    int error;
    const char* text;
};

/// The common ones, in the program's own language.
constexpr std::array<Words, 8> words = {{
    {EACCES, "permission denied"},
    {EPERM, "permission denied"},
    {EROFS, "the disk is read-only"},
    {ENOSPC, "the disk is full"},
    {ENOENT, "no such file or folder"},
    {ENOTDIR, "no such file or folder"},
    {ENAMETOOLONG, "the name is too long"},
    {ELOOP, "its links go round in circles"},
}};

QString wordsOf(int error) {
    for (const Words& one : words) {
        if (one.error == error) {
            return QLatin1String(one.text);
        }
    }
    return QString::fromLocal8Bit(std::strerror(error));
}

/// 0 where this user may do that with the file.
int accessError(const QString& file, int mode) {
    return ::access(QFile::encodeName(file).constData(), mode) == 0 ? 0 : errno;
}

bool isFull(const QString& folder) {
    struct statvfs disk {};
    return ::statvfs(QFile::encodeName(folder).constData(), &disk) == 0 &&
           (disk.f_bavail == 0 || (disk.f_files > 0 && disk.f_favail == 0));
}

}  // namespace

QString readingObstacle(const QString& file) {
    if (file.isEmpty()) {
        return wordsOf(ENOENT);
    }
    if (const int error = accessError(file, R_OK)) {
        return wordsOf(error);
    }
    return QFileInfo(file).isFile() ? QStringLiteral("it cannot be read")
                                    : QStringLiteral("it is no file");
}

QString writingObstacle(const QString& file) {
    const QFileInfo place(file);
    const QString folder = place.path();
    if (place.exists() && !place.isFile()) {
        return QStringLiteral("there is something else of that name");
    }
    for (const QString& one : {folder, file}) {
        const int error = accessError(one, one == folder ? W_OK | X_OK : W_OK);
        if (error != 0 && !(one == file && error == ENOENT)) {
            return wordsOf(error);
        }
    }
    return isFull(folder) ? wordsOf(ENOSPC) : QStringLiteral("it cannot be written");
}

}  // namespace velorama

#include "platform/file_write.h"

#include "platform/file_beside.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace velorama {

#ifdef Q_OS_LINUX
namespace {

/// What a chain of symbolic links ends at, there or not; empty for a chain without an end.
QString endOfLinks(const QString& path) {
    constexpr int longestChain = 40;
    QFileInfo end(path);
    for (int i = 0; end.isSymLink(); ++i) {
        if (i == longestChain) {
            return QString();
        }
        end.setFile(end.symLinkTarget());
    }
    return end.filePath();
}

/// False where the old file may not be replaced. A new one has the mode that the user wants.
bool takeMode(const QByteArray& old, int to) {
    struct stat status {};
    return ::stat(old.constData(), &status) != 0 ||
           (::access(old.constData(), W_OK) == 0 && ::fchmod(to, status.st_mode & 07777) == 0);
}

}  // namespace

bool writeFileWhole(const QString& target, const QByteArray& bytes, Lasting lasting) {
    const QString end = endOfLinks(target);
    if (end.isEmpty()) {
        return false;
    }
    const QByteArray name = QFile::encodeName(end);
    FileBeside file(QFile::encodeName(QFileInfo(end).path()));
    if (file.number() < 0 || !takeMode(name, file.number()) ||
        !writeAll(file.number(), bytes.constData(), bytes.size())) {
        return false;
    }
    // Some file systems cannot, and the file is as good as any other there.
    if (lasting == Lasting::Yes) {
        ::fsync(file.number());
    }
    return file.becomes(name);
}

#else

bool writeFileWhole(const QString& target, const QByteArray& bytes, Lasting) {
    QSaveFile file(target);
    // On a full disk only the flush says so: closing would take the cut text for a whole one.
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
           file.commit();
}

#endif

}  // namespace velorama

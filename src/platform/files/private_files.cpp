#include "platform/files/private_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

namespace velorama {

void makePrivateFolder(const QString& path) {
    const QString folder = QDir::cleanPath(path);
    QDir().mkpath(QFileInfo(folder).path());
    ::mkdir(QFile::encodeName(folder).constData(), S_IRWXU);
}

void closeToOthers(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    struct stat state = {};
    if (::lstat(name.constData(), &state) == 0 && !S_ISLNK(state.st_mode) &&
        state.st_uid == ::geteuid() && (state.st_mode & S_ISVTX) == 0 &&
        (state.st_mode & (S_IRWXG | S_IRWXO)) != 0) {
        ::chmod(name.constData(), state.st_mode & S_IRWXU);
    }
}

}  // namespace velorama

#include "platform/instances/instance_bus.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

namespace velorama {
namespace {

/// Makes the folder if need be; true if it is this user's and nobody else gets in.
bool makePrivate(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    ::mkdir(name.constData(), S_IRWXU);
    struct stat state = {};
    // A link would lead to a place that somebody else has chosen.
    return ::lstat(name.constData(), &state) == 0 && S_ISDIR(state.st_mode) &&
           state.st_uid == ::geteuid() && (state.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

}  // namespace

QString instanceFolder() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    QString inRuntime = runtime + QStringLiteral("/velorama");
    if (QDir::isAbsolutePath(runtime) && makePrivate(inRuntime)) {
        return inRuntime;
    }
    const QString inTemporary =
        QDir::tempPath() + QStringLiteral("/velorama-") + QString::number(::geteuid());
    return makePrivate(inTemporary) ? inTemporary : QString();
}

}  // namespace velorama

#include "shell/command_line.h"

#include "platform/files/paths.h"

#include <QDir>
#include <QFileInfo>

namespace velorama {

QString commandLine(const QStringList& arguments) {
    return absoluteFile(arguments.mid(1).join(QLatin1Char(' ')));
}

QString absoluteFile(const QString& file) {
    // Nothing is looked at on the disk, which may hang, where nothing can come of it.
    if (!QFileInfo(file).isRelative()) {
        return file;
    }
    const QFileInfo found(hostFile(file));
    if (!found.isRelative() || !found.isFile()) {
        return file;
    }
    // Behind a link, ".." leads elsewhere than the text says.
    const QString whole = QDir::current().filePath(found.filePath());
    const QString plain = QDir::cleanPath(whole);
    return QFileInfo(plain) == found ? plain : whole;
}

}  // namespace velorama

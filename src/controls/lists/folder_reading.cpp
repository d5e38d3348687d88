#include "controls/lists/folder_reading.h"

#include <QDir>
#include <QDirIterator>

namespace velorama {

QStringList foldersIn(const QString& path, const QStringList& hidden) {
    QStringList names;
    QDirIterator entries(path, QDir::Dirs | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        names.append(entries.fileName());
    }
    for (const QString& name : hidden) {
        if (QDir(path).exists(name)) {
            names.append(name);
        }
    }
    return names;
}

}  // namespace velorama

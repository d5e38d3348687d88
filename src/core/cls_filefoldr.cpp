#include "core/cls_filefoldr.h"

#include "platform/files/file_copy.h"
#include "platform/files/paths.h"

#include <QDir>
#include <QFileInfo>

namespace velorama {

bool clsFILEFOLDR::FileCopyNew(const QString& Source, const QString& Target) const {
    const QFileInfo from(FileExists(Source) ? hostFile(Source) : QString());
    const QFileInfo to(hostPlace(Target));
    if (!from.isFile() || to.filePath().isEmpty() || to.isDir()) {
        return false;
    }
    // Onto itself, a copy has nothing to do.
    return (to.exists() && from == to) || copyFileWhole(from.filePath(), to.filePath());
}

bool clsFILEFOLDR::FileExists(const QString& Path) const {
    const QString file = hostFile(Path);
    return !file.isEmpty() && QFileInfo(file).isFile();
}

bool clsFILEFOLDR::FolderExists(const QString& Path) const {
    const QString folder = hostFile(Path);
    return !folder.isEmpty() && QFileInfo(folder).isDir();
}

void clsFILEFOLDR::FolderCreate(const QString& Path) const {
    const QString folder = hostPlace(Path);
    if (!folder.isEmpty()) {
        QDir().mkdir(folder);
    }
}

QString clsFILEFOLDR::FileNameFromPath(const QString& Path, bool CheckExists) const {
    return CheckExists || FileExists(Path) ? lastSegment(Path) : Path;
}

QString clsFILEFOLDR::FileSlashCheck(const QString& Path) const {
    const QChar separator = pathSeparator(Path);
    if (Path.endsWith(separator) || Path.size() <= driveRootLength(Path)) {
        return Path;
    }
    return Path + separator;
}

QString clsFILEFOLDR::FolderPathFromFilename(const QString& Path) const {
    const QString name = lastSegment(Path);
    QString folder = Path;
    return name.isEmpty() ? folder : folder.remove(name);
}

}  // namespace velorama

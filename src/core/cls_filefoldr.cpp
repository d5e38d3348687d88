#include "core/cls_filefoldr.h"

#include "platform/paths.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace velorama {
namespace {

/// True if every byte of `source` went into `target`.
bool copyBytes(QFile& source, QSaveFile& target) {
    constexpr qint64 blockSize = 1024 * 1024;
    while (true) {
        const QByteArray block = source.read(blockSize);
        if (block.isEmpty()) {
            return source.error() == QFileDevice::NoError;
        }
        if (target.write(block) != block.size()) {
            return false;
        }
    }
}

}  // namespace

void clsFILEFOLDR::FileCopyNew(const QString& Source, const QString& Target) const {
    const QFileInfo from(FileExists(Source) ? hostFile(Source) : QString());
    const QFileInfo to(hostPlace(Target));
    if (!from.isFile() || to.filePath().isEmpty() || to.isDir() || from == to) {
        return;
    }
    QFile source(from.filePath());
    QSaveFile target(to.filePath());
    if (!source.open(QIODevice::ReadOnly) || !target.open(QIODevice::WriteOnly)) {
        return;
    }
    if (!copyBytes(source, target)) {
        return;
    }
    target.setFileTime(from.lastModified(), QFileDevice::FileModificationTime);
    target.commit();
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

#include "albums/found_files.h"

#include "platform/files/paths.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace velorama {
namespace {

// Thumbnails announced to the work ahead.
constexpr int lookAhead = 16;

/// What follows the first dot, upper case.
QString extension(const QString& entry) {
    const qsizetype dot = entry.indexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : entry.sliced(dot + 1).toUpper();
}

QString pathIn(const QString& folder, const QString& entry) {
    const bool isRoot = folder.size() == driveRootLength(folder);
    return isRoot ? QString(folder + entry) : joinPath(folder, entry);
}

void appendFolder(QList<FoundFile>& files, const QString& folder, const QString& pattern) {
    for (const QString& name : FileList::filesIn(folder, pattern, {}).names) {
        files.append({name, pathIn(folder, name)});
    }
}

}  // namespace

QList<FoundFile> picturesOf(const QStringList& paths, const QString& pattern) {
    QList<FoundFile> files;
    for (const QString& path : paths) {
        const QFileInfo there(QDir::cleanPath(path));
        if (there.isRelative()) {
            continue;
        }
        if (there.isDir()) {
            appendFolder(files, there.filePath(), pattern);
        } else if (there.isFile()) {
            files.append({there.fileName(), there.filePath()});
        }
    }
    files.removeIf([](const FoundFile& file) { return !file.isPicture(); });
    return files;
}

bool FoundFile::isPicture() const {
    const QString kind = extension(entry);
    return kind == QLatin1String("BMP") || kind == QLatin1String("JPG") ||
           kind == QLatin1String("GIF");
}

bool FoundFile::isGif() const {
    return extension(entry) == QLatin1String("GIF");
}

FoundFile foundFileIn(const QString& folder, const QString& entry) {
    return {entry, pathIn(folder, entry)};
}

FoundFiles::FoundFiles(const FoundControls& found, const ImageList& imlTHUMBNAILS,
                       Thumbnails& thumbnails)
    : found_(found), imlTHUMBNAILS_(imlTHUMBNAILS), thumbnails_(thumbnails) {}

FoundFile FoundFiles::file(int index) const {
    return foundFileIn(found_.flbFOUND->Path(), found_.flbFOUND->List(index));
}

QList<FoundFile> FoundFiles::selected() const {
    QList<FoundFile> files;
    for (int i = 1; i <= found_.lvwFOUND->Count(); ++i) {
        if (found_.lvwFOUND->item(i)->Selected()) {
            files.append(file(i - 1));
        }
    }
    return files;
}

QList<FoundFile> FoundFiles::backwards() const {
    QList<FoundFile> files;
    for (int i = found_.flbFOUND->ListCount() - 1; i >= 0; --i) {
        files.append(file(i));
    }
    return files;
}

void FoundFiles::expectOf(const QList<FoundFile>& files, qsizetype index) {
    QStringList next;
    const qsizetype end = std::min<qsizetype>(files.size(), index + lookAhead);
    for (qsizetype i = index; i < end; ++i) {
        appendIfNew(next, files[i]);
    }
    thumbnails_.expectSlides(next);
}

void FoundFiles::appendIfNew(QStringList& paths, const FoundFile& found) const {
    if (found.isPicture() && imlTHUMBNAILS_.indexOf(found.path) == 0) {
        paths.append(found.path);
    }
}

}  // namespace velorama

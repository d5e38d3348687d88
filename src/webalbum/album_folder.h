#pragma once

#include <QStringList>

namespace velorama {

/// Where an album stands, by the documents folder as the system gives it. Only where that ends in a
/// separator do the three agree. All empty where the system has none.
struct AlbumPaths {
    /// The folder of all albums.
    QString parent;
    /// Ends in its separator; empty for a title that no folder can have.
    QString album;
    /// The album's first page, as it is opened.
    QString view;
};

AlbumPaths albumPaths(const QString& documents, const QString& title);

/// True for a text that can be the name of one file or folder: not empty, no separator of either
/// kind, no control character, neither "." nor "..".
bool isPlainName(const QString& name);

/// A file of a folder that ends in its separator; empty, which no step takes for a path, where the
/// folder is empty or `name` is no plain name.
QString fileIn(const QString& folder, const QString& name);

/// A folder of a folder, ending in the separator too; empty as in `fileIn`.
QString folderIn(const QString& folder, const QString& name);

/// What every album has in its folder of images; where the program has such a file of its own.
QStringList programImageNames();
QString programImage(const QString& name);

}  // namespace velorama

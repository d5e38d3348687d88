#pragma once

#include <QString>
#include <QStringList>

namespace velorama {

/// One line of a file dialog's list of kinds.
struct FileKind {
    QString name;
    /// Wildcards; "*" for all files.
    QStringList patterns;
    bool operator==(const FileKind&) const = default;
};

/// Reads "name|*.a; *.b|name|*.c". A name without patterns at the end is dropped. "*.*" stands for
/// all files, also those without a dot.
QList<FileKind> fileKinds(const QString& filter);

}  // namespace velorama

#pragma once

#include <QString>

namespace velorama {

/// Paths and the file system. A step that fails gives the type's empty value.
class clsFILEFOLDR {
public:
    /// Overwrites without asking, whole or not at all; the copy keeps the source's time.
    /// True if the copy stands, also where it is the source itself.
    bool FileCopyNew(const QString& Source, const QString& Target) const;
    bool FileExists(const QString& Path) const;
    bool FolderExists(const QString& Path) const;
    /// One level only: parents are not made.
    void FolderCreate(const QString& Path) const;
    QString FileNameFromPath(const QString& Path, bool CheckExists) const;
    QString FileSlashCheck(const QString& Path) const;
    QString FolderPathFromFilename(const QString& Path) const;
};

}  // namespace velorama

#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

namespace velorama {

/// A kind of file and the program that opens it.
struct FileType {
    QString id;         // names the program's entry and its files: letters, digits, hyphens
    QString mimeType;   // "application/x-velorama-album"
    QString extension;  // ".vlr"
    QString description;
    QByteArray icon;  // of the files, SVG
    QString program;  // full path
    QString programName;
    QString programComment;  // one line
    QByteArray programIcon;  // SVG
};

/// The desktop's links from kinds of files to programs.
class FileTypes {
public:
    FileTypes() = default;
    FileTypes(const FileTypes&) = delete;
    FileTypes& operator=(const FileTypes&) = delete;
    virtual ~FileTypes() = default;

    /// Makes the program the one that opens such files, for this user. Returns at once; the work is
    /// done beside the program and its failures are not told. Nothing is linked where the system
    /// knows the type and the program for all users already, where the user has an entry of his own
    /// under the same name, where the program's path is no program, or where it is that of a build
    /// tree. What is there is then looked at as by `tidy`.
    virtual void link(const FileType&) {}

    /// Takes away an entry that `link` has made once the system knows type and program for all
    /// users, or once the program that the entry names is gone. Returns at once, as `link` does.
    virtual void tidy(const FileType&) {}
};

std::unique_ptr<FileTypes> makeDesktopFileTypes();

}  // namespace velorama

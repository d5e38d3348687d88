#pragma once

#include <QString>

#include <memory>

namespace velorama {

/// The desktop's way to open things, and the places it gives to programs.
class Shell {
public:
    Shell() = default;
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;
    virtual ~Shell() = default;

    /// Hands a file or an address to the program the desktop has for it. Does not wait; true if
    /// something was asked to open it. No shell ever interprets the text. Behind "file://" the
    /// plain path of a file that is there will do.
    virtual bool open(const QString& target) = 0;
    /// Folder of a CSIDL number (5 documents, 39 pictures), empty if the system has none. Number 5
    /// comes with the closing separator, and is made where it is not there: nobody else would.
    virtual QString specialFolder(int folderId) const = 0;
};

std::unique_ptr<Shell> makeDesktopShell();

/// `$XDG_DATA_HOME/velorama`: what the user sees as the application's folder. Asking creates
/// nothing.
QString applicationFolder();
/// The folder to show to somebody who has not chosen one: the application's, and as long as that is
/// not there, the sample pictures.
QString firstFolder();
/// The pictures that come with the program; empty where they are not installed.
QString sampleFolder();
/// Folder of the data installed with the program (pictures of web albums, samples), read only.
QString programDataFolder();
/// Full path of a file of the program's data: in the application's folder if it is there, otherwise
/// in the installed data.
QString programFile(const QString& name);
/// Full path of a library of the program's own, which is loaded when it is needed.
QString programLibrary(const QString& name);

}  // namespace velorama

#pragma once

#include "platform/session/system_colours.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace velorama {

/// What a command line asks for besides the main window: one struct for each call, with what was
/// said of it.

struct HelpCall {};
struct VersionCall {};
/// Words that make no call; what is wrong with them, without a full stop.
struct WrongCall {
    QString message;
};

/// Colours of a web album, 0x00BBGGRR; those of the settings where nothing was said.
struct AlbumColours {
    std::optional<Colour> page;
    std::optional<Colour> text;
    std::optional<Colour> bar;
    std::optional<Colour> titleBar;
    std::optional<Colour> titleBarText;
};

/// `--web-album`: an album as pages in a folder.
struct WebAlbumCall {
    QString album;
    QString folder;
    /// The album's name where nothing was said.
    std::optional<QString> title;
    /// Pixels; those of the settings where nothing was said.
    std::optional<int> photoSize;
    std::optional<int> thumbnailSize;
    AlbumColours colours;
};

/// `--check`: what an album holds and what of it is missing.
struct CheckCall {
    QString album;
    bool json = false;
};

/// `--wallpaper`: a picture file as the desktop's background.
struct WallpaperCall {
    QString file;
};

/// `--play`: an album as a show without the main window.
struct PlayCall {
    QString album;
    /// From 1; 0 for the first.
    int screen = 0;
    /// Seconds of a slide; those of the settings where nothing was said.
    std::optional<double> interval = {};
    /// What is heard instead of the music list; empty for that.
    QStringList music = {};
    /// Nothing but the system ends it.
    bool lock = false;
    /// It ends behind its last slide.
    bool once = false;
};

/// `--export-settings`: all settings as a registry text.
struct ExportSettingsCall {
    QString file;
    /// Else UTF-16.
    bool utf8 = false;
};

/// `--import-settings`: what a registry text says, into the settings.
struct ImportSettingsCall {
    QString file;
};

using Call = std::variant<HelpCall, VersionCall, WrongCall, PlayCall, WebAlbumCall, CheckCall,
                          WallpaperCall, ExportSettingsCall, ImportSettingsCall>;

/// What a call ends the program with.
enum class CallResult : int {
    Done = 0,
    /// One line on the error stream has told what, which file and why.
    NotDone = 1,
    Wrong = 2,
};

}  // namespace velorama

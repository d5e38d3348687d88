#pragma once

#include "core/commands.h"
#include "platform/process/command_turn.h"
#include "webalbum/mod_webalbum.h"
#include "webalbum/web_album_values.h"

#include <functional>

namespace velorama {

/// Both must be there.
struct WebAlbumControls {
    const ListView* lvwSLIDEBAR = nullptr;
    ProgressBar* prgBARSLIDES = nullptr;
};

/// What a build asks of the screen. One that is not set does nothing.
struct WebAlbumScreen {
    using MessageBox = std::function<void(const QString& text, const QString& caption)>;

    /// Plain message boxes with the button OK; they return when they are closed.
    MessageBox critical;
    MessageBox information;
    /// The pointer over the whole program.
    std::function<void(bool on)> hourglass;
};

/// Turns the slide list into a folder of pages for a browser, and opens them.
///
/// A build lets events run: the list and the page may change under it, and a click on its button
/// asks for another one behind it. Nothing is ever written outside the album's folder but the style
/// sheet in the application's own.
class WebAlbum {
public:
    /// Controls and commands must outlive this object. Documents folder and link handler are the
    /// registry service's.
    WebAlbum(const WebAlbumControls& controls, Commands& commands, WebAlbumValues values,
             WebAlbumScreen screen);

    void cbtnWEBALBUM_Click();
    /// `hWnd` is the main window's handle as decimal text.
    void cbtnVIEWWEBALB_Click(const QString& hWnd) const;
    /// The window is closing: running builds end at their next picture and say nothing.
    void stop() { stop_.request_stop(); }

    void WebAlbumFolderCreate(const QString& path) const;
    /// `destination` ends in its separator.
    void WebAlbumPicturesCopy(const ListView& list, const QString& destination) const;

private:
    void buildAndTell();
    void build(const QString& chosen);
    void makeFolders(const QString& parent, const QString& album) const;
    void copyProgramImages(const QString& album) const;
    QString title() const { return valueOf(values_.txtTITLE); }

    WebAlbumControls controls_;
    Commands& commands_;
    WebAlbumValues values_;
    WebAlbumScreen screen_;
    std::stop_source stop_;
    CommandTurn turn_;
};

}  // namespace velorama

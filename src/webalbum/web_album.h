#pragma once

#include "browse/slide_controls.h"
#include "core/commands.h"
#include "platform/process/command_turn.h"
#include "webalbum/mod_webalbum.h"

namespace velorama {

/// Turns the slide list into a folder of pages for a browser, and opens them.
///
/// A build lets events run: the list and the page may change under it, and a click on its button
/// asks for another one behind it. Nothing is ever written outside the album's folder but the style
/// sheet in the application's own.
class WebAlbum : public QObject {
    Q_OBJECT
public:
    /// Controls and commands must outlive this object. Documents folder and link handler are the
    /// registry service's.
    WebAlbum(const SlideControls& controls, Commands& commands, AskForValues values);

    void cbtnWEBALBUM_Click();
    /// `hWnd` is the main window's handle as decimal text.
    void cbtnVIEWWEBALB_Click(const QString& hWnd) const;
    /// Where an album of the present title lies; empty where none can.
    QString folder() const;
    /// The window is closing: running builds end at their next picture and say nothing.
    void stop() { stop_.request_stop(); }

    void WebAlbumFolderCreate(const QString& path) const;
    /// `destination` ends in its separator.
    void WebAlbumPicturesCopy(const ListView& list, const QString& destination) const;

signals:
    /// What the user has to be told; build and page wait until that is read.
    void NoTitle(const QString& text, const QString& caption);
    void Complete(const QString& text, const QString& caption);

private:
    void buildAndTell();
    void build(const QString& chosen);
    void makeFolders(const QString& parent, const QString& album) const;
    void copyProgramImages(const QString& album) const;
    void copyFile(const QString& source, const QString& target) const;
    QString title() const { return values_().txtTITLE; }

    const SlideControls& c_;
    Commands& commands_;
    AskForValues values_;
    std::stop_source stop_;
    /// Where the build that runs takes names letter by letter: pages name their files so, and
    /// browsers ask for them so. Empty without one.
    QString exact_;
    CommandTurn turn_;
};

}  // namespace velorama

#pragma once

#include "desktop/session.h"
#include "desktop/store.h"

#include <QPoint>
#include <QStringList>

#include <vector>

namespace velorama::desktop {

/// Items of the main window's toolbar.
enum ToolbarItem { AddPhoto, AddAll, RemovePhoto, RemoveAll, MoveBack, MoveForward, Play };

/// The main window of one run of the program, seen as its user sees it. Places are relative to the
/// window, at 96 dots per inch.
class PicturesPage {
public:
    /// Waits until the program's window is there and has the keyboard; `window()` is 0 if it never
    /// came.
    PicturesPage(DesktopSession& session, Program& program);

    WindowId window() const { return m_window; }
    Program& program() const { return m_program; }
    QRect geometry() const { return m_session.geometry(m_window); }

    /// Waits until the found list shows this many thumbnails, whole and framed.
    bool waitForThumbnails(int count) const;
    /// Middles of the thumbnails in the found list, in reading order.
    std::vector<QPoint> thumbnails() const;
    /// The middle of the first picture in the slide bar, or up to 30 pixels beside it: clicks at
    /// one place could make a double click.
    QPoint firstSlide(int right = 0) const;
    /// Splitter between folders and pictures with its left edge at `twips`.
    QPoint splitter(int twips) const;

    bool isOn(ToolbarItem item) const;
    /// Waits until the button is on and clicks it; a button that stays off fails the test.
    void press(ToolbarItem item) const;
    /// Chooses an entry by its mnemonics: `menu("s", "x")`.
    void menu(const QString& top, const QString& entry) const;
    /// Waits until a popup of the program is open.
    bool waitForPopup() const;

    /// Starts the show with F5 and waits until it covers the screen: its window, 0 if it never did.
    WindowId startShow() const;
    /// Waits until the show is gone and this window is back.
    bool waitForEndOfShow() const;

private:
    QPoint button(ToolbarItem item) const;

    DesktopSession& m_session;
    Program& m_program;
    WindowId m_window = 0;
};

/// The stored slide list: the paths under the numbers 1 to `Items`.
QStringList storedSlides(const Store& store);
bool waitForSlides(const Store& store, const QStringList& wanted);
std::optional<QString> storedItems(const Store& store);
std::optional<QString> storedSlide(const Store& store, int number);

std::optional<QString> filesLocation(const Store& store);
bool setFilesLocation(const Store& store, const QString& folder);
/// Seconds a slide stays and milliseconds between the steps of a fade, read when a show begins.
bool setPace(const Store& store, const QString& interval, const QString& transition);

}  // namespace velorama::desktop

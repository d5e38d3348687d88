#pragma once

#include "desktop/session.h"
#include "desktop/store.h"

#include <QPoint>
#include <QRect>

#include <vector>

namespace velorama::desktop {

/// Items of the main window's toolbar.
enum ToolbarItem { AddPhoto, AddAll, RemovePhoto, RemoveAll, MoveBack, MoveForward, Play };

/// The main window's pages, as the store numbers them.
enum Page { SlideshowsPage = 1, FoldersPage, MusicPage, WebAlbumPage, HelpPage };

/// The main window of one run of the program, seen as its user sees it. Places are pixels from the
/// window's corner; a program that runs at another scale than 1 is told by `scale`, and is then
/// good for pages and keys only.
class MainWindow {
public:
    /// Waits until the program's window is there and has the keyboard; `window()` is 0 if it never
    /// came.
    MainWindow(DesktopSession& session, Program& program, double scale = 1);

    WindowId window() const { return m_window; }
    Program& program() const { return m_program; }
    QRect geometry() const { return m_session.geometry(m_window); }
    QString title() const { return m_session.title(m_window); }
    bool waitForTitle(const QString& wanted) const;

    /// The page whose tab stands out; 0 while none does.
    int shownPage() const;
    /// Goes there with Ctrl+Tab, page by page.
    bool turnTo(Page page) const;
    /// Top of the window's surface below the menu.
    int surfaceTop() const;
    /// A place that is given in twips on a page, from the page's corner.
    QPoint onPage(int x, int y) const;
    QRect onPage(int x, int y, int width, int height) const;
    /// What the screen shows of a part of the window.
    QImage look(const QRect& place) const;

    /// The buttons of the toolbar from the left; fewer while the window is being painted.
    std::vector<QRect> toolbarButtons() const;

    /// True if something dark stands there on light ground, as what is off does not.
    bool isDark(const QRect& place) const;
    bool isOn(ToolbarItem item) const;
    /// Waits until the button is on and clicks it; a button that stays off fails the test.
    void press(ToolbarItem item) const;
    /// The middle of the first picture in the slide bar, or up to 30 pixels beside it: clicks at
    /// one place could make a double click.
    QPoint firstSlide(int right = 0) const;

    /// Chooses an entry by its mnemonics: `menu("s", "x")`.
    void menu(const QString& top, const QString& entry) const;
    /// Waits until a popup of the program is open beside so many windows.
    bool waitForPopup(int windows = 1) const;
    bool hasPopup(int windows = 1) const;
    /// All windows of the program that can be seen, popups and tooltips too.
    std::vector<WindowId> shownWindows() const;

    /// A dialog of the program once it is there and has the keyboard; 0 if it never came.
    WindowId waitForDialog(const QString& title) const;
    /// Waits until the main window is the program's only one and has the keyboard.
    bool waitForNoDialog() const;
    /// Types a whole path into the file dialog of this title and takes it.
    bool chooseFile(const QString& title, const QString& path) const;

    /// Alt+F4, and the answer to the question about unsaved changes if it comes: the exit code.
    std::optional<int> close(const QString& answer = QStringLiteral("shift+n")) const;
    /// Answers that question by a key.
    bool answer(const QString& key) const;

    /// Starts the show with F5 and waits until it covers the screen: its window, 0 if it never did.
    WindowId startShow() const;
    /// Waits until the show is gone and this window is back.
    bool waitForEndOfShow() const;

protected:
    DesktopSession& m_session;

private:
    QPoint button(ToolbarItem item) const;
    int pageFrame(const QImage& image) const;

    Program& m_program;
    WindowId m_window = 0;
    double m_scale = 1;
};

/// Title of the form that asks and tells.
inline const QString kMessageTitle = QStringLiteral("Help");

/// The page that the program starts with; not in the store, it is the first.
bool setFirstPage(const Store& store, Page page);

}  // namespace velorama::desktop

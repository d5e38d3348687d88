#pragma once

#include "desktop/program.h"

#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace velorama::desktop {

/// An X11 window; 0 is none.
using WindowId = quint32;

/// The longest a test waits for anything. Generous on purpose: it only ever runs out on a failure.
inline constexpr std::chrono::seconds kDeadline{120};

/// Polls until `condition` is true, with Qt's events running. False if the deadline passed first.
/// This is how a test waits for everything: it never sleeps and never asserts a time.
bool waitFor(const std::function<bool()>& condition, std::chrono::milliseconds limit = kDeadline);

struct ScreenOptions {
    int width = 1280;  ///< pixels
    int height = 960;
    int depth = 24;
    int dpi = 96;
    bool windowManager = true;
};

/// A desktop of the test's own: an X server in memory (Xvfb) on a free display, a window manager
/// (openbox), a session bus that starts no services, and an empty home. The built program is run in
/// it and driven as a user does, by keys and mouse; the test looks at its windows, its pixels, its
/// files and its settings store.
///
///     TEST(Albums, SaveAsksForAName) {
///         DesktopSession session;
///         ASSERT_TRUE(session.isUp());
///         Program& program = session.start({}, {"QT_SCALE_FACTOR=1.5"});
///         const WindowId window = session.waitForWindow("Velorama");
///         ASSERT_NE(window, 0U);
///         session.activate(window);
///         session.key("F12");
///         ASSERT_NE(session.waitForWindow("Save As", program.pid()), 0U);
///         ...
///         session.key("alt+F4");
///         EXPECT_EQ(program.waitForExit(), 0);
///     }
///
/// The end of the session ends all that it started, also when the test process dies. Whatever a
/// program wrote to its error stream, and the test has not taken with `takeErrors()`, fails the
/// test. A test that has failed leaves a picture of the screen beside the build's programs
/// (`failed-<suite>.<test>.png`).
///
/// Coordinates are device pixels. No call throws; calls on window 0 do nothing.
class DesktopSession {
public:
    explicit DesktopSession(const ScreenOptions& options = {});
    ~DesktopSession();
    DesktopSession(const DesktopSession&) = delete;
    DesktopSession& operator=(const DesktopSession&) = delete;

    /// True if the server, the window manager and the bus all came up. Assert it first.
    bool isUp() const { return m_up; }

    /// Folders of the user, without a closing slash. They exist from the start.
    QString home() const;
    QString configFolder() const;  ///< $XDG_CONFIG_HOME
    QString dataFolder() const;    ///< $XDG_DATA_HOME
    /// The program's own, which it shows first; without it, the sample pictures.
    QString applicationFolder() const;
    QString documentsFolder() const;  ///< named by user-dirs.dirs

    /// What every process of this desktop gets; extra settings as "NAME=value".
    QProcessEnvironment environment(const QStringList& extra = {}) const;

    /// Starts the built program. More than one may run; each lives as long as the session.
    /// `folder` is its working folder, the home if empty.
    Program& start(const QStringList& arguments = {}, const QStringList& environment = {},
                   const QString& folder = {});

    /// Runs a command of the system in this desktop to its end: its standard output, or nothing if
    /// it did not start, ran into the deadline or failed.
    std::optional<QByteArray> run(const QString& command, const QStringList& arguments) const;

    /// Visible windows with exactly this title; an empty title means any. `pid` 0 means any
    /// program.
    std::vector<WindowId> windows(const QString& title, qint64 pid = 0) const;
    /// The first of them once it is there, 0 if the deadline passes.
    WindowId waitForWindow(const QString& title, qint64 pid = 0) const;
    /// True once no such window is visible.
    bool waitForNoWindow(const QString& title, qint64 pid = 0) const;
    /// The window that has the keyboard.
    WindowId activeWindow() const;
    QString title(WindowId window) const;
    /// The client area, without the frame, on the screen.
    QRect geometry(WindowId window) const;
    /// The same with the frame that the window manager has put round it; empty without one.
    QRect outerGeometry(WindowId window) const;

    /// Brings the window to the front and gives it the keyboard; true once it has it.
    bool activate(WindowId window) const;
    void resize(WindowId window, const QSize& size) const;

    /// A key with its modifiers as X names them: "F5", "ctrl+shift+Tab", "Delete", "alt+F4".
    void key(const QString& combination) const;
    void type(const QString& text) const;

    /// The pointer, at a place inside the window. Buttons: 1 left, 2 middle, 3 right.
    void moveMouse(WindowId window, const QPoint& at) const;
    void click(WindowId window, const QPoint& at, int button = 1) const;
    void doubleClick(WindowId window, const QPoint& at) const;
    /// With the left button down, in steps, as a hand does.
    void drag(WindowId window, const QPoint& from, const QPoint& to) const;
    /// The same from place to place.
    void drag(WindowId window, const std::vector<QPoint>& way) const;

    /// What is on the screen, or on one window of it. A null image if the window is gone.
    QImage screenshot(WindowId window = 0) const;
    /// What the screen shows at this moment, the pointer included, read from the server's memory:
    /// quick enough to follow a fade. May be caught in the midst of a repaint.
    QImage glance() const;
    QImage glance(const QRect& area) const { return glance().copy(area); }

private:
    QString screenFolder() const;
    void makeHome();
    bool startServer(const ScreenOptions& options);
    bool startBus();
    bool startWindowManager();
    bool startHelper(QProcess& process, const QString& command, const QStringList& arguments) const;
    void keepPictureOfFailure() const;
    std::optional<QByteArray> xdotool(const QStringList& arguments) const;
    void pointer(WindowId window, const QPoint& at, const QStringList& then) const;

    QTemporaryDir m_home;
    QString m_display;
    QProcess m_server;
    QProcess m_bus;
    QProcess m_windowManager;
    std::vector<std::unique_ptr<Program>> m_programs;
    bool m_up = false;
};

}  // namespace velorama::desktop

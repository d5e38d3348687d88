#pragma once

#include "desktop/program.h"

#include <QImage>
#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <vector>

namespace velorama::wayland {

/// The built program on a compositor, with all that it says to it and hears from it.
class Client {
public:
    Client(const QStringList& arguments, const QProcessEnvironment& environment,
           const QString& folder);
    /// Fails the test for each line of the error stream that is not part of the protocol.
    ~Client();

    desktop::Program& program() { return m_program; }
    /// The protocol's lines so far, as libwayland writes them down.
    QStringList protocol();
    /// True once a line of the protocol holds `text`; false if the deadline passed first.
    bool waitFor(const QString& text);
    /// As the system ends a program. The exit code, nothing if it did not end orderly.
    std::optional<int> terminate();

private:
    void read();

    desktop::Program m_program;
    QString m_errors;
};

/// A compositor of the test's own with one screen of 1280 x 960 in memory, an empty home, and no
/// X server. Nothing of it outlives the session.
class WaylandSession {
public:
    virtual ~WaylandSession();
    WaylandSession(const WaylandSession&) = delete;
    WaylandSession& operator=(const WaylandSession&) = delete;

    /// Assert it first.
    bool isUp() const { return m_up; }
    /// Folders without a closing slash. They exist from the start.
    QString home() const { return m_home.path(); }
    QString configFolder() const { return home() + QStringLiteral("/.config"); }
    QString dataFolder() const { return home() + QStringLiteral("/.local/share"); }

    Client& start(const QStringList& arguments = {});
    /// The screen; a null image if the compositor is gone.
    virtual QImage screenshot() const = 0;

protected:
    WaylandSession();

    QProcessEnvironment environment() const;
    /// Runs a command to its end: its standard output, nothing if it failed.
    std::optional<QByteArray> run(const QString& command, const QStringList& arguments) const;
    bool startCompositor(const QStringList& command, const QProcessEnvironment& environment);
    void stopPrograms() { m_clients.clear(); }

    QString runtimeFolder() const { return home() + QStringLiteral("/runtime"); }
    QString m_display;  ///< whole path of the compositor's socket
    bool m_up = false;

private:
    QTemporaryDir m_home;
    QProcess m_compositor;
    std::vector<std::unique_ptr<Client>> m_clients;
};

/// Windows float and Alt+F4 closes them, as on an ordinary desktop; sway does neither by itself.
class Sway : public WaylandSession {
public:
    Sway();
    ~Sway() override;

    QImage screenshot() const override;
    /// Presses a key for the window that has the keyboard, in the words of wtype(1).
    bool key(const QStringList& words) const;
    /// One of sway's own commands.
    bool tell(const QString& command) const;
    /// The window that has the keyboard, as sway describes it; empty without one.
    QJsonObject focused() const;
    bool waitForFocus(const QString& title) const;

private:
    QString folder() const { return home() + QStringLiteral("/sway"); }
    QString socket() const;
    bool startKeyboard();

    QProcess m_keyboard;
};

class Weston : public WaylandSession {
public:
    Weston();
    ~Weston() override { stopPrograms(); }

    QImage screenshot() const override;
};

}  // namespace velorama::wayland

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QProcessEnvironment>
#include <QStringList>

#include <chrono>
#include <optional>

namespace velorama {

/// The desktop session that a picture is set in, and the time that is left for it.
class BackgroundSession {
public:
    BackgroundSession(const QProcessEnvironment& environment, const QDBusConnection& bus,
                      QDeadlineTimer deadline);

    /// What the session calls itself, in small letters: `XDG_CURRENT_DESKTOP` in its order, then
    /// `DESKTOP_SESSION`.
    QStringList desktops() const;
    QString variable(const char* name) const;
    /// A folder of the user's settings, `XDG_CONFIG_HOME` or what stands for it.
    QString configFolder() const;

    /// Runs a program to its end, without a shell: its output, or nothing if it cannot be started,
    /// fails or takes too long. It has `atLeast`, however little time is left.
    std::optional<QByteArray> run(const QString& program, const QStringList& arguments,
                                  std::chrono::milliseconds atLeast = {}) const;

    /// Somebody on the bus has this name. Wakes nobody up.
    bool hasService(const QString& name) const;
    /// The arguments of the answer; nothing after an error or too long a wait.
    std::optional<QVariantList> call(const QString& service, const QString& path,
                                     const QString& interface, const QString& method,
                                     const QVariantList& arguments) const;

private:
    int patience() const;

    QProcessEnvironment environment_;
    QDBusConnection bus_;
    QDeadlineTimer deadline_;
};

/// The address of a file, of plain ASCII letters: everything else is percent-encoded.
QString fileAddress(const QString& file);

}  // namespace velorama

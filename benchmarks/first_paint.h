#pragma once

#include <QPoint>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QTemporaryDir>

#include <chrono>
#include <functional>
#include <optional>

struct xcb_connection_t;

namespace velorama::bench {

/// An X server and a session bus of the bench's own, with an empty home: nothing of the user's
/// desktop takes part.
class Desktop {
public:
    Desktop();
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    /// Empty if the desktop is up, otherwise what is missing.
    QString whyAbsent() const { return absent_; }

    /// Milliseconds from the start of a program until its first large window shows anything but
    /// black; it is then closed as a user closes it. Nothing if no such window comes.
    std::optional<double> timeToFirstPaint(const QString& program);

    /// Milliseconds from the start of a program until its main window has this title; it is left
    /// open for `open` milliseconds and then closed in the same way.
    std::optional<double> timeToTitle(const QString& program, const QStringList& arguments,
                                      const QString& title, int open);

    /// Milliseconds from the start of a program until a show's first slide is on the screen, on
    /// white before it. Where a title is given, `begin` starts the show as soon as the main window
    /// has it. The program is then ended at once.
    std::optional<double> timeToSlide(const QString& program, const QStringList& arguments,
                                      const QString& title = {},
                                      const std::function<void(const QRect& window)>& begin = {});

    /// Where the first large window stands that shows anything but black; empty if none comes.
    QRect waitForWindow() const;
    /// True if such a window covers the whole screen.
    bool isCovered() const;
    /// A click of the left button at a place on the screen, some time after the pointer has come
    /// there.
    void click(QPoint at) const;
    void clickAtOnce(QPoint at) const;
    QProcessEnvironment environment() const;
    /// The process of the X server.
    const QProcess& server() const { return server_; }

private:
    void pointer(QPoint at, const QStringList& then) const;
    using IsReached = std::function<bool(quint32 window)>;
    std::optional<double> timeUntil(const QString& program, const QStringList& arguments,
                                    std::chrono::microseconds pause, const IsReached& isReached,
                                    int open);
    /// Starts a process that prints one line when it is ready; the line, or empty.
    QString startServer(QProcess& process, const QString& program, const QStringList& arguments);

    QTemporaryDir home_;
    QProcess server_;
    QProcess bus_;
    QString display_;
    QString busAddress_;
    QString absent_;
    xcb_connection_t* connection_ = nullptr;
};

}  // namespace velorama::bench

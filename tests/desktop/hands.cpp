// What a user does with a desktop: find windows, press keys, move the pointer, look.

#include "desktop/session.h"

#include <QFile>
#include <QRegularExpression>
#include <QtEndian>

namespace velorama::desktop {
namespace {

constexpr int kDragSteps = 8;

// POSIX extended, as xdotool reads it.
QString exactly(const QString& title) {
    static const QRegularExpression special(QStringLiteral(R"re(([][.^$*+?(){}|\\]))re"));
    QString escaped = title;
    escaped.replace(special, QStringLiteral(R"re(\\1)re"));
    return QLatin1Char('^') + escaped + QLatin1Char('$');
}

// The server keeps its pixels in a file of the kind xwd writes: 32-bit numbers, high byte first,
// then the colour table (12 bytes a colour), then the rows.
enum DumpField { HeaderSize = 0, DumpWidth = 4, DumpHeight = 5, BytesPerLine = 12, Colours = 19 };

QImage imageOfDump(const uchar* dump, qint64 size) {
    const auto field = [dump](DumpField which) {
        return qFromBigEndian<quint32>(dump + 4 * qsizetype(which));
    };
    const qint64 pixels = qint64(field(HeaderSize)) + 12 * qint64(field(Colours));
    const qint64 rows = qint64(field(BytesPerLine)) * field(DumpHeight);
    if (pixels + rows > size) {
        return {};
    }
    return QImage(dump + pixels, static_cast<int>(field(DumpWidth)),
                  static_cast<int>(field(DumpHeight)), field(BytesPerLine), QImage::Format_RGB32)
        .copy();
}

QString shownAs(WindowId window) {
    return QString::number(window);
}

}  // namespace

std::optional<QByteArray> DesktopSession::xdotool(const QStringList& arguments) const {
    return run(QStringLiteral("xdotool"), arguments);
}

std::vector<WindowId> DesktopSession::windows(const QString& title, qint64 pid) const {
    QStringList arguments = {QStringLiteral("search"), QStringLiteral("--all"),
                             QStringLiteral("--onlyvisible")};
    if (pid != 0) {
        arguments += {QStringLiteral("--pid"), QString::number(pid)};
    }
    arguments +=
        {QStringLiteral("--name"), title.isEmpty() ? QStringLiteral(".+") : exactly(title)};
    std::vector<WindowId> found;
    for (const QByteArray& line : xdotool(arguments).value_or(QByteArray()).split('\n')) {
        if (const WindowId window = line.toUInt()) {
            found.push_back(window);
        }
    }
    return found;
}

WindowId DesktopSession::waitForWindow(const QString& title, qint64 pid) const {
    std::vector<WindowId> found;
    waitFor([&] {
        found = windows(title, pid);
        return !found.empty();
    });
    return found.empty() ? 0 : found.front();
}

bool DesktopSession::waitForNoWindow(const QString& title, qint64 pid) const {
    return waitFor([&] { return windows(title, pid).empty(); });
}

WindowId DesktopSession::activeWindow() const {
    return xdotool({QStringLiteral("getactivewindow")}).value_or(QByteArray()).trimmed().toUInt();
}

QString DesktopSession::title(WindowId window) const {
    const auto name = xdotool({QStringLiteral("getwindowname"), shownAs(window)});
    return QString::fromUtf8(name.value_or(QByteArray())).remove(QLatin1Char('\n'));
}

QRect DesktopSession::geometry(WindowId window) const {
    const auto answer = run(QStringLiteral("xwininfo"), {QStringLiteral("-id"), shownAs(window)});
    const auto number = [&](const char* name) {
        for (const QByteArray& line : answer.value_or(QByteArray()).split('\n')) {
            if (line.trimmed().startsWith(name)) {
                return line.mid(line.indexOf(':') + 1).trimmed().toInt();
            }
        }
        return 0;
    };
    return {number("Absolute upper-left X"), number("Absolute upper-left Y"), number("Width"),
            number("Height")};
}

QRect DesktopSession::outerGeometry(WindowId window) const {
    const auto told = run(QStringLiteral("xprop"),
                          {QStringLiteral("-id"), QString::number(window),
                           QStringLiteral("-notype"), QStringLiteral("_NET_FRAME_EXTENTS")});
    const QString extents = QString::fromLatin1(told.value_or(QByteArray()));
    const QStringList sides =
        extents.section(QLatin1Char('='), 1).trimmed().split(QStringLiteral(", "));
    if (sides.size() != 4) {
        return {};
    }
    return geometry(window).adjusted(-sides.at(0).toInt(), -sides.at(2).toInt(),
                                     sides.at(1).toInt(), sides.at(3).toInt());
}

bool DesktopSession::activate(WindowId window) const {
    xdotool({QStringLiteral("windowactivate"), shownAs(window)});
    return window != 0 && waitFor([&] { return activeWindow() == window; });
}

void DesktopSession::resize(WindowId window, const QSize& size) const {
    xdotool({QStringLiteral("windowsize"), shownAs(window), QString::number(size.width()),
             QString::number(size.height())});
}

void DesktopSession::key(const QString& combination) const {
    xdotool({QStringLiteral("key"), combination});
}

void DesktopSession::type(const QString& text) const {
    xdotool({QStringLiteral("type"), QStringLiteral("--"), text});
}

void DesktopSession::pointer(WindowId window, const QPoint& at, const QStringList& then) const {
    if (window == 0) {
        return;
    }
    xdotool(QStringList{QStringLiteral("mousemove"), QStringLiteral("--window"), shownAs(window),
                        QString::number(at.x()), QString::number(at.y())} +
            then);
}

void DesktopSession::moveMouse(WindowId window, const QPoint& at) const {
    pointer(window, at, {});
}

void DesktopSession::click(WindowId window, const QPoint& at, int button) const {
    pointer(window, at, {QStringLiteral("click"), QString::number(button)});
}

void DesktopSession::doubleClick(WindowId window, const QPoint& at) const {
    pointer(window, at,
            {QStringLiteral("click"), QStringLiteral("--repeat"), QStringLiteral("2"),
             QStringLiteral("--delay"), QStringLiteral("60"), QStringLiteral("1")});
}

void DesktopSession::drag(WindowId window, const QPoint& from, const QPoint& to) const {
    pointer(window, from, {QStringLiteral("mousedown"), QStringLiteral("1")});
    for (int step = 1; step <= kDragSteps; ++step) {
        pointer(window, from + (to - from) * step / kDragSteps, {});
    }
    pointer(window, to, {QStringLiteral("mouseup"), QStringLiteral("1")});
}

void DesktopSession::drag(WindowId window, const std::vector<QPoint>& way) const {
    pointer(window, way.front(), {QStringLiteral("mousedown"), QStringLiteral("1")});
    for (const QPoint& place : way) {
        pointer(window, place, {});
    }
    pointer(window, way.back(), {QStringLiteral("mouseup"), QStringLiteral("1")});
}

QImage DesktopSession::glance() const {
    QFile file(screenFolder() + QStringLiteral("/Xvfb_screen0"));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const uchar* dump = file.map(0, file.size());
    return dump == nullptr ? QImage() : imageOfDump(dump, file.size());
}

QImage DesktopSession::screenshot(WindowId window) const {
    const QString source = window == 0 ? QStringLiteral("root") : shownAs(window);
    const auto bytes = run(
        QStringLiteral("import"),
        {QStringLiteral("-silent"), QStringLiteral("-window"), source, QStringLiteral("png:-")});
    return QImage::fromData(bytes.value_or(QByteArray()), "PNG")
        .convertToFormat(QImage::Format_RGB32);
}

}  // namespace velorama::desktop

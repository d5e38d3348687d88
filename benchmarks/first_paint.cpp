#include "first_paint.h"

#include "peers.h"
#include "stopwatch.h"

#include <QDir>
#include <QRect>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <thread>

#include <xcb/xcb.h>

namespace velorama::bench {
namespace {

constexpr int patience = 120'000;
constexpr std::chrono::microseconds betweenLooks(500);
// Looking takes the server's time, of which a long work needs more.
constexpr std::chrono::microseconds betweenTitles(5000);
// Smaller windows are not the main window.
constexpr int leastWidth = 400;
constexpr int leastHeight = 300;

struct Freed {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Pointer = std::unique_ptr<Reply, Freed>;

xcb_screen_t* firstScreen(xcb_connection_t* c) {
    return xcb_setup_roots_iterator(xcb_get_setup(c)).data;
}

bool isLargeAndMapped(xcb_connection_t* c, xcb_window_t window, QRect& place) {
    const Pointer<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, window), nullptr));
    const Pointer<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(c, xcb_get_geometry(c, window), nullptr));
    if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE) {
        return false;
    }
    place = QRect(geometry->x, geometry->y, geometry->width, geometry->height);
    return place.width() >= leastWidth && place.height() >= leastHeight;
}

/// True if any pixel of the window's middle row is lit. The root is black, and Qt gives its windows
/// no background: until the program paints, the row stays black.
bool isPainted(xcb_connection_t* c, const QRect& place) {
    const xcb_screen_t* screen = firstScreen(c);
    const QRect row = QRect(place.x(), place.center().y(), place.width(), 1) &
                      QRect(0, 0, screen->width_in_pixels, screen->height_in_pixels);
    if (row.isEmpty()) {
        return false;
    }
    const auto request = xcb_get_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root,
                                       static_cast<qint16>(row.x()), static_cast<qint16>(row.y()),
                                       static_cast<quint16>(row.width()), 1, 0x00ffffff);
    const Pointer<xcb_get_image_reply_t> image(xcb_get_image_reply(c, request, nullptr));
    if (!image) {
        return false;
    }
    const auto* bytes = xcb_get_image_data(image.get());
    return std::any_of(bytes, bytes + xcb_get_image_data_length(image.get()),
                       [](uint8_t byte) { return byte != 0; });
}

/// The first painted main window of at least this width, and its place; none: 0.
xcb_window_t paintedWindow(xcb_connection_t* c, QRect& place, int width = leastWidth) {
    const Pointer<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(c, xcb_query_tree(c, firstScreen(c)->root), nullptr));
    if (!tree) {
        return 0;
    }
    const xcb_window_t* windows = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        if (isLargeAndMapped(c, windows[i], place) && place.width() >= width &&
            isPainted(c, place)) {
            return windows[i];
        }
    }
    return 0;
}

/// The ground of a show is red alone until its first slide is there.
bool hasSlide(xcb_connection_t* c) {
    const xcb_screen_t* screen = firstScreen(c);
    QRect place;
    if (paintedWindow(c, place, screen->width_in_pixels) == 0) {
        return false;
    }
    const auto request =
        xcb_get_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, screen->root,
                      static_cast<qint16>(screen->width_in_pixels / 2),
                      static_cast<qint16>(screen->height_in_pixels / 2), 1, 1, 0x00ffffff);
    const Pointer<xcb_get_image_reply_t> image(xcb_get_image_reply(c, request, nullptr));
    // Blue, green, red.
    return image && xcb_get_image_data_length(image.get()) >= 2 &&
           (xcb_get_image_data(image.get())[0] != 0 || xcb_get_image_data(image.get())[1] != 0);
}

xcb_atom_t atom(xcb_connection_t* c, const QByteArray& name) {
    const Pointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        c, xcb_intern_atom(c, 0, static_cast<quint16>(name.size()), name.constData()), nullptr));
    return reply ? reply->atom : 0;
}

QByteArray title(xcb_connection_t* c, xcb_window_t window) {
    constexpr quint32 longest = 1024;  // of four bytes
    const Pointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        c,
        xcb_get_property(c, 0, window, atom(c, "_NET_WM_NAME"), atom(c, "UTF8_STRING"), 0, longest),
        nullptr));
    return reply ? QByteArray(static_cast<const char*>(xcb_get_property_value(reply.get())),
                              xcb_get_property_value_length(reply.get()))
                 : QByteArray();
}

void askToClose(xcb_connection_t* c, xcb_window_t window) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(c, "WM_PROTOCOLS");
    event.data.data32[0] = atom(c, "WM_DELETE_WINDOW");
    xcb_send_event(c, 0, window, 0, reinterpret_cast<const char*>(&event));
    xcb_flush(c);
}

void stop(QProcess& process) {
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
    }
}

}  // namespace

Desktop::Desktop() {
    absent_ = bench::whyAbsent(QStringLiteral("Xvfb"), QStringLiteral("xvfb"));
    if (!absent_.isEmpty()) {
        return;
    }
    QDir(home_.path()).mkdir(QStringLiteral("runtime"));
    display_ = QLatin1Char(':') + startServer(server_, QStringLiteral("Xvfb"),
                                              {QStringLiteral("-displayfd"), QStringLiteral("1"),
                                               QStringLiteral("-br"), QStringLiteral("-noreset"),
                                               QStringLiteral("-nolisten"), QStringLiteral("tcp"),
                                               QStringLiteral("-screen"), QStringLiteral("0"),
                                               QStringLiteral("1920x1080x24")});
    busAddress_ = startServer(bus_, QStringLiteral("dbus-daemon"),
                              {QStringLiteral("--session"), QStringLiteral("--nofork"),
                               QStringLiteral("--print-address=1")});
    connection_ = xcb_connect(display_.toLatin1().constData(), nullptr);
    if (xcb_connection_has_error(connection_) != 0) {
        absent_ = QStringLiteral("no X server could be started");
    }
}

Desktop::~Desktop() {
    if (connection_) {
        xcb_disconnect(connection_);
    }
    stop(bus_);
    stop(server_);
}

QString Desktop::startServer(QProcess& process, const QString& program,
                             const QStringList& arguments) {
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    while (!process.canReadLine() && process.waitForReadyRead(patience)) {
    }
    return QString::fromLatin1(process.readLine()).trimmed();
}

QProcessEnvironment Desktop::environment() const {
    QProcessEnvironment result = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME",
                             "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP", "QT_STYLE_OVERRIDE"}) {
        result.remove(QLatin1String(name));
    }
    result.insert(QStringLiteral("HOME"), home_.path());
    result.insert(QStringLiteral("XDG_RUNTIME_DIR"), home_.path() + QStringLiteral("/runtime"));
    result.insert(QStringLiteral("DISPLAY"), display_);
    result.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    result.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                  busAddress_.isEmpty() ? QStringLiteral("disabled:") : busAddress_);
    return result;
}

std::optional<double> Desktop::timeToFirstPaint(const QString& program) {
    return timeUntil(
        program, {}, betweenLooks, [](xcb_window_t) { return true; }, 0);
}

std::optional<double> Desktop::timeToTitle(const QString& program, const QStringList& arguments,
                                           const QString& wanted, int open) {
    const auto isReached = [this, name = wanted.toUtf8()](xcb_window_t window) {
        return title(connection_, window) == name;
    };
    return timeUntil(program, arguments, betweenTitles, isReached, open);
}

std::optional<double> Desktop::timeUntil(const QString& program, const QStringList& arguments,
                                         std::chrono::microseconds pause,
                                         const IsReached& isReached, int open) {
    QProcess process;
    process.setProcessEnvironment(environment());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    const Stopwatch watch;
    process.start(program, arguments);
    xcb_window_t window = 0;
    QRect place;
    bool reached = false;
    while (!reached && watch.milliseconds() < patience) {
        std::this_thread::sleep_for(pause);
        window = paintedWindow(connection_, place);
        reached = window != 0 && isReached(window);
    }
    const double time = watch.milliseconds();
    if (!reached) {
        stop(process);
        return std::nullopt;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(open));
    askToClose(connection_, window);
    if (!process.waitForFinished(patience)) {
        stop(process);
    }
    return time;
}

std::optional<double> Desktop::timeToSlide(const QString& program, const QStringList& arguments,
                                           const QString& wanted,
                                           const std::function<void(const QRect&)>& begin) {
    QProcess process;
    process.setProcessEnvironment(environment());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    const QByteArray name = wanted.toUtf8();
    bool isBegun = !begin;
    const Stopwatch watch;
    process.start(program, arguments);
    bool isShown = false;
    while (!isShown && watch.milliseconds() < patience) {
        std::this_thread::sleep_for(betweenLooks);
        QRect place;
        if (isBegun) {
            isShown = hasSlide(connection_);
        } else if (const xcb_window_t window = paintedWindow(connection_, place);
                   window != 0 && title(connection_, window) == name) {
            begin(place);
            isBegun = true;
        }
    }
    const double time = watch.milliseconds();
    stop(process);
    return isShown ? std::optional(time) : std::nullopt;
}

QRect Desktop::waitForWindow() const {
    const Stopwatch watch;
    QRect place;
    while (watch.milliseconds() < patience) {
        if (paintedWindow(connection_, place) != 0) {
            return place;
        }
        std::this_thread::sleep_for(betweenLooks);
    }
    return {};
}

bool Desktop::isCovered() const {
    QRect place;
    return paintedWindow(connection_, place, firstScreen(connection_)->width_in_pixels) != 0;
}

void Desktop::click(QPoint at) const {
    pointer(at, {QStringLiteral("sleep"), QStringLiteral("0.2"), QStringLiteral("click"),
                 QStringLiteral("1")});
}

void Desktop::clickAtOnce(QPoint at) const {
    pointer(at, {QStringLiteral("click"), QStringLiteral("1")});
}

void Desktop::pointer(QPoint at, const QStringList& then) const {
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(
        QStringLiteral("xdotool"),
        QStringList{QStringLiteral("mousemove"), QString::number(at.x()), QString::number(at.y())} +
            then);
    process.waitForFinished(patience);
}

}  // namespace velorama::bench

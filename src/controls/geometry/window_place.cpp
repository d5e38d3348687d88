#include "controls/geometry/window_place.h"

#include "controls/geometry/twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace velorama {
namespace {

// Logical pixels.
constexpr int highTitle = 38;

const QScreen* screenOf(const QWidget& window) {
    const QWidget* owner = window.isVisible() ? nullptr : window.parentWidget();
    return owner != nullptr ? owner->window()->screen() : window.screen();
}

QSize ownFrame(const QWidget* window) {
    return window != nullptr && window->isVisible() && !window->isFullScreen()
               ? window->frameGeometry().size() - window->geometry().size()
               : QSize(0, 0);
}

int keptWithin(int place, int length, int from, int end) {
    return std::max(from, std::min(place, end - length));
}

}  // namespace

QRect screenPlace(const QWidget& window) {
    const QScreen* screen = screenOf(window);
    return screen != nullptr ? screen->geometry() : QRect();
}

QRect nearestScreen(const QWidget& window) {
    const QScreen* screen = QGuiApplication::screenAt(window.frameGeometry().center());
    return screen != nullptr ? screen->geometry() : screenPlace(window);
}

QRect desktopPlace(const QWidget& window) {
    const QScreen* screen = screenOf(window);
    return screen != nullptr ? screen->virtualGeometry() : QRect();
}

bool isReachable(const QWidget& window) {
    const QRect frame = window.frameGeometry();
    const QRect edge(frame.topLeft(), QSize(std::max(1, frame.width()), 1));
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&edge](const QScreen* screen) {
        return screen->geometry().intersects(edge);
    });
}

QSize frameOf(const QWidget& window) {
    const QSize own = ownFrame(&window);
    const QWidget* owner = window.parentWidget();
    return own.isNull() && owner != nullptr ? ownFrame(owner->window()) : own;
}

void centreOnScreen(QWidget& window) {
    const QRect screen = screenPlace(window);
    const auto middle = [](int from, int length, float form) {
        return toTwips(from) + std::round((toTwips(length) - form) / 2);
    };
    setLeft(window, middle(screen.x(), screen.width(), Width(window)));
    setTop(window, middle(screen.y(), screen.height(), Height(window)));
}

void placeFirst(QWidget& window) {
    centreOnScreen(window);
    const QScreen* screen = screenOf(window);
    if (screen == nullptr) {
        return;
    }
    // The desktop's frame is known only when it is there. Title bars with buttons for a finger are
    // higher than the style's.
    const int title = std::max(highTitle, window.style()->pixelMetric(QStyle::PM_TitleBarHeight));
    const QSize frame(2, title);
    const QRect room = screen->availableGeometry();
    window.resize(window.size().boundedTo(room.size() - frame));
    const QSize size = window.size() + frame;
    window.move(keptWithin(window.x(), size.width(), room.x(), room.x() + room.width()),
                keptWithin(window.y(), size.height(), room.y(), room.y() + room.height()));
}

void keepOnScreen(QWidget& window) {
    const QScreen* screen = QGuiApplication::screenAt(window.frameGeometry().center());
    screen = screen != nullptr ? screen : screenOf(window);
    if (screen == nullptr ||
        (window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen))) {
        return;
    }
    const QRect room = screen->availableGeometry();
    const QSize size = window.size() + frameOf(window);
    const QPoint kept(keptWithin(window.x(), size.width(), room.x(), room.x() + room.width()),
                      keptWithin(window.y(), size.height(), room.y(), room.y() + room.height()));
    if (kept != window.pos()) {
        window.move(kept);
    }
}

QPoint normalPlace(const QWidget& window) {
    const QRect normal = window.normalGeometry();
    const bool maximised = window.windowState().testFlag(Qt::WindowMaximized);
    return maximised && normal.isValid()
               ? normal.topLeft() + window.pos() - window.geometry().topLeft()
               : window.pos();
}

}  // namespace velorama

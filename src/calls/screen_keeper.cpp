#include "calls/screen_keeper.h"

#include <QGuiApplication>

#include <algorithm>
#include <chrono>

namespace velorama {
namespace {

using namespace std::chrono_literals;

constexpr auto settleTime = 300ms;

}  // namespace

ScreenKeeper::ScreenKeeper(QWidget& window, const QString& name) : window_(window), name_(name) {
    settling_.setSingleShot(true);
    settling_.setInterval(settleTime);
    connect(&settling_, &QTimer::timeout, this, &ScreenKeeper::put);
    const auto settle = [this] { settling_.start(); };
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this, settle](QScreen* screen) {
        watch(screen);
        settle();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, settle);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, settle);
    for (QScreen* screen : QGuiApplication::screens()) {
        watch(screen);
    }
}

void ScreenKeeper::watch(QScreen* screen) {
    connect(screen, &QScreen::geometryChanged, this, [this] { settling_.start(); });
}

QScreen* ScreenKeeper::wanted() const {
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto named = std::find_if(screens.begin(), screens.end(), [this](const QScreen* screen) {
        return screen->name() == name_;
    });
    return named != screens.end() ? *named : QGuiApplication::primaryScreen();
}

/// A window that fills its screen is not moved: it leaves that state on the way.
void ScreenKeeper::put() {
    QScreen* screen = wanted();
    const bool stands =
        screen != nullptr && window_.screen() == screen && window_.geometry() == screen->geometry();
    if (screen == nullptr || stands || !window_.isVisible()) {
        return;
    }
    window_.setWindowState(window_.windowState() & ~Qt::WindowFullScreen);
    window_.setScreen(screen);
    window_.setGeometry(screen->geometry());
    window_.showFullScreen();
}

}  // namespace velorama

#include "pictures.h"
#include "quiet_show.h"
#include "stopwatch.h"
#include "works.h"

#include "core/globals.h"
#include "platform/process/events.h"
#include "ui/main_window.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <memory>

namespace velorama::bench {
namespace {

constexpr double goal = 2;
constexpr int pictures = 12;
constexpr QSize largeScreen(3840, 2160);
// How much smaller the window is before.
constexpr QSize step(40, 40);

class NoFetch : public HttpFetch {
public:
    QString OpenURL(const QString&) override { return {}; }
    void Cancel() override {}
};

class PaintCount : public QObject {
public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

QScreen* screenOf(QSize size) {
    const auto screens = QGuiApplication::screens();
    const auto found = std::find_if(screens.begin(), screens.end(),
                                    [size](QScreen* screen) { return screen->size() == size; });
    return found == screens.end() ? nullptr : *found;
}

/// What every window of that size pays: new memory to paint in, and its pixels.
std::optional<double> timeOfBareResizing(QWidget& window) {
    window.resize(largeScreen - step);
    DoEvents();
    const Stopwatch watch;
    window.resize(largeScreen);
    DoEvents();
    return watch.milliseconds();
}

/// The main window with all its pages, on the page Pictures, filling the large screen.
class LargeWindow {
public:
    explicit LargeWindow(const QString& folder) {
        saveSetting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX"),
                    QStringLiteral("2"));
        window_.Form_Load();
        window_.pages().pictures->found.ftvFOLDER->setPath(folder);
        if (const QScreen* screen = screenOf(largeScreen)) {
            window_.move(screen->geometry().topLeft());
        }
        window_.resize(largeScreen);
        qApp->installEventFilter(&count_);
        settle();
    }

    bool isReady() const {
        const FoundControls& found = const_cast<mfrmPRGMAIN&>(window_).pages().pictures->found;
        return window_.size() == largeScreen && found.lvwFOUND->Count() == pictures &&
               found.lvwFOUND->isVisible();
    }
    std::optional<double> timeOfResizing() {
        window_.resize(largeScreen - step);
        settle();
        const int before = count_.paints;
        const Stopwatch watch;
        window_.resize(largeScreen);
        settle();
        const double time = watch.milliseconds();
        return isReady() && count_.paints > before ? std::optional(time) : std::nullopt;
    }
    std::optional<double> timeOfPainting() {
        const int before = count_.paints;
        const Stopwatch watch;
        updateAll();
        settle();
        const double time = watch.milliseconds();
        return isReady() && count_.paints > before ? std::optional(time) : std::nullopt;
    }

private:
    /// One by one: the window's own update leaves out what opaque children cover.
    void updateAll() {
        for (QWidget* control : window_.findChildren<QWidget*>()) {
            control->update();
        }
        window_.update();
    }
    /// Until nothing is painted any more: a list that has been resized lays itself out later.
    void settle() {
        int before = 0;
        do {
            before = count_.paints;
            DoEvents();
        } while (count_.paints > before);
    }

    QuietScreenSaver screenSaver_;
    MediaCommands device_;
    DesktopBackground desktop_;
    NoFetch netCHECKUPDATE_;
    mfrmPRGMAIN window_{MainServices{screenSaver_, device_, desktop_, netCHECKUPDATE_}};
    PaintCount count_;
};

}  // namespace

Contest resizingMainWindow() {
    const auto window = std::make_shared<LargeWindow>(mediumFolder(pictures));
    const auto bare = std::make_shared<QWidget>();
    bare->show();
    return {.work = QStringLiteral("resize of the main window to 3840 x 2160, painted"),
            .unit = QStringLiteral("ms"),
            .rounds = 41,
            .ours = [window] { return window->timeOfResizing(); },
            .against = {{.name = QStringLiteral("painting it once"),
                         .goal = goal,
                         .measure = [window] { return window->timeOfPainting(); }},
                        {.name = QStringLiteral("the same resize of an empty window"),
                         .goal = 0,
                         .measure = [bare] { return timeOfBareResizing(*bare); }}},
            .absent = window->isReady() ? QString() : QStringLiteral("no window of that size")};
}

}  // namespace velorama::bench

#include "core/globals.h"
#include "pictures.h"
#include "player/frm_slideshow.h"
#include "quiet_show.h"
#include "stopwatch.h"
#include "works.h"

#include <QGuiApplication>

#include <ctime>
#include <memory>
#include <thread>

namespace velorama::bench {
namespace {

constexpr double goal = 0.05;
constexpr int slideCount = 1000;

double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Returns when no thread of this process has worked for a while: the work ahead is done.
void waitUntilIdle() {
    using namespace std::chrono_literals;
    constexpr int quietLooks = 8;
    double last = processorTime();
    for (int quiet = 0; quiet < quietLooks;) {
        std::this_thread::sleep_for(25ms);
        const double now = processorTime();
        quiet = now - last < 1 ? quiet + 1 : 0;
        last = now;
    }
}

/// A show of 24-megapixel slides whose clock is the bench.
class Show {
public:
    Show() : files_(filesOf(cameraFolder())) {
        saveSetting(QStringLiteral("\\frmSLIDESHOW\\Items"), QStringLiteral("Items"),
                    QString::number(slideCount));
        for (int i = 1; i <= slideCount; ++i) {
            setSlide(i, files_[i % half()]);
        }
        form_->load(QGuiApplication::primaryScreen());
        form_->tmrSLIDESHOW.stop();
        form_->tmrFADETRANS.setInterval(1'000'000);
    }
    ~Show() { form_->Unload(); }
    Show(const Show&) = delete;
    Show& operator=(const Show&) = delete;

    /// A tick up to the first step of the fade, the slide decoded beforehand.
    double readyTick() {
        waitUntilIdle();
        return tick();
    }
    /// The same with a slide that was not announced.
    double unreadyTick() {
        waitUntilIdle();
        const int next = form_->slides.SlideIndex + 1;
        setSlide(next, files_[half() + next % half()]);
        return tick();
    }
    QSize area() const { return form_->fade().areaSize(); }

private:
    qsizetype half() const { return files_.size() / 2; }
    static void setSlide(int number, const QString& path) {
        saveSetting(QStringLiteral("\\frmSLIDESHOW\\Selection"), QString::number(number), path);
    }
    double tick() {
        const Stopwatch watch;
        form_->tmrSLIDESHOW_Timer();
        form_->tmrFADETRANS_Timer();
        return watch.milliseconds();
    }

    QuietHost host_;
    QuietScreenSaver screenSaver_;
    QStringList files_;
    // Deletes itself after Unload.
    frmSLIDESHOW* form_ = new frmSLIDESHOW(host_, screenSaver_);
};

}  // namespace

Contest tickWithSlideReady() {
    const auto show = std::make_shared<Show>();
    return {.work = QStringLiteral("a tick that finds its slide ready, %1 x %2")
                        .arg(show->area().width())
                        .arg(show->area().height()),
            .unit = QStringLiteral("ms"),
            .rounds = 11,
            .ours = [show] { return show->readyTick(); },
            .against = {{.name = QStringLiteral("the same with nothing ready"),
                         .goal = goal,
                         .measure = [show] { return show->unreadyTick(); }}}};
}

}  // namespace velorama::bench

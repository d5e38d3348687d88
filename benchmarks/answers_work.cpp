#include "peers.h"
#include "picture_lists.h"
#include "pictures.h"
#include "stopwatch.h"
#include "works.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QSemaphore>

#include <algorithm>
#include <chrono>
#include <thread>

namespace velorama::bench {
namespace {

using namespace std::chrono_literals;

constexpr double goalAgainstDecoding = 2;

/// What a user clicks at while the program is at work.
class ClickTarget : public QWidget {
public:
    using QWidget::QWidget;
    QSemaphore answered;

protected:
    void mousePressEvent(QMouseEvent*) override { answered.release(); }
};

/// Clicks again and again, each time a little after the last click was answered.
class Clicker {
public:
    explicit Clicker(ClickTarget& target)
        : target_(target), thread_([this](const std::stop_token& stop) { run(stop); }) {}

    /// Ends it; the longest time without an answer, in milliseconds.
    double longest() {
        thread_.request_stop();
        // The last click is still to be answered.
        while (!isOver_) {
            QCoreApplication::processEvents();
        }
        thread_.join();
        return longest_;
    }

private:
    void click() {
        const QPointF place(1, 1);
        QCoreApplication::postEvent(
            &target_, new QMouseEvent(QEvent::MouseButtonPress, place, place, Qt::LeftButton,
                                      Qt::LeftButton, Qt::NoModifier));
    }
    void run(const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            const Stopwatch watch;
            click();
            target_.answered.acquire();
            longest_ = std::max(longest_, watch.milliseconds());
            std::this_thread::sleep_for(1ms);
        }
        isOver_ = true;
    }

    ClickTarget& target_;
    double longest_ = 0;
    std::atomic<bool> isOver_ = false;
    std::jthread thread_;
};

std::optional<double> longestSilence(const QString& folder, int count) {
    PictureWindow window;
    ClickTarget target;
    Clicker clicker(target);
    window.list(folder);
    const double longest = clicker.longest();
    return window.isListed(count) ? std::optional(longest) : std::nullopt;
}

}  // namespace

Contest answersDuringListing() {
    constexpr int rounds = 5;
    const QString folder = cameraFolder();
    const QStringList files = filesOf(folder);
    const int count = static_cast<int>(files.size());
    return {.work = QStringLiteral("longest wait of a click while %1 JPEGs of 24 megapixels are "
                                   "listed")
                        .arg(count),
            .unit = QStringLiteral("ms"),
            .rounds = rounds,
            .ours = [folder, count] { return longestSilence(folder, count); },
            .against = {{.name = QStringLiteral("libjpeg-turbo at 1/8, one of them"),
                         .goal = goalAgainstDecoding,
                         .measure = jpegEighths({files.first()})}}};
}

}  // namespace velorama::bench

#include "first_paint.h"
#include "peers.h"
#include "pictures.h"
#include "stopwatch.h"
#include "stored_settings.h"
#include "works.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <chrono>
#include <memory>
#include <thread>

#include <ctime>

namespace velorama::bench {
namespace {

using namespace std::chrono_literals;

constexpr double goal = 0.5;
constexpr double patience = 60'000;
constexpr auto betweenLooks = 2ms;
/// A program that works less than `rest` milliseconds in a time of `quiet` has come to rest: a
/// blinking cursor takes less, a thumbnail more.
constexpr double quiet = 600;
constexpr double rest = 5;
/// For writing settings and caches after the program was asked to end.
constexpr int ending = 10'000;

/// Geeqie shows no thumbnails by itself. The sizes are those it writes there.
constexpr char geeqieSettings[] = R"(<gq>
<global thumbnails.max_width="96" thumbnails.max_height="72" thumbnails.enable_caching="true"
  thumbnails.spec_standard="true" />
<layout id="main" show_thumbnails="true" />
</gq>
)";

/// Processor time of a running process, all its threads, in milliseconds; below 0 if it is gone.
double processorTime(const QProcess& process) {
    clockid_t clock{};
    timespec time{};
    if (clock_getcpuclockid(static_cast<pid_t>(process.processId()), &clock) != 0 ||
        clock_gettime(clock, &time) != 0) {
        return -1;
    }
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// When, in the time of `watch`, the process had come to rest; nothing if it ends or never does.
std::optional<double> momentOfRest(const QProcess& process, const Stopwatch& watch) {
    double worked = processorTime(process);
    double busy = watch.milliseconds();
    while (worked >= 0 && watch.milliseconds() < patience) {
        std::this_thread::sleep_for(betweenLooks);
        const double time = processorTime(process);
        const double now = watch.milliseconds();
        if (time < 0 || now - busy > quiet) {
            return time < 0 ? std::nullopt : std::optional(busy);
        }
        if (time - worked > rest) {
            worked = time;
            busy = now;
        }
    }
    return std::nullopt;
}

class ViewerWorld {
public:
    ViewerWorld() : folder_(wallpaperFolder()) {
        absent_ = folder_.isEmpty() ? QStringLiteral("plasma-workspace-wallpapers is not installed")
                                    : desktop_.whyAbsent();
        if (absent_.isEmpty()) {
            prepare();
        }
    }

    QString whyAbsent() const { return absent_; }

    std::optional<double> ours() {
        return visit(QCoreApplication::applicationDirPath() + QStringLiteral("/velorama"), {});
    }

    std::optional<double> visitWith(const QString& viewer) { return visit(viewer, {folder_}); }

private:
    void prepare() {
        const QProcessEnvironment environment = desktop_.environment();
        // The page with the found list, as the other two show the pictures.
        storeSettings(
            environment,
            {{QStringLiteral("frmTOOLSSETTINGS\\Items"), QStringLiteral("Files Location"), folder_},
             {QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX"), QStringLiteral("2")}});
        const QString folder =
            environment.value(QStringLiteral("HOME")) + QStringLiteral("/.config/geeqie");
        QDir().mkpath(folder);
        QFile settings(folder + QStringLiteral("/geeqierc.xml"));
        if (!settings.open(QIODevice::WriteOnly) || settings.write(geeqieSettings) < 0) {
            absent_ = QStringLiteral("no settings could be written");
        }
    }

    /// From the start of a process until it has shown its window and come to rest.
    std::optional<double> visit(const QString& program, const QStringList& arguments) const {
        QProcess process;
        process.setProcessEnvironment(desktop_.environment());
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        const Stopwatch watch;
        process.start(program, arguments);
        std::optional<double> time;
        if (!desktop_.waitForWindow().isEmpty()) {
            time = momentOfRest(process, watch);
        }
        process.terminate();
        if (!process.waitForFinished(ending)) {
            process.kill();
            process.waitForFinished();
        }
        return time;
    }

    Desktop desktop_;
    QString folder_;
    QString absent_;
};

Opponent viewer(const std::shared_ptr<ViewerWorld>& world, const QString& name) {
    return {.name = name + QStringLiteral(", thumbnails shown and kept"),
            .goal = goal,
            .measure = [world, name] { return world->visitWith(name); },
            .absent = whyAbsent(name, name)};
}

}  // namespace

Contest secondVisit() {
    const auto world = std::make_shared<ViewerWorld>();
    return {.work = QStringLiteral("second visit of the wallpapers, from start to rest"),
            .unit = QStringLiteral("ms"),
            .rounds = 5,
            .ours = [world] { return world->ours(); },
            .against = {viewer(world, QStringLiteral("geeqie")),
                        viewer(world, QStringLiteral("gthumb"))},
            .absent = world->whyAbsent()};
}

}  // namespace velorama::bench

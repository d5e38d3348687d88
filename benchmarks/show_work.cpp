#include "first_paint.h"
#include "peers.h"
#include "pictures.h"
#include "sound_server.h"
#include "stopwatch.h"
#include "stored_settings.h"
#include "works.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <memory>
#include <thread>

#include <unistd.h>

namespace velorama::bench {
namespace {

using namespace std::chrono_literals;

constexpr double goal = 4;
// feh uploads a slide once. Ours is uploaded at each of the 48 steps that change it.
constexpr double goalOfServer = 10;
constexpr auto duration = 24s;
constexpr double patience = 20'000;
constexpr int twipsPerPixel = 15;
// Milliseconds between the steps of a fade.
constexpr int usual = 15;

/// Milliseconds of processor time of a running process, in steps of ten.
double timeOf(const QProcess& process) {
    QFile file(QStringLiteral("/proc/%1/stat").arg(process.processId()));
    if (!file.open(QIODevice::ReadOnly)) {
        return -1;
    }
    // The second field, a name in brackets, may hold blanks; user and system time are the twelfth
    // and thirteenth after it.
    const QByteArray line = file.readAll();
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    const double ticks = fields.value(11).toDouble() + fields.value(12).toDouble();
    return ticks * 1e3 / static_cast<double>(sysconf(_SC_CLK_TCK));
}

/// Returns when the process has hardly worked for half a second.
void waitUntilIdle(const QProcess& process) {
    const Stopwatch watch;
    double last = -1e9;
    double now = timeOf(process);
    while (now - last > 20 && watch.milliseconds() < patience) {
        std::this_thread::sleep_for(500ms);
        last = now;
        now = timeOf(process);
    }
}

void stop(QProcess& process) {
    process.kill();
    process.waitForFinished();
}

/// Milliseconds of processor time in the time of a show.
struct Times {
    double program = 0;
    double server = 0;
};

std::optional<double> ofProgram(const std::optional<Times>& times) {
    return times ? std::optional(times->program) : std::nullopt;
}

std::optional<double> ofServer(const std::optional<Times>& times) {
    return times ? std::optional(times->server) : std::nullopt;
}

/// A screen, a sound server, eight wallpapers and the track.
class ShowWorld {
public:
    ShowWorld() : folder_(dataFolder(QStringLiteral("show"))) {
        const QString wallpapers = wallpaperFolder();
        if (wallpapers.isEmpty()) {
            absent_ = QStringLiteral("plasma-workspace-wallpapers is not installed");
            return;
        }
        copyDifferent(filesOf(wallpapers));
        absent_ = desktop_.whyAbsent() + sound_.whyAbsent() +
                  bench::whyAbsent(QStringLiteral("xdotool"), QStringLiteral("xdotool"));
    }

    QString whyAbsent() const { return absent_; }

    /// Processor time of our show, from the click that starts it.
    std::optional<Times> ours(int transition) {
        QProcess process;
        process.setProcessEnvironment(environment());
        process.setStandardErrorFile(QProcess::nullDevice());
        saveSettings(process.processEnvironment(), transition);
        process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/velorama"),
                      QStringList());
        const QRect window = desktop_.waitForWindow();
        std::optional<Times> times;
        if (!window.isEmpty()) {
            waitUntilIdle(process);
            desktop_.click(window.topLeft() + button(window, 705));
            waitUntilIdle(process);
            times = shown(process, [&] {
                desktop_.click(window.topLeft() +
                               button(window, window.width() * twipsPerPixel - 585));
            });
        }
        stop(process);
        return times;
    }

    std::optional<Times> feh() {
        QProcess process;
        process.setProcessEnvironment(environment());
        process.setStandardErrorFile(QProcess::nullDevice());
        const auto times = shown(process, [&] {
            process.start(
                QStringLiteral("feh"),
                QStringList{QStringLiteral("-F"), QStringLiteral("-D"), QStringLiteral("4")} +
                    filesOf(folder_));
            process.waitForStarted();
        });
        stop(process);
        return times;
    }

private:
    static constexpr int slides = 8;

    /// Many wallpapers are the same picture under several names, one after the other.
    void copyDifferent(const QStringList& files) const {
        qint64 last = 0;
        qsizetype copied = filesOf(folder_).size();
        for (const QString& file : files) {
            const QFileInfo info(file);
            if (info.size() != last && copied < slides) {
                QFile::copy(file, folder_ + QLatin1Char('/') + info.fileName());
                ++copied;
            }
            last = info.size();
        }
    }

    /// The processor time from `begin` on, if a show then covers the screen to the end.
    template <typename Begin>
    std::optional<Times> shown(QProcess& process, Begin begin) {
        const Times before{process.processId() == 0 ? 0 : timeOf(process),
                           timeOf(desktop_.server())};
        begin();
        std::this_thread::sleep_for(duration);
        const Times after{timeOf(process), timeOf(desktop_.server())};
        if (after.program < 0 || after.server < 0 || !desktop_.isCovered()) {
            return std::nullopt;
        }
        return Times{after.program - before.program, after.server - before.server};
    }

    /// The middle of a button of the bar between the lists, at `left` twips.
    static QPoint button(const QRect& window, int left) {
        return {(left + 270) / twipsPerPixel, window.height() - (3180 - 270) / twipsPerPixel};
    }

    QProcessEnvironment environment() const {
        QProcessEnvironment result = desktop_.environment();
        sound_.addTo(result);
        return result;
    }

    void saveSettings(const QProcessEnvironment& environment, int transition) const {
        const auto text = [](const char* plain) { return QString::fromLatin1(plain); };
        storeSettings(environment,
                      {{text("frmSLIDESHOW\\Items"), text("Items"), text("0")},
                       {text("frmTOOLSSETTINGS\\Items"), text("Files Location"), folder_},
                       {text("frmCONFIG\\Items"), text("INTERVAL"), text("4")},
                       {text("frmCONFIG\\Items"), text("TRANSITION"), QString::number(transition)},
                       {text("mfrmPRGMAINAUD\\Items Total"), text("lstMUSICList Total"), text("1")},
                       {text("mfrmPRGMAINAUD\\Details"), text("lstMUSIC0"), track_}});
    }

    Desktop desktop_;
    SoundServer sound_;
    QString track_ = fourMinutes();
    QString folder_;
    QString absent_;
};

}  // namespace

Contest wholeShow() {
    // Four steps in the time of a slide instead of 240.
    constexpr int hardlyFading = 1000;
    const auto world = std::make_shared<ShowWorld>();
    return {.work = QStringLiteral("processor time of 24 s of a show with music"),
            .unit = QStringLiteral("ms"),
            .rounds = 1,
            .ours = [world] { return ofProgram(world->ours(usual)); },
            .against = {{.name = QStringLiteral("feh -F -D 4, no fade, no music"),
                         .goal = goal,
                         .measure = [world] { return ofProgram(world->feh()); },
                         .absent = whyAbsent(QStringLiteral("feh"), QStringLiteral("feh"))},
                        {.name = QStringLiteral("the same show with 4 steps a fade"),
                         .measure = [world] { return ofProgram(world->ours(hardlyFading)); }}},
            .absent = world->whyAbsent(),
            .warmUp = false};
}

Contest serverOfShow() {
    const auto world = std::make_shared<ShowWorld>();
    return {.work = QStringLiteral("the X server's processor time in such a show"),
            .unit = QStringLiteral("ms"),
            .rounds = 1,
            .ours = [world] { return ofServer(world->ours(usual)); },
            .against = {{.name = QStringLiteral("feh -F -D 4, no fade"),
                         .goal = goalOfServer,
                         .measure = [world] { return ofServer(world->feh()); },
                         .absent = whyAbsent(QStringLiteral("feh"), QStringLiteral("feh"))}},
            .absent = world->whyAbsent(),
            .warmUp = false};
}

}  // namespace velorama::bench

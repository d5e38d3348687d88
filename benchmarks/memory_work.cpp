#include "machine.h"
#include "picture_lists.h"
#include "pictures.h"
#include "stopwatch.h"
#include "works.h"

#include "platform/process/events.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <cstdio>

namespace velorama::bench {
namespace {

constexpr int slides = 2000;
constexpr double goal = 1.3;
// A thumbnail of 90 x 90 in 32 bits a pixel, 31.6 KiB, and 2.4 KiB for everything else.
constexpr double allowedPerSlide = 34;

constexpr int manyRows = 100'000;
constexpr double allowedPerRow = 4;
constexpr double restMilliseconds = 3000;
constexpr qint64 cacheBytes = 512LL * 1024 * 1024;

std::optional<double> memoryOf(const QStringList& arguments) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(), arguments);
    if (!process.waitForFinished(-1) || process.exitCode() != 0) {
        return std::nullopt;
    }
    return process.readAllStandardOutput().trimmed().toDouble();
}

std::optional<double> memoryPerSlide(const QString& full, const QString& empty) {
    const auto with = memoryOf({QStringLiteral("--hold-slides"), full});
    const auto without = memoryOf({QStringLiteral("--hold-slides"), empty});
    return with && without ? std::optional((*with - *without) / slides) : std::nullopt;
}

}  // namespace

int holdSlides(const QString& folder) {
    PictureWindow window;
    window.name(folder);
    window.addAll();
    DoEvents();
    const double memory = ownMemory();
    std::printf("%.0f\n", memory);
    return memory > 0 && window.slides() == window.files() ? 0 : 1;
}

int holdPictures(const QString& folder, const QString& cacheFile) {
    const int count = static_cast<int>(filesOf(folder).size());
    PictureWindow window(std::make_shared<ThumbnailCache>(cacheFile, cacheBytes));
    window.list(folder);
    window.addAll();
    // What waits for the disk is not the lists' memory.
    for (const Stopwatch rest; rest.milliseconds() < restMilliseconds;) {
        DoEvents();
        QThread::msleep(20);
    }
    const double memory = ownMemory();
    std::printf("%.0f\n", memory);
    return memory > 0 && window.isListed(count) && window.slides() == count ? 0 : 1;
}

Contest memoryOfManyPictures() {
    const QString full = manyFolder(manyRows);
    const QString empty = dataFolder(QStringLiteral("empty"));
    const auto cache = std::make_shared<QTemporaryDir>(dataFolder(QStringLiteral("kept")) +
                                                       QStringLiteral("/XXXXXX"));
    const auto memoryWith = [cache](const QString& folder) {
        const QString file = cache->filePath(QStringLiteral("c/thumbnails.sqlite"));
        return memoryOf({QStringLiteral("--hold-pictures"), folder, file});
    };
    return {.work = QStringLiteral("memory with 100,000 pictures listed and added"),
            .unit = QStringLiteral("KiB"),
            .rounds = 1,
            .ours = [=] { return memoryWith(full); },
            .against = {{.name = QStringLiteral("the empty window and 4 KiB a row"),
                         .goal = goal,
                         .measure = [=]() -> std::optional<double> {
                             const auto bare = memoryWith(empty);
                             return bare ? std::optional(*bare + manyRows * allowedPerRow)
                                         : std::nullopt;
                         }}},
            .warmUp = false};
}

Contest memoryOfSlides() {
    const QString full = smallFolder(slides);
    const QString empty = dataFolder(QStringLiteral("empty"));
    return {.work = QStringLiteral("memory of a slide, of 2,000"),
            .unit = QStringLiteral("KiB"),
            .rounds = 3,
            .ours = [full, empty] { return memoryPerSlide(full, empty); },
            .against = {{.name = QStringLiteral("34 KiB, reckoned"), .goal = goal, .measure = [] {
                             return allowedPerSlide;
                         }}}};
}

}  // namespace velorama::bench

#include "machine.h"
#include "picture_lists.h"
#include "pictures.h"
#include "works.h"

#include "platform/process/events.h"

#include <QCoreApplication>
#include <QProcess>

#include <cstdio>

namespace velorama::bench {
namespace {

constexpr int slides = 2000;
constexpr double goal = 1.3;
// A thumbnail of 90 x 90 in 32 bits a pixel, 31.6 KiB, and 2.4 KiB for everything else.
constexpr double allowedPerSlide = 34;

std::optional<double> memoryWith(const QString& folder) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--hold-slides"), folder});
    if (!process.waitForFinished(-1) || process.exitCode() != 0) {
        return std::nullopt;
    }
    return process.readAllStandardOutput().trimmed().toDouble();
}

std::optional<double> memoryPerSlide(const QString& full, const QString& empty) {
    const auto with = memoryWith(full);
    const auto without = memoryWith(empty);
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

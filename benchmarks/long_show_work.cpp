#include "machine.h"
#include "pictures.h"
#include "works.h"

#include "core/globals.h"
#include "platform/process/events.h"
#include "player/frm_slideshow.h"
#include "quiet_show.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QProcess>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace velorama::bench {
namespace {

constexpr double goal = 1.05;
constexpr int slideCount = 1000;
constexpr int mediumCount = 200;
constexpr int early = 50;
constexpr int stepsOfFade = 4;

void setSlides(const QStringList& small, const QStringList& medium) {
    saveSetting(QStringLiteral("\\frmSLIDESHOW\\Items"), QStringLiteral("Items"),
                QString::number(slideCount));
    const int every = slideCount / mediumCount;
    for (int i = 0; i < slideCount; ++i) {
        saveSetting(QStringLiteral("\\frmSLIDESHOW\\Selection"), QString::number(i + 1),
                    i % every == 0 ? medium[i / every] : small[i]);
    }
}

/// The most memory while a slide comes, in KiB. It is looked at after every step: the next picture
/// is in the making meanwhile, and a single look may meet it or not.
double showOne(frmSLIDESHOW& form) {
    form.tmrSLIDESHOW_Timer();
    double most = ownMemory();
    for (int step = 0; step < stepsOfFade; ++step) {
        form.tmrFADETRANS_Timer();
        most = std::max(most, ownMemory());
    }
    DoEvents();
    return std::max(most, ownMemory());
}

struct Memory {
    double early = 0;
    double most = 0;
};

std::optional<Memory> memoryOf(const QString& small, const QString& medium) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--hold-show"), small, medium});
    if (!process.waitForFinished(-1) || process.exitCode() != 0) {
        return std::nullopt;
    }
    const QList<QByteArray> numbers = process.readAllStandardOutput().simplified().split(' ');
    return Memory{numbers.value(0).toDouble() / 1024, numbers.value(1).toDouble() / 1024};
}

}  // namespace

int holdShow(const QString& small, const QString& medium) {
    const QStringList smallFiles = filesOf(small);
    const QStringList mediumFiles = filesOf(medium);
    if (smallFiles.size() < slideCount || mediumFiles.size() < mediumCount) {
        return 1;
    }
    setSlides(smallFiles, mediumFiles);
    QuietHost host;
    QuietScreenSaver screenSaver;
    auto* form = new frmSLIDESHOW(host, screenSaver);  // Deletes itself after Unload.
    form->load(QGuiApplication::primaryScreen());
    form->tmrSLIDESHOW.stop();
    form->tmrFADETRANS.setInterval(1'000'000);
    Memory memory;
    for (int slide = 1; slide <= slideCount; ++slide) {
        double& most = slide > early ? memory.most : memory.early;
        most = std::max(most, showOne(*form));
    }
    form->Unload();
    std::printf("%.0f %.0f\n", memory.early, memory.most);
    return memory.early > 0 ? 0 : 1;
}

Contest memoryOfLongShow() {
    const QString small = smallFolder(slideCount);
    const QString medium = mediumFolder(mediumCount);
    const auto last = std::make_shared<std::optional<Memory>>();
    return {.work = QStringLiteral("most memory of a show, slides %1 to 1,000").arg(early + 1),
            .unit = QStringLiteral("MiB"),
            .rounds = 3,
            .ours = [=]() -> std::optional<double> {
                *last = memoryOf(small, medium);
                return *last ? std::optional((*last)->most) : std::nullopt;
            },
            .against = {{.name = QStringLiteral("the most up to slide %1").arg(early),
                         .goal = goal,
                         .measure = [last]() -> std::optional<double> {
                             return *last ? std::optional((*last)->early) : std::nullopt;
                         }}},
            .warmUp = false};
}

}  // namespace velorama::bench

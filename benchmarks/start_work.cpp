#include "first_paint.h"
#include "works.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <memory>

namespace velorama::bench {
namespace {

constexpr double goal = 3;

QString beside(const QString& name) {
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
}

}  // namespace

Contest startOfProgram() {
    const auto desktop = std::make_shared<Desktop>();
    const QString program = beside(QStringLiteral("velorama"));
    const QString bare = beside(QStringLiteral("velorama_bench_bare_window"));
    const QString missing = QFileInfo::exists(program)
                                ? QString()
                                : QStringLiteral("the program is not built beside the bench");
    return {.work = QStringLiteral("start to the first paint of the main window"),
            .unit = QStringLiteral("ms"),
            .rounds = 15,
            .ours = [desktop, program] { return desktop->timeToFirstPaint(program); },
            .against = {{.name = QStringLiteral("a bare Qt window with a list"),
                         .goal = goal,
                         .measure = [desktop, bare] { return desktop->timeToFirstPaint(bare); }}},
            .absent = desktop->whyAbsent() + missing};
}

}  // namespace velorama::bench

#include "album_window.h"
#include "first_paint.h"
#include "peers.h"
#include "pictures.h"
#include "works.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <memory>

namespace velorama::bench {
namespace {

constexpr double goal = 1.7;

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

Contest startWithAlbumAgain() {
    constexpr int slides = 1000;
    constexpr int rounds = 5;
    constexpr double most = 0.03;
    // Longer than the cache waits before it writes.
    constexpr int untilKept = 3000;
    const auto desktop = std::make_shared<Desktop>();
    const auto folder = std::make_shared<QTemporaryDir>();
    const QStringList files = filesOf(albumFolder(slides));
    const QString album = writtenAlbum(files, *folder);
    const auto start = [desktop, folder, album,
                        program = beside(QStringLiteral("velorama"))](int open) {
        return desktop->timeToTitle(program, {album}, QStringLiteral("Velorama - ") + album, open);
    };
    const bool isKept = desktop->whyAbsent().isEmpty() && start(untilKept).has_value();
    return {.work = QStringLiteral("start with an album of 1,000 JPEGs of 4.5 megapixels, again"),
            .unit = QStringLiteral("ms"),
            .rounds = rounds,
            .ours = [start] { return start(0); },
            .against = {{.name = QStringLiteral("libjpeg-turbo at 1/8, all cores"),
                         .goal = most,
                         .measure = jpegEighths(files)}},
            .absent = isKept ? QString()
                             : desktop->whyAbsent() + QStringLiteral("the album does not open")};
}

}  // namespace velorama::bench

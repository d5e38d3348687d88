#include "album_window.h"
#include "first_paint.h"
#include "peers.h"
#include "pictures.h"
#include "works.h"

#include <QCoreApplication>

#include <memory>

namespace velorama::bench {
namespace {

constexpr double goal = 0.8;
constexpr int slides = 100;
constexpr int rounds = 9;
// Longer than the cache of thumbnails waits before it writes.
constexpr int untilKept = 3000;
constexpr int twipsPerPixel = 15;

/// The button that starts the show, in the main window.
QPoint startButton(const QRect& window) {
    constexpr int fromRight = 585 - 270;
    constexpr int fromBottom = 3180 - 270;
    return {window.right() + 1 - fromRight / twipsPerPixel,
            window.bottom() + 1 - fromBottom / twipsPerPixel};
}

}  // namespace

Contest firstSlideOfPlay() {
    const auto desktop = std::make_shared<Desktop>();
    const auto folder = std::make_shared<QTemporaryDir>();
    const QString program = QCoreApplication::applicationDirPath() + QStringLiteral("/velorama");
    const QString album = writtenAlbum(filesOf(albumFolder(slides)), *folder);
    const QString title = QStringLiteral("Velorama - ") + album;
    const bool isKept = desktop->whyAbsent().isEmpty() &&
                        desktop->timeToTitle(program, {album}, title, untilKept).has_value();
    const auto alone = [desktop, folder, program, album] {
        return desktop->timeToSlide(program, {QStringLiteral("--play"), album});
    };
    const auto byWindow = [desktop, program, album, title] {
        return desktop->timeToSlide(program, {album}, title, [&desktop](const QRect& window) {
            desktop->clickAtOnce(startButton(window));
        });
    };
    return {
        .work = QStringLiteral("--play of an album of 100 JPEGs, to the first slide"),
        .unit = QStringLiteral("ms"),
        .rounds = rounds,
        .ours = alone,
        .against = {{.name = QStringLiteral("the window with that album, and its show"),
                     .goal = goal,
                     .measure = byWindow,
                     .absent = whyAbsent(QStringLiteral("xdotool"), QStringLiteral("xdotool"))}},
        .absent =
            isKept ? QString() : desktop->whyAbsent() + QStringLiteral("the album does not open")};
}

}  // namespace velorama::bench

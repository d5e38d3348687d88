#include "album_window.h"
#include "peers.h"
#include "pictures.h"
#include "stopwatch.h"
#include "works.h"

#include <QTemporaryDir>

#include <memory>

namespace velorama::bench {
namespace {

constexpr int slides = 1000;
constexpr double goal = 1.3;

std::optional<double> timeOfOpening(const QString& album) {
    AlbumWindow window;
    const Stopwatch watch;
    window.open(album);
    const double time = watch.milliseconds();
    return window.isComplete(slides) ? std::optional(time) : std::nullopt;
}

}  // namespace

Contest openingAlbum() {
    const auto folder = std::make_shared<QTemporaryDir>();
    const QStringList files = filesOf(albumFolder(slides));
    const QString album = writtenAlbum(files, *folder);
    return {.work = QStringLiteral("opening an album of 1,000 JPEGs of 4.5 megapixels"),
            .unit = QStringLiteral("ms"),
            .rounds = 3,
            .ours = [folder, album] { return timeOfOpening(album); },
            .against = {{.name = QStringLiteral("libjpeg-turbo at 1/8, all cores"),
                         .goal = goal,
                         .measure = jpegEighths(files)}}};
}

}  // namespace velorama::bench

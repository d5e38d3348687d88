#include "works.h"

#include "controls/lists/list_view.h"
#include "platform/files/exact_names.h"
#include "webalbum/mod_webalbum.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

#include <ctime>

namespace velorama::bench {
namespace {

constexpr double goal = 4.4;

/// Milliseconds that the processors have worked for this process: what other programs do at the
/// time does not count.
double processorTime() {
    return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// In memory where the system has such a folder: pages reach the disk one by one, and that is the
/// disk's time.
QString placeForAlbums() {
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + u"/velorama-bench-XXXXXX";
}

WebAlbumValues sizes() {
    WebAlbumValues values;
    values.udnPHOTO = QStringLiteral("500");
    values.udnTHUMBNAIL = QStringLiteral("95");
    return values;
}

/// Index and slide pages of a new album whose pictures have been copied already.
std::optional<double> timeOfPages(int pictures) {
    const QTemporaryDir place(placeForAlbums());
    const QString source = place.filePath(QStringLiteral("source.jpg"));
    const bool made = place.isValid() && QDir(place.path()).mkdir(QStringLiteral("pictures")) &&
                      QImage(640, 480, QImage::Format_RGB32).save(source);
    if (!made) {
        return std::nullopt;
    }
    ListView slides;
    for (int i = 1; i <= pictures; ++i) {
        const QString name = QStringLiteral("picture %1.jpg").arg(i);
        const QString copy = place.filePath(u"pictures/" + name);
        QFile::copy(source, copy);
        slides.Add(i, copy, name, 0);
    }
    const QString folder = place.path() + u'/';
    const ExactNames exactNames(place.path());
    ProgressBar prgBARSLIDES;
    AlbumBuild build{sizes, prgBARSLIDES, {}};
    const double begin = processorTime();
    modWEBALBUM::WebAlbumMainPagesWrite(build, folder, QStringLiteral("Bench"), slides);
    modWEBALBUM::WebAlbumSlidePagesWrite(build, folder, QStringLiteral("Bench"), slides);
    const double time = processorTime() - begin;
    return QDir(folder).entryList({QStringLiteral("picture*.html")}).size() == pictures
               ? std::optional(time)
               : std::nullopt;
}

}  // namespace

Contest pagesOfWebAlbum() {
    return {
        .work = QStringLiteral("Pages of a web album of 4,000 pictures"),
        .unit = QStringLiteral("ms"),
        .rounds = 7,
        .ours = [] { return timeOfPages(4000); },
        .against = {{.name = QStringLiteral("the same with 1,000"), .goal = goal, .measure = [] {
                         return timeOfPages(1000);
                     }}}};
}

}  // namespace velorama::bench

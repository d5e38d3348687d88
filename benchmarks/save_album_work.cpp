#include "album_window.h"
#include "pictures.h"
#include "stopwatch.h"
#include "works.h"

#include <QFile>

#include <memory>

#include <unistd.h>

namespace velorama::bench {
namespace {

constexpr int slides = 10000;
constexpr double goal = 1.5;

QStringList pathsOfSlides() {
    QStringList paths;
    for (int i = 1; i <= slides; ++i) {
        paths.append(
            QStringLiteral("/home/ann/Pictures/Summer at the sea/Evening walk %1.jpg").arg(i));
    }
    return paths;
}

/// Whether the album of all slides stands there: header, paths and the empty line at the end.
bool isSaved(const QString& album) {
    QFile file(album);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const QByteArray header = QByteArray::number(slides) + "| \r\n";
    return bytes.startsWith(header) && bytes.count("\r\n") == slides + 2;
}

std::optional<double> timeOfSaving(AlbumWindow& window, const QString& album) {
    const Stopwatch watch;
    window.save();
    const double time = watch.milliseconds();
    return isSaved(album) ? std::optional(time) : std::nullopt;
}

/// A new file each time: one that is written over keeps its place on the disk.
std::optional<double> timeOfPlainWriting(const QByteArray& bytes, const QString& path) {
    QFile::remove(path);
    QFile file(path);
    const Stopwatch watch;
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                         file.write(bytes) == bytes.size() && ::fsync(file.handle()) == 0;
    file.close();
    const double time = watch.milliseconds();
    return written ? std::optional(time) : std::nullopt;
}

}  // namespace

Contest savingAlbum() {
    const QString folder = dataFolder(QStringLiteral("saved"));
    const QString album = folder + QStringLiteral("/bench.vlr");
    const auto window = std::make_shared<AlbumWindow>();
    const auto bytes = std::make_shared<QByteArray>();
    window->fill(pathsOfSlides());
    window->own(album);
    return {.work = QStringLiteral("saving an album of 10,000 slides"),
            .unit = QStringLiteral("ms"),
            .rounds = 41,
            .ours = [window, album] { return timeOfSaving(*window, album); },
            .against = {{.name = QStringLiteral("the same bytes into a new file, and fsync"),
                         .goal = goal,
                         .measure = [folder, album, bytes] {
                             if (QFile saved(album);
                                 bytes->isEmpty() && saved.open(QIODevice::ReadOnly)) {
                                 *bytes = saved.readAll();
                             }
                             return timeOfPlainWriting(*bytes, folder + QStringLiteral("/plain"));
                         }}}};
}

}  // namespace velorama::bench

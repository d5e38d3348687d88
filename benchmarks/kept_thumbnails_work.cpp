#include "picture_lists.h"
#include "pictures.h"
#include "stopwatch.h"
#include "works.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

namespace velorama::bench {
namespace {

constexpr qint64 cacheBytes = 512LL * 1024 * 1024;

struct Times {
    double listing = 0;
    double adding = 0;
};

/// Of a new process.
std::optional<Times> timesWith(const QString& folder, const QString& cacheFile) {
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--list-pictures"), folder, cacheFile});
    if (!process.waitForFinished(-1) || process.exitCode() != 0) {
        return std::nullopt;
    }
    const QList<QByteArray> parts = process.readAllStandardOutput().trimmed().split(' ');
    return parts.size() == 2 ? std::optional(Times{parts[0].toDouble(), parts[1].toDouble()})
                             : std::nullopt;
}

/// The cache file of one contest.
class KeptFile {
public:
    QString path() const { return folder_.filePath(QStringLiteral("c/thumbnails.sqlite")); }
    QString newPath() const {
        QDir(folder_.filePath(QStringLiteral("c"))).removeRecursively();
        return path();
    }

private:
    // On the disk, where the user's own cache is; /tmp may be memory.
    QTemporaryDir folder_{dataFolder(QStringLiteral("kept")) + QStringLiteral("/XXXXXX")};
};

using TimeOf = double Times::*;

Measure measure(TimeOf what, const QString& folder, const std::function<QString()>& cacheFile) {
    return [=]() -> std::optional<double> {
        const std::optional<Times> times = timesWith(folder, cacheFile());
        return times ? std::optional((*times).*what) : std::nullopt;
    };
}

/// The first listing runs second in each round, and leaves the cache for the next.
Contest again(const QString& work, const QString& folder, double goal, int rounds) {
    const auto file = std::make_shared<KeptFile>();
    timesWith(folder, file->newPath());
    return {.work = work,
            .unit = QStringLiteral("ms"),
            .rounds = rounds,
            .ours = measure(&Times::listing, folder, [file] { return file->path(); }),
            .against = {
                {.name = QStringLiteral("the first time"),
                 .goal = goal,
                 .measure = measure(&Times::listing, folder, [file] { return file->newPath(); })}}};
}

/// Ten times as many pictures whose thumbnails are kept already. The goal leaves a tenth to what
/// grows faster than the number of pictures, sorting among it.
Contest tenfold(const QString& work, const QString& against, TimeOf what) {
    constexpr int rounds = 3;
    const QString few = plainFolder(10'000);
    const QString many = plainFolder(100'000);
    const auto file = std::make_shared<KeptFile>();
    const auto path = [file] { return file->path(); };
    timesWith(few, file->newPath());
    timesWith(many, file->path());
    return {.work = work,
            .unit = QStringLiteral("ms"),
            .rounds = rounds,
            .ours = measure(what, many, path),
            .against = {{.name = against, .goal = 11, .measure = measure(what, few, path)}},
            .warmUp = false};
}

QString missingWallpapers(const QString& folder) {
    return folder.isEmpty() ? QStringLiteral(
                                  "the pictures of Debian's plasma-workspace-wallpapers are not "
                                  "installed")
                            : QString();
}

}  // namespace

int listPictures(const QString& folder, const QString& cacheFile) {
    const int count = static_cast<int>(filesOf(folder).size());
    PictureWindow window(
        std::make_shared<ThumbnailCache>(cacheFile, cacheFile.isEmpty() ? 0 : cacheBytes));
    const Stopwatch first;
    window.list(folder);
    const double listing = first.milliseconds();
    const Stopwatch second;
    window.addAll();
    std::printf("%f %f\n", listing, second.milliseconds());
    return window.isListed(count) && window.slides() == count ? 0 : 1;
}

Contest wallpapersAgain() {
    constexpr int rounds = 7;
    const QString folder = wallpaperFolder();
    Contest contest = again(QStringLiteral("listing the wallpapers again in a new process"), folder,
                            0.05, rounds);
    contest.absent = missingWallpapers(folder);
    return contest;
}

Contest cameraPicturesAgain() {
    constexpr int rounds = 5;
    return again(QStringLiteral("listing 40 JPEGs of 24 megapixels again in a new process"),
                 cameraFolder(), 0.01, rounds);
}

Contest listingWithCache() {
    constexpr int rounds = 9;
    const QString folder = wallpaperFolder();
    const auto file = std::make_shared<KeptFile>();
    return {.work = QStringLiteral("listing the wallpapers, their thumbnails being kept"),
            .unit = QStringLiteral("ms"),
            .rounds = rounds,
            .ours = measure(&Times::listing, folder, [file] { return file->newPath(); }),
            .against = {{.name = QStringLiteral("the same with no cache"),
                         .goal = 1.05,
                         .measure = measure(&Times::listing, folder, [] { return QString(); })}},
            .absent = missingWallpapers(folder)};
}

Contest addingWhatIsListed() {
    constexpr int rounds = 7;
    const QString folder = wallpaperFolder();
    const auto file = std::make_shared<KeptFile>();
    return {.work = QStringLiteral("Add All of the wallpapers just listed"),
            .unit = QStringLiteral("ms"),
            .rounds = rounds,
            .ours = measure(&Times::adding, folder, [file] { return file->newPath(); }),
            .against = {{.name = QStringLiteral("the listing"),
                         .goal = 0.05,
                         .measure =
                             measure(&Times::listing, folder, [file] { return file->newPath(); })}},
            .absent = missingWallpapers(folder)};
}

Contest listingHundredThousandAgain() {
    return tenfold(QStringLiteral("listing 100,000 tiny pictures again in a new process"),
                   QStringLiteral("the same with 10,000"), &Times::listing);
}

Contest addingHundredThousand() {
    return tenfold(QStringLiteral("Add All of 100,000 tiny pictures just listed"),
                   QStringLiteral("the same with 10,000"), &Times::adding);
}

}  // namespace velorama::bench

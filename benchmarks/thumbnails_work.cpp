#include "peers.h"
#include "picture_lists.h"
#include "pictures.h"
#include "stopwatch.h"
#include "works.h"

namespace velorama::bench {
namespace {

constexpr double goalAgainstVips = 0.40;
constexpr double goalAgainstFloor = 1.25;

std::optional<double> timeOfListing(const QString& folder, int count) {
    PictureWindow window;
    const Stopwatch watch;
    window.list(folder);
    const double time = watch.milliseconds();
    return window.isListed(count) ? std::optional(time) : std::nullopt;
}

Contest thumbnails(const QString& work, const QString& folder, int rounds) {
    const QStringList files = filesOf(folder);
    const int count = static_cast<int>(files.size());
    return {.work = work.arg(count),
            .unit = QStringLiteral("ms"),
            .rounds = rounds,
            .ours = [folder, count] { return timeOfListing(folder, count); },
            .against = {{.name = QStringLiteral("vipsthumbnail -s 64x64"),
                         .goal = goalAgainstVips,
                         .measure = vipsThumbnails(files),
                         .absent = whyAbsent(QStringLiteral("vipsthumbnail"),
                                             QStringLiteral("libvips-tools"))},
                        {.name = QStringLiteral("libjpeg-turbo at 1/8, all cores"),
                         .goal = goalAgainstFloor,
                         .measure = jpegEighths(files)}}};
}

}  // namespace

Contest wallpaperThumbnails() {
    constexpr int rounds = 7;
    const QString folder = wallpaperFolder();
    Contest contest =
        thumbnails(QStringLiteral("listing a folder of %1 wallpapers"), folder, rounds);
    if (folder.isEmpty()) {
        contest.absent = QStringLiteral(
            "the pictures of Debian's plasma-workspace-wallpapers are not installed");
    }
    return contest;
}

Contest cameraThumbnails() {
    constexpr int rounds = 5;
    return thumbnails(QStringLiteral("listing a folder of %1 JPEGs of 24 megapixels"),
                      cameraFolder(), rounds);
}

}  // namespace velorama::bench

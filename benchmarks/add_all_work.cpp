#include "picture_lists.h"
#include "pictures.h"
#include "stopwatch.h"
#include "works.h"

namespace velorama::bench {
namespace {

constexpr double goal = 4.6;

/// Thumbnails are there beforehand, so that their making is not in it.
std::optional<double> timeOfAddAll(const QString& folder) {
    PictureWindow window;
    window.name(folder);
    window.makeThumbnails();
    const Stopwatch watch;
    window.addAll();
    const double time = watch.milliseconds();
    return window.slides() == window.files() ? std::optional(time) : std::nullopt;
}

}  // namespace

Contest addingAll() {
    const QString many = tinyFolder(4000);
    const QString few = tinyFolder(1000);
    return {
        .work = QStringLiteral("Add All of 4,000 pictures, thumbnails not counted"),
        .unit = QStringLiteral("ms"),
        .rounds = 7,
        .ours = [many] { return timeOfAddAll(many); },
        .against = {{.name = QStringLiteral("the same with 1,000"), .goal = goal, .measure = [few] {
                         return timeOfAddAll(few);
                     }}}};
}

}  // namespace velorama::bench

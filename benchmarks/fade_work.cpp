#include "imaging/paint/blend.h"
#include "stopwatch.h"
#include "works.h"

#include <QImage>

#include <cstring>
#include <memory>

namespace velorama::bench {
namespace {

constexpr double goal = 1.6;
// The picture area of a show on a screen of 3840 x 2160.
constexpr QSize area(3663, 2027);
constexpr int stepsATime = 24;

struct Bitmaps {
    Bitmaps() {
        source.fill(Qt::black);
        begin();
    }
    void begin() { shown.fill(Qt::white); }
    QImage shown{area, QImage::Format_RGB32};
    QImage source{area, QImage::Format_RGB32};
    CumulativeBlend blend;
};

/// The first steps of a fade from white to black: every row changes in each.
std::optional<double> timeOfBlend(Bitmaps& bitmaps) {
    bitmaps.begin();
    bool done = true;
    const Stopwatch watch;
    for (int alpha = 1; alpha <= stepsATime; ++alpha) {
        const QRegion changed = bitmaps.blend.AlphaBlend(bitmaps.shown, bitmaps.source, alpha);
        done = done && changed == QRegion(bitmaps.shown.rect());
    }
    const double time = watch.milliseconds() / stepsATime;
    return done ? std::optional(time) : std::nullopt;
}

double timeOfCopy(Bitmaps& bitmaps) {
    const Stopwatch watch;
    for (int step = 0; step < stepsATime; ++step) {
        std::memcpy(bitmaps.shown.bits(), bitmaps.source.constBits(),
                    static_cast<size_t>(bitmaps.source.sizeInBytes()));
    }
    return watch.milliseconds() / stepsATime;
}

}  // namespace

Contest fadeStep() {
    const auto bitmaps = std::make_shared<Bitmaps>();
    return {.work = QStringLiteral("one step of the fade at 3663 x 2027, blend only"),
            .unit = QStringLiteral("ms"),
            .rounds = 15,
            .ours = [bitmaps] { return timeOfBlend(*bitmaps); },
            .against = {{.name = QStringLiteral("memcpy of the bitmap"),
                         .goal = goal,
                         .measure = [bitmaps] { return timeOfCopy(*bitmaps); }}}};
}

}  // namespace velorama::bench

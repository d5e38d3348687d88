#include "imaging/decode/picture.h"
#include "imaging/scale/scaling.h"
#include "peers.h"
#include "pictures.h"
#include "stopwatch.h"
#include "works.h"

#include <memory>

namespace velorama::bench {
namespace {

// The picture area of a show on a screen of 1920 x 1080.
constexpr QSize area(1743, 947);
constexpr double goalAgainstQt = 0.45;
constexpr double goalAgainstVips = 0.6;

/// Gives the files in turn, each as often as there are sides in the contest: one round, one file.
class Turn {
public:
    Turn(QStringList files, int sides) : files_(std::move(files)), sides_(sides) {}
    QString next() { return files_[(asked_++ / sides_) % files_.size()]; }

private:
    QStringList files_;
    int sides_;
    qsizetype asked_ = 0;
};

std::optional<double> timeOfOurs(const QString& path) {
    const Stopwatch watch;
    const Picture picture = LoadPicture(path, Fit::area(area));
    const QImage slide = fittedBitmap(picture.bitmap, area, white, picture.extent);
    const double time = watch.milliseconds();
    return slide.size() == area ? std::optional(time) : std::nullopt;
}

std::optional<double> timeOfQt(const QString& path) {
    const Stopwatch watch;
    const QImage slide = QImage(path).scaled(area, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    const double time = watch.milliseconds();
    return slide.isNull() ? std::nullopt : std::optional(time);
}

}  // namespace

Contest slideLoading() {
    const bool haveVips = whyAbsent(QStringLiteral("vips"), {}).isEmpty();
    const auto turn = std::make_shared<Turn>(filesOf(cameraFolder()), haveVips ? 3 : 2);
    return {.work = QStringLiteral("one slide of 24 megapixels, file to fitted bitmap"),
            .unit = QStringLiteral("ms"),
            .rounds = 15,
            .ours = [turn] { return timeOfOurs(turn->next()); },
            .against = {
                {.name = QStringLiteral("QImage, full decode, smooth scaling"),
                 .goal = goalAgainstQt,
                 .measure = [turn] { return timeOfQt(turn->next()); }},
                {.name = QStringLiteral("vips thumbnail"),
                 .goal = goalAgainstVips,
                 .measure = vipsSlide([turn] { return turn->next(); }, area),
                 .absent = whyAbsent(QStringLiteral("vips"), QStringLiteral("libvips-tools"))}}};
}

}  // namespace velorama::bench

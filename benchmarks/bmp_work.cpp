#include "imaging/decode/picture.h"
#include "pictures.h"
#include "stopwatch.h"
#include "works.h"

#include <QImage>

namespace velorama::bench {
namespace {

constexpr double goalAgainstQt = 1;

QImage byOurs(const QString& path) {
    return LoadPicture(path).bitmap;
}

/// As other programs would have it for the screen.
QImage byQt(const QString& path) {
    return QImage(path).convertToFormat(QImage::Format_RGB32);
}

std::optional<double> timeOf(QImage (*load)(const QString&), const QString& path) {
    const Stopwatch watch;
    const QImage picture = load(path);
    const double time = watch.milliseconds();
    return picture.isNull() ? std::nullopt : std::optional(time);
}

}  // namespace

Contest bmpLoading() {
    const QString path = filesOf(bmpFolder()).value(0);
    return {
        .work = QStringLiteral("a BMP of 12 megapixels and 24 bits, file to bitmap"),
        .unit = QStringLiteral("ms"),
        .rounds = 15,
        .ours = [path] { return timeOf(byOurs, path); },
        .against = {{.name = QStringLiteral("QImage"), .goal = goalAgainstQt, .measure = [path] {
                         return timeOf(byQt, path);
                     }}}};
}

}  // namespace velorama::bench

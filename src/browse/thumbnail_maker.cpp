#include "browse/thumbnail_maker.h"

#include "controls/geometry/twips.h"
#include "platform/numbers.h"

#include <QPainter>

#include <algorithm>

namespace velorama {
namespace {

constexpr double twipsPerPixel = twipsPerLogicalPixel;

// Twips. The slide thumbnail sits this far off the centre and loses a rim of its picture.
constexpr double slideShift = 45;
constexpr double slideInset = 60;
constexpr double slideRim = 90;

int pixels(double twips) {
    return static_cast<int>(roundHalfEven(twips / twipsPerPixel));
}

/// Left or top edge, in whole twips, of a box of `inner` pixels in one of `outer` pixels.
double centred(int outer, int inner, double shift) {
    const double free = (outer - inner) * twipsPerPixel;
    return static_cast<double>(roundHalfEven(free * 0.5 + shift));
}

/// Square, see-through, of a logical `side`.
QImage emptyCell(int side, double ratio) {
    const int pixelsAcross = static_cast<int>(roundHalfEven(side * ratio));
    QImage image(pixelsAcross, pixelsAcross, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

// The cells are painted in device pixels and learn their ratio only when they are done.

void paintFound(QImage& cell, const QImage& picture) {
    const int x = pixels(centred(cell.width(), picture.width(), 0));
    const int y = pixels(centred(cell.height(), picture.height(), 0));
    QPainter(&cell).drawImage(x, y, picture);
}

void paintFrame(QImage& cell, double ratio) {
    const int line = std::max(1, static_cast<int>(roundHalfEven(ratio)));
    const int far = cell.width() - line;
    QPainter painter(&cell);
    for (const QRect& edge :
         {QRect(0, 0, line, cell.height()), QRect(0, 0, cell.width(), line),
          QRect(far, 0, line, cell.height()), QRect(0, far, cell.width(), line)}) {
        painter.fillRect(edge, Qt::black);
    }
}

void paintSlide(QImage& cell, const QImage& picture, double ratio) {
    const int rim = pixels(slideRim * ratio);
    const QRect kept = picture.rect().adjusted(rim, rim, -rim, -rim);
    if (kept.isEmpty()) {
        return;
    }
    const double shift = slideShift * ratio;
    const double inset = slideInset * ratio;
    const int x = pixels(centred(cell.width(), picture.width(), shift) + inset);
    const int y = pixels(centred(cell.height(), picture.height(), shift) + inset);
    QPainter(&cell).drawImage(QPoint(x, y), picture, kept);
}

}  // namespace

ThumbnailMaker::ThumbnailMaker(Kind kind, double ratio, const CellSource& cells)
    : kind_(kind),
      ratio_(std::max(ratio, 0.5)),
      cells_(cells),
      empty_(emptyCell(kind == Kind::Found ? foundCell : slideCell, ratio_)),
      blank_(painted({})) {}

QImage ThumbnailMaker::compose(const QImage& bitmap) const {
    return bitmap.isNull() ? blank_ : painted(bitmap);
}

QImage ThumbnailMaker::painted(const QImage& picture) const {
    QImage cell = empty_;
    if (kind_ == Kind::Found) {
        paintFound(cell, picture);
        paintFrame(cell, ratio_);
    } else if (!picture.isNull()) {
        paintSlide(cell, picture, ratio_);
    }
    cell.setDevicePixelRatio(ratio_);
    return cell;
}

}  // namespace velorama

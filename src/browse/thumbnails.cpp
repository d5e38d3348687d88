#include "browse/thumbnails.h"

#include "controls/geometry/twips.h"
#include "imaging/scale/scaling.h"
#include "platform/numbers.h"
#include "platform/process/events.h"

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

/// The file scaled to a square cell of `cell` pixels; null if it cannot be loaded.
QImage resampledFile(LookAhead& pictures, const QString& path, int cell) {
    const QImage picture = pictures.load(path, Fit::cell(cell));
    return picture.isNull() ? picture : PictureResize(picture, picture.size(), white);
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

Thumbnails::Thumbnails(ImageList& imlFOUNDICONS, ImageList& imlTHUMBNAILS, LookAhead& pictures,
                       double devicePixelRatio)
    : imlFOUNDICONS_(&imlFOUNDICONS),
      imlTHUMBNAILS_(&imlTHUMBNAILS),
      pictures_(pictures),
      ratio_(std::max(devicePixelRatio, 0.5)),
      blankSlide_(blankCell(slideCell)) {
    blankSlide_.setDevicePixelRatio(ratio_);
    pictures_.setCells({devicePixels(foundCell), devicePixels(slideCell)});
}

int Thumbnails::devicePixels(int cell) const {
    return static_cast<int>(roundHalfEven(cell * ratio_));
}

QImage Thumbnails::blankCell(int cell) const {
    const int side = devicePixels(cell);
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

void Thumbnails::FoundThumbnailAdd(const QString& Path) {
    // After each yield the lists tell whether the window, and with it this object, is still there.
    const QPointer<ImageList> list = imlFOUNDICONS_;
    DoEvents();
    if (!list) {
        return;
    }
    // A second image under the key would be refused: the picture need not be decoded for that.
    if (list->indexOf(Path) == 0) {
        QImage cell = blankCell(foundCell);
        const double ratio = ratio_;
        const QImage picture = resampledFile(pictures_, Path, cell.width());
        if (!list) {
            return;
        }
        paintFound(cell, picture);
        paintFrame(cell, ratio);
        cell.setDevicePixelRatio(ratio);
        list->Add(Path, cell);
    }
    DoEvents();
}

void Thumbnails::SlideThumbnailAdd(const QString& Path) {
    const QPointer<ImageList> list = imlTHUMBNAILS_;
    if (!list) {
        return;
    }
    list->setImageSize(QSize(slideCell, slideCell));
    if (list->indexOf(Path) != 0) {
        return;
    }
    QImage cell = blankSlide_;
    const double ratio = ratio_;
    const QImage picture = resampledFile(pictures_, Path, cell.width());
    if (!list) {
        return;
    }
    if (!picture.isNull()) {
        cell.setDevicePixelRatio(1);
        paintSlide(cell, picture, ratio);
        cell.setDevicePixelRatio(ratio);
    }
    list->Add(Path, cell);
}

int Thumbnails::FoundIconIndex(const QString& Path) const {
    return imlFOUNDICONS_ ? imlFOUNDICONS_->firstKeyWithin(Path) : 0;
}

int Thumbnails::SlideIconIndex(const QString& Path) const {
    return imlTHUMBNAILS_ ? imlTHUMBNAILS_->firstKeyWithin(Path) : 0;
}

void Thumbnails::expectFound(const QStringList& paths) {
    pictures_.expect(paths, Fit::cell(devicePixels(foundCell)));
}

void Thumbnails::expectSlides(const QStringList& paths) {
    pictures_.expect(paths, Fit::cell(devicePixels(slideCell)));
}

QImage Thumbnails::placeholder() const {
    QImage cell = blankCell(foundCell);
    cell.setDevicePixelRatio(ratio_);
    QPainter painter(&cell);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x8c, 0x92, 0x99), 2));
    painter.setBrush(QColor(0xee, 0xf0, 0xf2));
    painter.drawRoundedRect(QRectF(7, 13, 50, 38), 3, 3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xc3, 0xc9, 0xcf));
    painter.drawEllipse(QPointF(20, 25), 4, 4);
    painter.drawPolygon(QPolygonF({{11, 47}, {25, 33}, {32, 40}, {41, 28}, {53, 42}, {53, 47}}));
    return cell;
}

}  // namespace velorama

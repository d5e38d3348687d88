#include "imaging/scale/scaling.h"

#include "imaging/pixels/colours.h"
#include "imaging/pixels/fit.h"
#include "imaging/scale/resampling.h"
#include "platform/process/events.h"

#include <algorithm>

namespace velorama {
namespace {

/// Rounded, exact for products of two channels.
int dividedBy255(int value) {
    return (value + 128 + ((value + 128) >> 8)) >> 8;
}

/// `over`, premultiplied, laid over one opaque colour.
void layOver(QImage& target, QRect place, const QImage& over) {
    for (int y = 0; y < place.height(); ++y) {
        auto* out = reinterpret_cast<QRgb*>(target.scanLine(place.y() + y)) + place.x();
        const auto* in = reinterpret_cast<const QRgb*>(over.constScanLine(y));
        for (int x = 0; x < place.width(); ++x) {
            const int rest = 255 - qAlpha(in[x]);
            const auto mixed = [rest](int above, int below) {
                return above + dividedBy255(below * rest);
            };
            out[x] = qRgb(mixed(qRed(in[x]), qRed(out[x])), mixed(qGreen(in[x]), qGreen(out[x])),
                          mixed(qBlue(in[x]), qBlue(out[x])));
        }
    }
}

/// Fills all but `hole`.
void fillAround(QImage& target, QRect hole, QRgb colour) {
    for (int y = 0; y < target.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(target.scanLine(y));
        const bool isBeside = !hole.isEmpty() && y >= hole.top() && y <= hole.bottom();
        const int left = isBeside ? hole.left() : target.width();
        const int right = isBeside ? hole.left() + hole.width() : target.width();
        std::fill(row, row + left, colour);
        std::fill(row + right, row + target.width(), colour);
    }
}

/// False if there was not enough memory.
bool drawInto(QImage& target, QRect place, const QImage& bitmap, const QRectF& extent) {
    if (!bitmap.hasAlphaChannel()) {
        uchar* corner = target.scanLine(place.y()) + 4 * qsizetype(place.x());
        resampleInto(corner, target.bytesPerLine(), place.size(), bitmap, extent);
        return true;
    }
    const QImage over = resampled(bitmap, place.size());
    if (!over.isNull()) {
        layOver(target, place, over);
    }
    return !over.isNull();
}

}  // namespace

QImage resampled(const QImage& source, QSize size, const QRectF& extent) {
    if (source.isNull() || size.isEmpty() || source.size() == size) {
        return size.isEmpty() ? QImage() : source;
    }
    QImage result(size, source.format());
    if (!result.isNull()) {
        resampleInto(result.bits(), result.bytesPerLine(), size, source, extent);
    }
    return result;
}

QImage fittedBitmap(const QImage& bitmap, QSize size, Colour fill, const QRectF& extent) {
    const QRectF part = extent.isNull() ? QRectF(bitmap.rect()) : extent;
    // Nothing to scale, to fill or to lay over: as it is.
    if (bitmap.size() == size && part == bitmap.rect() && bitmap.format() == QImage::Format_RGB32) {
        return bitmap;
    }
    QImage result = bitmap.isNull() ? QImage() : QImage(size, QImage::Format_RGB32);
    if (result.isNull()) {
        return {};
    }
    const QRect place = fittedRect(part.size(), size) & result.rect();
    // Where an opaque picture comes to lie the fill would be written for nothing.
    fillAround(result, bitmap.hasAlphaChannel() ? QRect() : place, toRgb(fill));
    const bool done = place.isEmpty() || drawInto(result, place, bitmap, part);
    return done ? result : QImage();
}

QImage PictureResize(const QImage& bitmap, QSize size, Colour fill) {
    DoEvents();
    QImage result;
    if (!bitmap.isNull()) {
        result = fittedBitmap(bitmap, size, fill);
        DoEvents();
    }
    DoEvents();
    return result;
}

}  // namespace velorama

#include "imaging/scale/scaling.h"

#include "imaging/pixels/colours.h"
#include "imaging/scale/resampling.h"
#include "platform/numbers.h"
#include "platform/process/events.h"

#include <algorithm>

namespace velorama {
namespace {

int rounded(double value) {
    return static_cast<int>(roundHalfEven(value));
}

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
    if (bitmap.hasAlphaChannel()) {
        const QImage over = resampled(bitmap, place.size());
        if (over.isNull()) {
            return false;
        }
        layOver(target, place, over);
    } else if (!bitmap.isNull()) {
        uchar* corner = target.scanLine(place.y()) + 4 * qsizetype(place.x());
        resampleInto(corner, target.bytesPerLine(), place.size(), bitmap, extent);
    }
    return !bitmap.isNull();
}

}  // namespace

QImage resampled(const QImage& source, QSize size) {
    if (source.isNull() || size.isEmpty() || source.size() == size) {
        return size.isEmpty() ? QImage() : source;
    }
    const QImage pixels = PictureFromBitmap(source).bitmap;
    QImage result(size, pixels.format());
    if (!result.isNull()) {
        resampleInto(result.bits(), result.bytesPerLine(), size, pixels);
    }
    return result;
}

QRect fittedRect(QSize picture, QSize target) {
    if (picture.isEmpty() || target.isEmpty()) {
        return {};
    }
    const double ratio = double(picture.width()) / picture.height();
    const bool fillsWidth = double(target.width()) / target.height() < ratio;
    const int width = fillsWidth ? target.width() : rounded(target.height() * ratio);
    const int height = fillsWidth ? rounded(target.width() / ratio) : target.height();
    return {rounded((target.width() - width) * 0.5), rounded((target.height() - height) * 0.5),
            width, height};
}

QImage fittedBitmap(const Picture& picture, QSize size, Colour fill, bool keepAspect) {
    if (picture.isNull() || picture.bitmap.isNull() || size.isEmpty()) {
        return {};
    }
    // Nothing to scale, to fill or to lay over: as it is.
    if (picture.size == size && picture.bitmap.size() == size &&
        picture.bitmap.format() == QImage::Format_RGB32) {
        return picture.bitmap;
    }
    QImage result(size, QImage::Format_RGB32);
    if (result.isNull()) {
        return {};
    }
    const QRect all(QPoint(0, 0), size);
    const QRect place = keepAspect ? fittedRect(picture.size, size) & all : all;
    // Where an opaque picture comes to lie the fill would be written for nothing.
    fillAround(result, picture.bitmap.hasAlphaChannel() ? QRect() : place, toRgb(fill));
    const QImage bitmap = PictureFromBitmap(picture.bitmap).bitmap;
    const bool done = place.isEmpty() || drawInto(result, place, bitmap, picture.extent);
    return done ? result : QImage();
}

Picture PictureResize(const Picture& picture, int width, int height, Colour fill, bool keepAspect) {
    DoEvents();
    const QSize size(width, height);
    Picture result;
    if (!picture.isNull()) {
        const bool prepared = keepAspect && fill == white && picture.fitted.size() == size;
        result = PictureFromBitmap(prepared ? picture.fitted
                                            : fittedBitmap(picture, size, fill, keepAspect));
        DoEvents();
    }
    DoEvents();
    return result;
}

}  // namespace velorama

#include "imaging/decode/decoding.h"
#include "imaging/decode/jpeg_file.h"

namespace velorama {
namespace {

/// A reduced bitmap has whole pixels; the incomplete ones stand at the right and at the bottom of
/// the bitmap as it was stored.
QRectF exactExtent(QSize bitmap, QSizeF exact, int orientation) {
    const bool fromRight =
        orientation == 2 || orientation == 3 || orientation == 6 || orientation == 7;
    const bool fromBottom =
        orientation == 3 || orientation == 4 || orientation == 7 || orientation == 8;
    return {fromRight ? bitmap.width() - exact.width() : 0,
            fromBottom ? bitmap.height() - exact.height() : 0, exact.width(), exact.height()};
}

QSize shownSize(const JpegFile& file) {
    return file.orientation() >= 5 ? file.size().transposed() : file.size();
}

}  // namespace

int jpegEighths(QSize size, const Fit& fit) {
    // Below this the last, incomplete block of a side shows, and there is little to win.
    constexpr qint64 smallPicture = 512LL * 512;
    if (fit.kind == Fit::Kind::Whole || qint64(size.width()) * size.height() <= smallPicture) {
        return 8;
    }
    const QSizeF wanted = fit.kind == Fit::Kind::Cell ? cellSize(size, fit.box.width())
                                                      : QSizeF(fittedRect(size, fit.box).size());
    const double needed = qMax(wanted.width() / size.width(), wanted.height() / size.height());
    // The scales between, 3/8 and the like, take longer than a full decode.
    for (const int eighths : {1, 2, 4}) {
        if (eighths >= needed * 8) {
            return eighths;
        }
    }
    return 8;
}

bool decodesAlike(QSize size, const Fit& one, const Fit& other) {
    return jpegEighths(size, one) == jpegEighths(size, other);
}

QSize jpegSize(ByteSource& source) {
    JpegFile file(source);
    return file.readHeader() ? shownSize(file) : QSize();
}

Picture readJpeg(QByteArrayView bytes, const Fit& fit) {
    MemoryBytes source(bytes);
    JpegFile file(source);
    if (!file.readHeader()) {
        return {};
    }
    const int orientation = file.orientation();
    const QSize shown = shownSize(file);
    const QColorSpace space = file.colourSpace();
    const int bitmaps = orientation > 1 ? 2 : 1;
    const int eighths = file.scaleWithin(jpegEighths(shown, fit), bitmaps);
    if (eighths == 0) {
        return {};
    }
    const MemoryShare share(decodingMemory(), file.memory(bitmaps));
    QImage bitmap = share ? file.decoded() : QImage();
    convertToSrgb(bitmap, space);
    const QSizeF exact = QSizeF(shown) * eighths / 8;
    bitmap = oriented(std::move(bitmap), orientation);
    if (bitmap.isNull()) {
        return {};
    }
    return {shown, bitmap, exactExtent(bitmap.size(), exact, orientation)};
}

}  // namespace velorama

#include "imaging/decoding.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <mutex>

namespace velorama {
namespace {

/// Kinds that the toolkit's readers decode: how a file begins, the reader's name, and the bytes of
/// memory that one pixel of it may take on the way.
struct Kind {
    QByteArrayView signature;
    const char* format;
    QSize (*size)(QByteArrayView);
    int bytesPerPixel;
};

template <typename Number>
Number numberAt(QByteArrayView bytes, qsizetype offset, bool bigEndian = false) {
    if (offset + qsizetype(sizeof(Number)) > bytes.size()) {
        return 0;
    }
    const char* place = bytes.data() + offset;
    return bigEndian ? qFromBigEndian<Number>(place) : qFromLittleEndian<Number>(place);
}

QSize gifSize(QByteArrayView bytes) {
    return {numberAt<quint16>(bytes, 6), numberAt<quint16>(bytes, 8)};
}

QSize bmpSize(QByteArrayView bytes) {
    constexpr quint32 oldHeader = 12;
    if (numberAt<quint32>(bytes, 10) > bytes.size()) {
        return {};  // the pixels are said to begin beyond the end
    }
    if (numberAt<quint32>(bytes, 14) == oldHeader) {
        return {numberAt<quint16>(bytes, 18), numberAt<quint16>(bytes, 20)};
    }
    const qint64 height = numberAt<qint32>(bytes, 22);  // negative: rows from top to bottom
    return {numberAt<qint32>(bytes, 18),
            static_cast<int>(std::min<qint64>(std::abs(height), INT_MAX))};
}

QSize pngSize(QByteArrayView bytes) {
    return {numberAt<qint32>(bytes, 16, true), numberAt<qint32>(bytes, 20, true)};
}

constexpr Kind kinds[] = {
    {QByteArrayView("GIF8", 4), "gif", gifSize, 8},
    {QByteArrayView("BM", 2), "bmp", bmpSize, 5},
    // Sixteen bits a channel are read as such before they become eight.
    {QByteArrayView("\x89PNG\r\n\x1a\n", 8), "png", pngSize, 12},
};

bool fitsMemory(QByteArrayView bytes, const Kind& kind) {
    const QSize size = kind.size(bytes);
    const qint64 pixels = qint64(size.width()) * size.height();
    return !size.isEmpty() && pixels <= (pictureMemory - bytes.size()) / kind.bytesPerPixel;
}

bool isOpaque(const QImage& bitmap) {
    for (int y = 0; y < bitmap.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(bitmap.constScanLine(y));
        QRgb all = 0xFF000000U;
        for (int x = 0; x < bitmap.width(); ++x) {
            all &= row[x];
        }
        if (all != 0xFF000000U) {
            return false;
        }
    }
    return true;
}

/// One of the two formats that pictures are kept in; conversions happen in place where they can.
QImage asPixels(QImage image) {
    if (!image.hasAlphaChannel()) {
        image.convertTo(QImage::Format_RGB32);
        return image;
    }
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    if (isOpaque(image)) {
        image.reinterpretAsFormat(QImage::Format_RGB32);
    }
    return image;
}

/// The toolkit's reader leaves the low bits of channels of five or six bits at 0, so that white
/// comes out as 248. Here they become what stands above them.
void fillLowBits(QImage& bitmap, QByteArrayView bmp) {
    constexpr quint32 withMasks = 3;
    const bool masked = numberAt<quint32>(bmp, 30) == withMasks;
    const quint32 green = masked ? numberAt<quint32>(bmp, 58) : 0x03E0;
    const bool wideGreen = qPopulationCount(green) == 6;
    for (int y = 0; y < bitmap.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(bitmap.scanLine(y));
        for (int x = 0; x < bitmap.width(); ++x) {
            const QRgb low = (row[x] & 0xE0E0E0) >> 5;
            row[x] |= wideGreen ? (low & 0x070007) | (row[x] & 0x00C000) >> 6 : low;
        }
    }
}

bool isSixteenBitBmp(QByteArrayView bytes) {
    constexpr quint32 oldHeader = 12;
    return bytes.startsWith("BM") && numberAt<quint32>(bytes, 14) > oldHeader &&
           numberAt<quint16>(bytes, 28) == 16;
}

Picture readWithToolkit(QByteArrayView bytes, const char* format) {
    static std::once_flag once;
    std::call_once(once, [] { QImageReader::setAllocationLimit(pictureMemory / (1024 * 1024)); });
    QByteArray raw = QByteArray::fromRawData(bytes.data(), bytes.size());
    QBuffer buffer(&raw);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    QImage image = reader.read();
    if (image.isNull()) {
        return {};
    }
    const QColorSpace space = image.colorSpace();
    image = asPixels(std::move(image));
    if (isSixteenBitBmp(bytes) && !image.hasAlphaChannel()) {
        fillLowBits(image, bytes);
    }
    convertToSrgb(image, space);
    return PictureFromBitmap(image);
}

}  // namespace

void convertToSrgb(QImage& bitmap, const QColorSpace& space) {
    static const QColorSpace srgb(QColorSpace::SRgb);
    if (space.isValid() && space != srgb) {
        bitmap.setColorSpace(space);
        bitmap.convertToColorSpace(srgb);
    }
    bitmap.setColorSpace({});
}

Picture decodePicture(QByteArrayView bytes, const Fit& fit) {
    if (bytes.startsWith("\xFF\xD8")) {
        return readJpeg(bytes, fit);
    }
    for (const Kind& kind : kinds) {
        if (bytes.startsWith(kind.signature)) {
            return fitsMemory(bytes, kind) ? readWithToolkit(bytes, kind.format) : Picture();
        }
    }
    return {};
}

}  // namespace velorama

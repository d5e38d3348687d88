#include "imaging/decode/decoding.h"

#include "imaging/decode/byte_numbers.h"
#include "imaging/decode/completeness.h"
#include "imaging/decode/reader_limit.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <cmath>

namespace velorama {
namespace {

constexpr qint64 mebibyte = 1024 * 1024;

/// Kinds that the toolkit's readers decode: how a file begins, the reader's name, and the bytes of
/// memory that one pixel of it may take on the way.
struct Kind {
    QByteArrayView signature;
    const char* format;
    QSize (*size)(QByteArrayView);
    int (*bytesPerPixel)(QByteArrayView);
    bool (*isWhole)(QByteArrayView);
};

QSize gifSize(QByteArrayView bytes) {
    return {numberAt<quint16>(bytes, 6), numberAt<quint16>(bytes, 8)};
}

QSize bmpSize(QByteArrayView bytes) {
    constexpr quint32 oldHeader = 12;
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

int gifPixel(QByteArrayView) {
    return 8;
}

int bmpPixel(QByteArrayView) {
    return 5;
}

/// Sixteen bits a channel are read as such before they become eight.
int pngPixel(QByteArrayView bytes) {
    return numberAt<quint8>(bytes, 24) == 16 ? 12 : 8;
}

/// The reader of PNG tells itself.
bool isWholePng(QByteArrayView) {
    return true;
}

constexpr Kind kinds[] = {
    {QByteArrayView("GIF8", 4), "gif", gifSize, gifPixel, isWholeGif},
    {QByteArrayView("BM", 2), "bmp", bmpSize, bmpPixel, isWholeBmp},
    {QByteArrayView("\x89PNG\r\n\x1a\n", 8), "png", pngSize, pngPixel, isWholePng},
};

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
    QByteArray raw = QByteArray::fromRawData(bytes.data(), bytes.size());
    QBuffer buffer(&raw);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, format);
    reader.setAutoDetectImageFormat(false);
    QImage image;
    // A reader that gives up may leave the half it had.
    if (!reader.read(&image) || image.isNull()) {
        return {};
    }
    const QColorSpace space = image.colorSpace();
    image = asPixels(std::move(image));
    if (isSixteenBitBmp(bytes) && !image.hasAlphaChannel()) {
        fillLowBits(image, bytes);
    }
    convertToSrgb(image, space);
    return {image.size(), image};
}

Picture read(QByteArrayView bytes, const Kind& kind) {
    const QSize size = kind.size(bytes);
    if (size.isEmpty() || !kind.isWhole(bytes)) {
        return {};
    }
    const qint64 pixels = qint64(size.width()) * size.height();
    const int each = kind.bytesPerPixel(bytes);
    if (pixels > decodingMemory().largest() / each) {
        return {};
    }
    const MemoryShare share(decodingMemory(), pixels * each);
    return share ? readWithToolkit(bytes, kind.format) : Picture();
}

}  // namespace

MemoryPool& fileMemory() {
    static MemoryPool pool(128 * mebibyte, 128 * mebibyte);
    return pool;
}

MemoryPool& decodingMemory() {
    // Ordinary slides go on in the last 64 MiB while a very large picture is decoded.
    static MemoryPool pool(pictureMemory - fileMemory().largest(), 320 * mebibyte);
    return pool;
}

void limitPictureReaders() {
    QImageReader::setAllocationLimit(static_cast<int>(decodingMemory().largest() / mebibyte));
}

void convertToSrgb(QImage& bitmap, const QColorSpace& space) {
    static const QColorSpace srgb(QColorSpace::SRgb);
    if (space.isValid() && space != srgb) {
        bitmap.setColorSpace(space);
        bitmap.convertToColorSpace(srgb);
    }
    bitmap.setColorSpace({});
}

QSize headSizeOf(QByteArrayView bytes) {
    const auto kind = std::find_if(std::begin(kinds), std::end(kinds), [&](const Kind& one) {
        return bytes.startsWith(one.signature);
    });
    return kind == std::end(kinds) ? QSize() : kind->size(bytes);
}

Picture decodePicture(QByteArrayView bytes, const Fit& fit) {
    if (bytes.startsWith("\xFF\xD8")) {
        return readJpeg(bytes, fit);
    }
    for (const Kind& kind : kinds) {
        if (bytes.startsWith(kind.signature)) {
            return read(bytes, kind);
        }
    }
    return {};
}

}  // namespace velorama

#include "imaging/decode/decoding.h"

#include "imaging/decode/bmp.h"
#include "imaging/decode/byte_numbers.h"
#include "imaging/decode/gif.h"
#include "imaging/decode/reader_limit.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace velorama {
namespace {

constexpr qint64 mebibyte = 1024LL * 1024;

QSize pngSize(QByteArrayView bytes) {
    return {numberAt<qint32>(bytes, 16, true), numberAt<qint32>(bytes, 20, true)};
}

/// Bytes of memory that a pixel takes: sixteen bits a channel are read as such before they become
/// eight.
int pngPixel(QByteArrayView bytes) {
    return numberAt<quint8>(bytes, 24) == 16 ? 12 : 8;
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

Picture readWithToolkit(QByteArrayView bytes) {
    QByteArray raw = QByteArray::fromRawData(bytes.data(), bytes.size());
    QBuffer buffer(&raw);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "png");
    reader.setAutoDetectImageFormat(false);
    QImage image;
    // A reader that gives up may leave the half it had.
    if (!reader.read(&image) || image.isNull()) {
        return {};
    }
    const QColorSpace space = image.colorSpace();
    image = asPixels(std::move(image));
    convertToSrgb(image, space);
    return {image.size(), image};
}

/// By the toolkit's reader, which tells where a file ends too early.
Picture readPng(QByteArrayView bytes) {
    const QSize size = pngSize(bytes);
    const qint64 pixels = qint64(size.width()) * size.height();
    const int each = pngPixel(bytes);
    if (size.isEmpty() || pixels > decodingMemory().largest() / each) {
        return {};
    }
    const MemoryShare share(decodingMemory(), pixels * each);
    return share ? readWithToolkit(bytes) : Picture();
}

bool isJpeg(QByteArrayView bytes) {
    return bytes.startsWith("\xFF\xD8");
}

bool isBmp(QByteArrayView bytes) {
    return bytes.startsWith("BM");
}

bool isGif(QByteArrayView bytes) {
    return bytes.startsWith("GIF8");
}

bool isPng(QByteArrayView bytes) {
    return bytes.startsWith("\x89PNG\r\n\x1a\n");
}

/// Whether a BMP is the mere cover of another file, which its rows are, and of which kind.
bool isCover(const BmpHead& head, QByteArrayView content) {
    return head.coding == BmpHead::Coding::Jpeg ? isJpeg(content) : isPng(content);
}

bool isOwn(const BmpHead& head) {
    return head.coding == BmpHead::Coding::Plain || head.coding == BmpHead::Coding::Runs;
}

QSize bmpSize(ByteSource& source, const BmpHead& head) {
    if (head.size.isEmpty() || isOwn(head)) {
        return head.size;
    }
    InnerBytes inner(source, head.content);
    return isCover(head, inner.from(0)) ? pictureSize(inner) : QSize();
}

Picture readAnyBmp(QByteArrayView bytes, const Fit& fit) {
    const BmpHead head = bmpHead(bytes);
    if (head.size.isEmpty() || isOwn(head)) {
        return head.size.isEmpty() ? Picture() : readBmp(bytes, head);
    }
    const QByteArrayView content = bytes.sliced(std::min<qint64>(head.content, bytes.size()));
    return isCover(head, content) ? decodePicture(content, fit) : Picture();
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

void convertToSrgb(QImage& bitmap, const QColorSpace& space) {
    static const QColorSpace srgb(QColorSpace::SRgb);
    if (space.isValid() && space != srgb) {
        bitmap.setColorSpace(space);
        bitmap.convertToColorSpace(srgb);
    }
    bitmap.setColorSpace({});
}

QColorSpace profiledSpace(QByteArray profile, bool grey) {
    constexpr qsizetype devicePlace = 12;
    constexpr qsizetype kindPlace = 16;
    const QByteArray device = profile.mid(devicePlace, 4);
    const QByteArray kind = profile.mid(kindPlace, 4);
    const bool isDevice =
        device == "mntr" || device == "scnr" || device == "prtr" || device == "spac";
    if (!isDevice || (kind != "RGB " && !(grey && kind == "GRAY"))) {
        return {};
    }
    // The toolkit wants a screen's, but of the others it reads the same parts.
    return QColorSpace::fromIccProfile(profile.replace(devicePlace, 4, "mntr"));
}

QSize pictureSize(ByteSource& source) {
    const QByteArrayView head = source.from(0);
    QSize size;
    if (isJpeg(head)) {
        size = source.size() <= fileMemory().largest() ? jpegSize(source) : QSize();
    } else if (isBmp(head)) {
        size = bmpSize(source, bmpHead(head));
    } else if (isGif(head)) {
        size = gifSize(source);
    } else if (isPng(head)) {
        size = pngSize(head);
    }
    return size.isEmpty() ? QSize() : size;
}

Picture decodePicture(QByteArrayView bytes, const Fit& fit) {
    if (isJpeg(bytes)) {
        return readJpeg(bytes, fit);
    }
    if (isBmp(bytes)) {
        return readAnyBmp(bytes, fit);
    }
    if (isGif(bytes)) {
        return readGif(bytes);
    }
    return isPng(bytes) ? readPng(bytes) : Picture();
}

}  // namespace velorama

#include "imaging/cache/pixel_packing.h"

#include <QtEndian>

#include <zlib.h>

#include <array>

namespace velorama {
namespace {

// Planes, width, height, check sum of these; a byte and three words of 16 bits, the lower byte
// first. Then one plane a colour, each byte the difference from its neighbour on the left,
// deflated as quickly as zlib can (its higher levels take three times the time for a tenth of the
// bytes): a stream that ends in a check sum of its own.
constexpr qsizetype sumAt = 5;
constexpr qsizetype headBytes = 7;
constexpr int longestSide = 2048;

constexpr char opaque = 3;
constexpr char seeThrough = 4;

bool isPackable(const QImage& image) {
    return !image.isNull() && image.width() <= longestSide && image.height() <= longestSide &&
           (image.format() == QImage::Format_RGB32 ||
            image.format() == QImage::Format_ARGB32_Premultiplied);
}

void packRow(const QRgb* row, int width, int shift, uchar* out) {
    int before = 0;
    for (int x = 0; x < width; ++x) {
        const int value = static_cast<int>(row[x] >> shift & 0xFFU);
        out[x] = static_cast<uchar>(value - before);
        before = value;
    }
}

/// Of the row at `in`; those of the other colours lie `plane` bytes apart behind it.
template <int planes>
void unpackRow(const uchar* in, qsizetype plane, int width, QRgb* row) {
    std::array<QRgb, planes> value = {};
    for (int x = 0; x < width; ++x) {
        QRgb pixel = planes == opaque ? 0xFF000000U : 0U;
        for (int i = 0; i < planes; ++i) {
            value[i] = (value[i] + in[i * plane + x]) & 0xFFU;
            pixel |= value[i] << 8 * i;
        }
        row[x] = pixel;
    }
}

quint16 headSum(QByteArrayView packed) {
    return qChecksum(packed.first(sumAt));
}

/// False, as where memory ends, if nothing came behind the head.
bool deflateBehind(QByteArray& head, const QByteArray& bytes) {
    auto size = compressBound(static_cast<uLong>(bytes.size()));
    const qsizetype headSize = head.size();
    head.resize(headSize + static_cast<qsizetype>(size));
    const int code = compress2(reinterpret_cast<Bytef*>(head.data() + headSize), &size,
                               reinterpret_cast<const Bytef*>(bytes.constData()),
                               static_cast<uLong>(bytes.size()), Z_BEST_SPEED);
    head.resize(headSize + static_cast<qsizetype>(size));
    head.squeeze();
    return code == Z_OK;
}

/// What is behind the head, if it is whole and of this size; nothing otherwise.
QByteArray inflated(const QByteArray& packed, qsizetype size) {
    QByteArray bytes(size, Qt::Uninitialized);
    auto got = static_cast<uLongf>(size);
    const int code = uncompress(reinterpret_cast<Bytef*>(bytes.data()), &got,
                                reinterpret_cast<const Bytef*>(packed.constData() + headBytes),
                                static_cast<uLong>(packed.size() - headBytes));
    return code == Z_OK && static_cast<qsizetype>(got) == size ? bytes : QByteArray();
}

}  // namespace

QByteArray packPixels(const QImage& image) {
    if (!isPackable(image)) {
        return {};
    }
    const int width = image.width();
    const int height = image.height();
    const char planes = image.format() == QImage::Format_RGB32 ? opaque : seeThrough;
    QByteArray bytes(qsizetype{planes} * width * height, Qt::Uninitialized);
    auto* out = reinterpret_cast<uchar*>(bytes.data());
    for (int plane = 0; plane < planes; ++plane) {
        for (int y = 0; y < height; ++y, out += width) {
            packRow(reinterpret_cast<const QRgb*>(image.constScanLine(y)), width, 8 * plane, out);
        }
    }
    QByteArray packed(headBytes, planes);
    qToLittleEndian(static_cast<quint16>(width), packed.data() + 1);
    qToLittleEndian(static_cast<quint16>(height), packed.data() + 3);
    qToLittleEndian(headSum(packed), packed.data() + sumAt);
    return deflateBehind(packed, bytes) ? packed : QByteArray();
}

QImage unpackPixels(const QByteArray& packed) {
    if (packed.size() <= headBytes || (packed[0] != opaque && packed[0] != seeThrough)) {
        return {};
    }
    const int planes = static_cast<uchar>(packed[0]);
    const int width = qFromLittleEndian<quint16>(packed.constData() + 1);
    const int height = qFromLittleEndian<quint16>(packed.constData() + 3);
    const qsizetype size = qsizetype{planes} * width * height;
    if (width > longestSide || height > longestSide || size == 0 ||
        qFromLittleEndian<quint16>(packed.constData() + sumAt) != headSum(packed)) {
        return {};
    }
    const QByteArray bytes = inflated(packed, size);
    QImage image(width, height,
                 planes == opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (bytes.size() != size || image.isNull()) {
        return {};
    }
    const qsizetype plane = qsizetype{width} * height;
    const auto* in = reinterpret_cast<const uchar*>(bytes.constData());
    for (int y = 0; y < height; ++y, in += width) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        planes == opaque ? unpackRow<opaque>(in, plane, width, row)
                         : unpackRow<seeThrough>(in, plane, width, row);
    }
    return image;
}

}  // namespace velorama

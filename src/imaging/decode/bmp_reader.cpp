#include "imaging/decode/bmp.h"
#include "imaging/decode/byte_numbers.h"
#include "imaging/decode/decoding.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace velorama {
namespace {

constexpr QRgb black = 0xFF000000U;

/// One channel of pixels of 16 to 32 bits, brought to eight bits and rounded.
class Channel {
public:
    explicit Channel(quint32 mask)
        : mask_(mask),
          shift_(mask == 0 ? 0 : qCountTrailingZeroBits(mask)),
          scale_(mask == 0 ? 0 : 255.0 / (mask >> shift_)) {}

    /// Exact: what is rounded here is never nearer to a half than 2^-33.
    QRgb of(quint32 pixel) const {
        // NOLINTNEXTLINE(bugprone-incorrect-roundings): never negative
        return static_cast<QRgb>(((pixel & mask_) >> shift_) * scale_ + 0.5);
    }

private:
    quint32 mask_;
    uint shift_;
    double scale_;
};

template <int Depth>
void readIndices(const char* row, QRgb* out, int count, const BmpPalette& palette) {
    constexpr int each = 8 / Depth;
    constexpr int last = (1 << Depth) - 1;
    for (int x = 0; x < count; ++x) {
        const int shift = 8 - Depth - x % each * Depth;
        out[x] = palette[static_cast<size_t>(static_cast<uchar>(row[x / each]) >> shift & last)];
    }
}

template <int Bytes>
quint32 pixelAt(const char* row, int x) {
    const char* at = row + qsizetype(x) * Bytes;
    if constexpr (Bytes == 4) {
        return qFromLittleEndian<quint32>(at);
    }
    const quint32 low = qFromLittleEndian<quint16>(at);
    return Bytes == 2 ? low : low | quint32(static_cast<uchar>(at[2])) << 16;
}

template <int Bytes>
void readChannels(const char* row, QRgb* out, int count, const std::array<Channel, 4>& channels,
                  QRgb opaque) {
    for (int x = 0; x < count; ++x) {
        const quint32 pixel = pixelAt<Bytes>(row, x);
        out[x] = opaque | channels[3].of(pixel) << 24 | channels[0].of(pixel) << 16 |
                 channels[1].of(pixel) << 8 | channels[2].of(pixel);
    }
}

/// Channels that stand as they do in the bitmap. Of three bytes a pixel, four are read at a time,
/// which takes half the time; the last pixel has none behind it.
template <int Bytes>
void readUsual(const char* row, QRgb* out, int count, QRgb opaque) {
    for (int x = 0; x < count - 1; ++x) {
        out[x] = qFromLittleEndian<quint32>(row + qsizetype(x) * Bytes) | opaque;
    }
    if (count > 0) {
        out[count - 1] = pixelAt<Bytes>(row, count - 1) | opaque;
    }
}

/// Bytes for light in 8192 steps, by the curve of sRGB.
const std::vector<uchar>& lightCurve() {
    static const std::vector<uchar> curve = [] {
        std::vector<uchar> bytes(8193);
        for (size_t i = 0; i < bytes.size(); ++i) {
            const double light = double(i) / 8192;
            const double value =
                light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
            bytes[i] = static_cast<uchar>(std::lround(value * 255));
        }
        return bytes;
    }();
    return curve;
}

/// Sixteen bits a channel, signed, 8192 being full light. What is darker than black or brighter
/// than white becomes these.
void readDeep(const char* row, QRgb* out, int count) {
    const std::vector<uchar>& curve = lightCurve();
    for (int x = 0; x < count; ++x) {
        size_t channel[4];
        for (int i = 0; i < 4; ++i) {
            const auto value = qFromLittleEndian<qint16>(row + qsizetype(x) * 8 + qsizetype(i) * 2);
            channel[i] = static_cast<size_t>(std::clamp<int>(value, 0, 8192));
        }
        const auto alpha = static_cast<int>((channel[3] * 255 + 4096) / 8192);
        out[x] = qRgba(curve[channel[2]], curve[channel[1]], curve[channel[0]], alpha);
    }
}

bool isUsual(const BmpHead& head) {
    const bool alpha = head.depth == 32 && head.masks[3] == 0xFF000000U;
    return head.depth >= 24 && head.masks[0] == 0xFF0000 && head.masks[1] == 0x00FF00 &&
           head.masks[2] == 0x0000FF && (alpha || head.masks[3] == 0);
}

class RowReader {
public:
    RowReader(const BmpHead& head, const BmpPalette& palette)
        : depth_(head.depth),
          palette_(palette),
          channels_{Channel(head.masks[0]), Channel(head.masks[1]), Channel(head.masks[2]),
                    Channel(head.masks[3])},
          opaque_(head.masks[3] == 0 ? black : 0),
          usual_(isUsual(head)) {}

    void read(const char* row, QRgb* out, int count) const;

private:
    template <int Bytes>
    void readMasked(const char* row, QRgb* out, int count) const {
        if (usual_) {
            readUsual<Bytes>(row, out, count, opaque_);
        } else {
            readChannels<Bytes>(row, out, count, channels_, opaque_);
        }
    }

    int depth_;
    const BmpPalette& palette_;
    std::array<Channel, 4> channels_;
    QRgb opaque_;
    bool usual_;
};

void RowReader::read(const char* row, QRgb* out, int count) const {
    switch (depth_) {
        case 1:
            return readIndices<1>(row, out, count, palette_);
        case 2:
            return readIndices<2>(row, out, count, palette_);
        case 4:
            return readIndices<4>(row, out, count, palette_);
        case 8:
            return readIndices<8>(row, out, count, palette_);
        case 16:
            return readMasked<2>(row, out, count);
        case 24:
            return readMasked<3>(row, out, count);
        case 32:
            return readMasked<4>(row, out, count);
        default:
            return readDeep(row, out, count);
    }
}

/// Rows are filled up to four bytes.
qint64 rowBytes(const BmpHead& head) {
    return (qint64(head.size.width()) * head.depth + 31) / 32 * 4;
}

/// Rows of a file that may end too early. What is missing takes the colour `ground`.
void readRows(QByteArrayView rows, const BmpHead& head, const RowReader& reader, QRgb ground,
              QImage& bitmap) {
    const int width = head.size.width();
    const int height = head.size.height();
    const qint64 stride = rowBytes(head);
    for (int i = 0; i < height; ++i) {
        const qint64 start = std::min<qint64>(i * stride, rows.size());
        const qint64 there = (rows.size() - start) * 8 / head.depth;
        const int count = static_cast<int>(std::min<qint64>(width, there));
        auto* out = reinterpret_cast<QRgb*>(bitmap.scanLine(head.fromTop ? i : height - 1 - i));
        reader.read(rows.data() + start, out, count);
        std::fill(out + count, out + width, ground);
    }
}

/// A file with less than a sixteenth of its rows has lost nearly all of its picture, or never had
/// one and only claims its size. Of run lengths two bytes may stand for 255 pixels.
bool isPlausible(QByteArrayView content, const BmpHead& head) {
    constexpr qint64 most = 16;
    if (head.coding == BmpHead::Coding::Runs) {
        const qint64 pixels = qint64(head.size.width()) * head.size.height();
        return pixels <= content.size() * 255 / 2 * most;
    }
    return rowBytes(head) * head.size.height() <= content.size() * most;
}

bool mayBeSeeThrough(const BmpHead& head) {
    return head.coding == BmpHead::Coding::Plain && (head.masks[3] != 0 || head.depth == 64);
}

/// The alpha bits that all pixels have, and those that any of them has.
std::pair<QRgb, QRgb> alphas(const QImage& bitmap) {
    QRgb all = black;
    QRgb any = 0;
    for (int y = 0; y < bitmap.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(bitmap.constScanLine(y));
        for (int x = 0; x < bitmap.width(); ++x) {
            all &= row[x];
            any |= row[x];
        }
    }
    return {all, any & black};
}

/// Many writers announce an alpha and leave it at 0 throughout: such a picture is opaque.
void settleAlpha(QImage& bitmap) {
    const auto [all, any] = alphas(bitmap);
    if (any != 0 && all != black) {
        return;
    }
    for (int y = 0; y < bitmap.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(bitmap.scanLine(y));
        std::for_each(row, row + bitmap.width(), [](QRgb& pixel) { pixel |= black; });
    }
    bitmap.reinterpretAsFormat(QImage::Format_RGB32);
}

QImage painted(QByteArrayView bytes, QByteArrayView content, const BmpHead& head) {
    const bool seeThrough = mayBeSeeThrough(head);
    QImage bitmap(head.size, seeThrough ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    if (bitmap.isNull()) {
        return {};
    }
    const BmpPalette palette = bmpPalette(bytes, head);
    const QRgb ground = seeThrough ? 0 : head.depth <= 8 ? palette[0] : black;
    if (head.coding == BmpHead::Coding::Runs) {
        bitmap.fill(ground);
        paintBmpRuns(content, head, palette, bitmap);
    } else {
        readRows(content, head, RowReader(head, palette), ground, bitmap);
    }
    return bitmap;
}

}  // namespace

Picture readBmp(QByteArrayView bytes, const BmpHead& head) {
    const QByteArrayView content = bytes.sliced(std::min<qint64>(head.content, bytes.size()));
    const qint64 pixels = qint64(head.size.width()) * head.size.height();
    if (pixels > decodingMemory().largest() / 4 || !isPlausible(content, head)) {
        return {};
    }
    const MemoryShare share(decodingMemory(), pixels * 4);
    QImage bitmap = share ? painted(bytes, content, head) : QImage();
    if (bitmap.isNull()) {
        return {};
    }
    if (bitmap.hasAlphaChannel()) {
        settleAlpha(bitmap);
    }
    convertToSrgb(bitmap, bmpColourSpace(bytes, head));
    if (bitmap.hasAlphaChannel()) {
        bitmap.convertTo(QImage::Format_ARGB32_Premultiplied);
    }
    return {bitmap.size(), bitmap};
}

}  // namespace velorama

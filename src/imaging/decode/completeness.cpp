#include "imaging/decode/completeness.h"

#include "imaging/decode/byte_numbers.h"

#include <algorithm>
#include <cstdlib>

namespace velorama {
namespace {

/// Place after a chain of GIF blocks and its terminator; beyond the end if there is none.
qsizetype afterBlocks(QByteArrayView bytes, qsizetype at) {
    while (at < bytes.size()) {
        const auto length = static_cast<uchar>(bytes[at]);
        at += 1 + length;
        if (length == 0) {
            return at;
        }
    }
    return bytes.size() + 1;
}

/// Bytes of the palette that a GIF's packed field announces.
qsizetype gifPalette(uchar packed) {
    return (packed & 0x80) != 0 ? 3 << ((packed & 7) + 1) : 0;
}

/// The parts of a BMP's headers that say where its rows stand and how.
struct BmpLayout {
    qint64 start = 0;
    qint64 width = 0;
    qint64 height = 0;
    qint64 depth = 0;
    quint32 compression = 0;
    /// Bytes of the run lengths, 0 where the file does not say.
    qint64 imageBytes = 0;
};

BmpLayout bmpLayout(QByteArrayView bytes) {
    constexpr qint64 fileHeader = 14;
    constexpr quint32 oldHeader = 12;
    const auto header = numberAt<quint32>(bytes, 14);
    BmpLayout bmp;
    bmp.start = std::max<qint64>(numberAt<quint32>(bytes, 10), fileHeader + header);
    if (header == oldHeader) {
        bmp.width = numberAt<quint16>(bytes, 18);
        bmp.height = numberAt<quint16>(bytes, 20);
        bmp.depth = numberAt<quint16>(bytes, 24);
        return bmp;
    }
    bmp.width = numberAt<qint32>(bytes, 18);
    bmp.height = std::abs(qint64(numberAt<qint32>(bytes, 22)));
    bmp.depth = numberAt<quint16>(bytes, 28);
    bmp.compression = numberAt<quint32>(bytes, 30);
    bmp.imageBytes = numberAt<quint32>(bytes, 34);
    return bmp;
}

/// Bytes of pixels that follow the two of a run written out, filled up to an even number.
qsizetype writtenOut(int pixels, bool nibbles) {
    const int bytes = nibbles ? (pixels + 1) / 2 : pixels;
    return (bytes + 1) / 2 * 2;
}

bool areWholeRuns(QByteArrayView runs, const BmpLayout& bmp, bool nibbles) {
    enum Code { EndOfRow, EndOfBitmap, Move };
    qint64 x = 0;
    qint64 y = 0;
    qsizetype at = 0;
    while (at + 2 <= runs.size() && y < bmp.height) {
        const int count = static_cast<uchar>(runs[at]);
        const int code = static_cast<uchar>(runs[at + 1]);
        at += 2;
        if (count == 0 && code == EndOfBitmap) {
            return true;
        }
        if (count == 0 && code == EndOfRow) {
            x = 0;
            ++y;
        } else if (count == 0 && code == Move) {
            x += numberAt<quint8>(runs, at);
            y += numberAt<quint8>(runs, at + 1);
            at += 2;
        } else {
            x += count > 0 ? count : code;
            at += count > 0 ? 0 : writtenOut(code, nibbles);
        }
    }
    const bool lastRowIsFull = y == bmp.height - 1 && x >= bmp.width;
    return at <= runs.size() && (y >= bmp.height || lastRowIsFull);
}

}  // namespace

bool isWholeGif(QByteArrayView bytes) {
    constexpr char image = ',';
    constexpr char extension = '!';
    qsizetype at = 13 + gifPalette(numberAt<quint8>(bytes, 10));
    while (at < bytes.size() && bytes[at] == extension) {
        at = afterBlocks(bytes, at + 2);
    }
    if (at >= bytes.size() || bytes[at] != image) {
        return false;
    }
    // The descriptor of ten bytes, a palette of its own, the width of the codes.
    at += 10 + gifPalette(numberAt<quint8>(bytes, at + 9)) + 1;
    return afterBlocks(bytes, at) <= bytes.size();
}

bool isWholeBmp(QByteArrayView bytes) {
    constexpr quint32 runsOfBytes = 1;
    constexpr quint32 runsOfNibbles = 2;
    const BmpLayout bmp = bmpLayout(bytes);
    const qint64 left = bytes.size() - bmp.start;
    if (bmp.compression == runsOfBytes || bmp.compression == runsOfNibbles) {
        return left >= std::max<qint64>(bmp.imageBytes, 1) &&
               areWholeRuns(bytes.sliced(bmp.start), bmp, bmp.compression == runsOfNibbles);
    }
    const qint64 stride = (bmp.width * bmp.depth + 31) / 32 * 4;
    return stride > 0 && bmp.height <= left / stride;
}

}  // namespace velorama

#include "imaging/decode/completeness.h"

#include "imaging/decode/byte_numbers.h"

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

}  // namespace velorama

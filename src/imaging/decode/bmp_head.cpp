#include "imaging/decode/bmp.h"

#include "imaging/decode/byte_numbers.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace velorama {
namespace {

using Coding = BmpHead::Coding;

constexpr qint64 fileHeader = 14;

/// Sizes of the headers, which tell the kinds apart.
enum HeaderBytes : quint32 {
    Os2First = 12,
    Os2Shortest = 16,
    Windows = 40,
    WindowsMasks = 52,
    WindowsAlpha = 56,
    Os2Whole = 64,
    Windows4 = 108,
    Windows5 = 124
};

enum Compression : quint32 { None, Runs8, Runs4, Masks, Jpeg, Png, AlphaMasks };

bool isWindows(quint32 header) {
    return header == Windows || header == WindowsMasks || header == WindowsAlpha ||
           header == Windows4 || header == Windows5;
}

/// OS/2's second header may be cut off after any of its fields.
bool isOs2(quint32 header) {
    return header >= Os2Shortest && header <= Os2Whole && !isWindows(header);
}

/// Fields of a header of which only the first bytes may be there; the others count as 0.
struct Fields {
    QByteArrayView bytes;
    quint32 header;

    template <typename Number>
    Number at(qint64 offset) const {
        return offset + qint64(sizeof(Number)) <= header
                   ? numberAt<Number>(bytes, fileHeader + offset)
                   : 0;
    }
};

bool isOneOf(int depth, std::initializer_list<int> depths) {
    return std::find(depths.begin(), depths.end(), depth) != depths.end();
}

/// The masks stand at the same place whether they are a part of the header or follow it.
void readMasks(BmpHead& head, QByteArrayView bytes, bool withAlpha) {
    for (size_t i = 0; i < (withAlpha ? 4 : 3); ++i) {
        head.masks[i] = numberAt<quint32>(bytes, fileHeader + Windows + qint64(i) * 4);
    }
}

void usualMasks(BmpHead& head) {
    if (head.depth == 16) {
        head.masks = {0x7C00, 0x03E0, 0x001F, 0};
    } else {
        head.masks = {0xFF0000, 0x00FF00, 0x0000FF, 0};
    }
}

bool hasColourMask(const BmpHead& head) {
    return (head.masks[0] | head.masks[1] | head.masks[2]) != 0;
}

/// Settles how the pixels are written; false for kinds that are not read: inks, Huffman codes, and
/// depths that do not belong to the compression.
bool settleCoding(BmpHead& head, QByteArrayView bytes, quint32 compression) {
    const bool os2 = !isWindows(head.headerBytes);
    if (compression == None) {
        usualMasks(head);
        return isOneOf(head.depth, {1, 2, 4, 8, 16, 24, 32, 64});
    }
    if (compression == Masks || compression == AlphaMasks) {
        readMasks(head, bytes, compression == AlphaMasks || head.headerBytes >= WindowsAlpha);
        return !os2 && isOneOf(head.depth, {16, 24, 32}) && hasColourMask(head);
    }
    const bool runs24 = compression == Jpeg && head.depth == 24 && os2;
    if (compression == Runs8 || compression == Runs4 || runs24) {
        head.coding = Coding::Runs;
        return runs24 || head.depth == (compression == Runs8 ? 8 : 4);
    }
    head.coding = compression == Jpeg ? Coding::Jpeg : Coding::Png;
    return !os2 && (compression == Jpeg || compression == Png);
}

/// Bytes of masks that follow a header which has no room for them.
qint64 looseMasks(quint32 header, quint32 compression) {
    if (compression == Masks && header == Windows) {
        return 12;
    }
    return compression == AlphaMasks && header < WindowsAlpha ? WindowsAlpha - header : 0;
}

/// Where palette and pixels stand. A palette may end before it has as many colours as it says, and
/// one that says less may have more; where the pixels begin decides both.
void settlePlaces(BmpHead& head, QByteArrayView bytes, quint32 compression, quint32 stated) {
    const qint64 full = head.depth <= 8 ? qint64(1) << head.depth : 0;
    head.palette = fileHeader + head.headerBytes + looseMasks(head.headerBytes, compression);
    head.content = numberAt<quint32>(bytes, 10);
    if (head.content < head.palette) {
        head.content = head.palette + (stated != 0 ? stated : full) * head.colourBytes;
    }
    const qint64 room = (head.content - head.palette) / head.colourBytes;
    head.colours = static_cast<int>(std::min(full, room));
}

QSize sized(qint64 width, qint64 height) {
    return width > 0 && height != 0 && std::abs(height) <= INT_MAX
               ? QSize(static_cast<int>(width), static_cast<int>(std::abs(height)))
               : QSize();
}

BmpHead firstOs2Head(QByteArrayView bytes) {
    const Fields fields{bytes, Os2First};
    BmpHead head;
    head.headerBytes = Os2First;
    head.colourBytes = 3;
    head.depth = fields.at<quint16>(10);
    if (settleCoding(head, bytes, None)) {
        head.size = sized(fields.at<quint16>(4), fields.at<quint16>(6));
        settlePlaces(head, bytes, None, 0);
    }
    return head;
}

}  // namespace

BmpHead bmpHead(QByteArrayView bytes) {
    const auto header = numberAt<quint32>(bytes, fileHeader);
    if (header == Os2First) {
        return firstOs2Head(bytes);
    }
    const Fields fields{bytes, header};
    const auto compression = fields.at<quint32>(16);
    BmpHead head;
    head.headerBytes = header;
    head.depth = fields.at<quint16>(14);
    if ((isWindows(header) || isOs2(header)) && settleCoding(head, bytes, compression)) {
        const auto height = fields.at<qint32>(8);
        head.size = sized(fields.at<qint32>(4), height);
        head.fromTop = height < 0;
        settlePlaces(head, bytes, compression, fields.at<quint32>(32));
    }
    return head;
}

}  // namespace velorama

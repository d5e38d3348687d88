#include "imaging/decode/byte_numbers.h"
#include "imaging/decode/gif.h"

namespace velorama {
namespace {

constexpr qint64 screenBytes = 13;

/// A frame's descriptor; a palette and the bits of the codes follow.
constexpr qint64 frameBytes = 10;

/// Where the screen's size is 0, the first frame's stands in these, its palette included.
constexpr qint64 startBytes = 64LL * 1024;

enum Block : char { Image = ',', Extension = '!', Trailer = ';' };

/// Colours of the palette that a packed field announces.
int paletteColours(quint8 packed) {
    return (packed & 0x80) != 0 ? 2 << (packed & 7) : 0;
}

QSize sizeAt(QByteArrayView bytes, qint64 place) {
    return {numberAt<quint16>(bytes, place), numberAt<quint16>(bytes, place + 2)};
}

/// Place after a chain of blocks and its terminator, or beyond the end.
qint64 afterBlocks(QByteArrayView bytes, qint64 at) {
    quint8 length = 0;
    do {
        length = numberAt<quint8>(bytes, at);
        at += 1 + length;
    } while (length != 0);
    return at;
}

/// What the extensions before the first frame say of it.
struct Walk {
    /// Place of the frame's descriptor; the end of the bytes if there is none.
    qint64 frame;
    int seeThrough = -1;
};

/// Stray bytes between the blocks are passed over.
Walk walkToFrame(QByteArrayView bytes) {
    constexpr char graphicControl = '\xF9';
    Walk walk{screenBytes + qint64{3} * paletteColours(numberAt<quint8>(bytes, 10))};
    while (walk.frame < bytes.size() && bytes[walk.frame] != Image) {
        if (bytes[walk.frame] == Trailer) {
            walk.frame = bytes.size();
        } else if (bytes[walk.frame] != Extension) {
            ++walk.frame;
        } else {
            if (numberAt<char>(bytes, walk.frame + 1) == graphicControl) {
                const bool has = (numberAt<quint8>(bytes, walk.frame + 3) & 1) != 0;
                walk.seeThrough = has ? numberAt<quint8>(bytes, walk.frame + 6) : -1;
            }
            walk.frame = afterBlocks(bytes, walk.frame + 2);
        }
    }
    return walk;
}

void readPalette(GifHead& head, QByteArrayView bytes, qint64 at, int colours) {
    for (int i = 0; i < 256; ++i) {
        const qint64 entry = at + qint64{3} * i;
        head.palette[static_cast<size_t>(i)] =
            i < colours ? qRgb(numberAt<quint8>(bytes, entry), numberAt<quint8>(bytes, entry + 1),
                               numberAt<quint8>(bytes, entry + 2))
                        : 0xFF000000U;
    }
}

/// The ground is a colour of the screen's palette, whichever the frame has.
void settleColours(GifHead& head, QByteArrayView bytes, const Walk& walk) {
    const int shared = paletteColours(numberAt<quint8>(bytes, 10));
    const int own = paletteColours(numberAt<quint8>(bytes, walk.frame + 9));
    readPalette(head, bytes, screenBytes, shared);
    const int ground = numberAt<quint8>(bytes, 11);
    if (walk.seeThrough < 0 && ground < shared) {
        head.ground = head.palette[static_cast<size_t>(ground)];
    }
    if (own != 0) {
        readPalette(head, bytes, walk.frame + frameBytes, own);
    }
    if (walk.seeThrough >= 0) {
        head.palette[static_cast<size_t>(walk.seeThrough)] = 0;
    }
}

}  // namespace

GifHead gifHead(QByteArrayView bytes) {
    GifHead head;
    const Walk walk = walkToFrame(bytes);
    const auto packed = numberAt<quint8>(bytes, walk.frame + 9);
    const qint64 bits = walk.frame + frameBytes + qint64{3} * paletteColours(packed);
    head.codeBits = numberAt<quint8>(bytes, bits);
    if (head.codeBits < 1 || head.codeBits > 8) {
        return head;
    }
    head.codes = bits + 1;
    head.frame = QRect(
        QPoint(numberAt<quint16>(bytes, walk.frame + 1), numberAt<quint16>(bytes, walk.frame + 3)),
        sizeAt(bytes, walk.frame + 5));
    head.interlaced = (packed & 0x40) != 0;
    head.screen = sizeAt(bytes, 6);
    if (head.screen.isEmpty() && walk.frame <= startBytes - 1024) {
        head.screen = head.frame.size();
        head.frame.moveTo(0, 0);
    }
    settleColours(head, bytes, walk);
    return head;
}

QSize gifSize(ByteSource& source) {
    const QSize told = sizeAt(source.from(0), 6);
    if (!told.isEmpty()) {
        return told;
    }
    QByteArray start;
    QByteArrayView part = source.from(0);
    while (!part.isEmpty() && start.size() < startBytes) {
        start += part.first(qMin(part.size(), startBytes - start.size()));
        part = source.from(start.size());
    }
    return gifHead(start).screen;
}

}  // namespace velorama

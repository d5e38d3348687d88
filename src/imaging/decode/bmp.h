#pragma once

#include "imaging/decode/picture.h"

#include <QByteArrayView>
#include <QColorSpace>

#include <array>

namespace velorama {

/// Bytes from the start of a BMP that its head is within.
constexpr qint64 bmpHeadBytes = 128;

/// What the headers of a BMP say.
struct BmpHead {
    enum class Coding { Plain, Runs, Jpeg, Png };

    /// Empty for a kind that is not read.
    QSize size;
    bool fromTop = false;
    Coding coding = Coding::Plain;
    /// Bits of a pixel: 1, 2, 4, 8, 16, 24, 32 or 64.
    int depth = 0;
    /// Bits of red, green, blue and alpha in a pixel of 16 to 32 bits; 0: there are none.
    std::array<quint32, 4> masks{};
    /// Bytes of the header that follows the file's own.
    quint32 headerBytes = 0;
    /// Place of the palette, entries that it may have, and bytes of one.
    qint64 palette = 0;
    int colours = 0;
    int colourBytes = 4;
    /// Place of the rows, the run lengths or the other file's bytes.
    qint64 content = 0;
};

/// Reads the head. OS/2 1.x and 2.x, and all of Windows' headers.
BmpHead bmpHead(QByteArrayView bytes);

/// Colours of the indices 0 to 255; black where the palette has none.
using BmpPalette = std::array<QRgb, 256>;
BmpPalette bmpPalette(QByteArrayView bytes, const BmpHead& head);

/// The colours that the last two kinds of header can describe; not valid where they do not.
QColorSpace bmpColourSpace(QByteArrayView bytes, const BmpHead& head);

/// Paints run lengths into `bitmap`, of the head's size and four bytes a pixel; what they leave out
/// stays. Beyond the rows and behind the last byte they end.
void paintBmpRuns(QByteArrayView runs, const BmpHead& head, const BmpPalette& palette,
                  QImage& bitmap);

/// The BMP reader: for Plain and Runs. Pixels that are missing come out black or in the palette's
/// first colour; null if there are hardly any.
Picture readBmp(QByteArrayView bytes, const BmpHead& head);

}  // namespace velorama

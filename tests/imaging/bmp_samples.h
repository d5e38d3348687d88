#pragma once

#include <QByteArray>
#include <QRgb>
#include <QSize>

#include <vector>

namespace velorama::test {

/// What a sample BMP's headers say; all of it may be a lie.
struct BmpSample {
    /// A negative height: rows from top to bottom.
    QSize size{2, 2};
    int depth = 24;
    /// Rows, run lengths or another file, as they stand in the file.
    QByteArray content = {};
    quint32 header = 40;
    quint32 compression = 0;
    /// What stands between the header and the content.
    QByteArray palette = {};
    /// Entries that the header says the palette has.
    quint32 colours = 0;
    /// Masks of red, green, blue and alpha, 16 bytes or fewer; in the header where it has room for
    /// them, else before the palette.
    QByteArray masks = {};
    /// From the kind of colours on, what headers of 108 and 124 bytes end with.
    QByteArray colourFields = {};
    /// Where the content is said to begin; -1: where it does.
    qint64 offset = -1;
};

/// Bytes of that BMP. A header is cut off or filled up to its size.
QByteArray bmpFile(const BmpSample& sample);

/// Four bytes each, lowest first.
QByteArray little(std::initializer_list<quint32> numbers);
/// Bytes spelled out by hexadecimal digits, with spaces.
QByteArray bytesOf(const char* hex);

namespace pixels {
constexpr QRgb black = 0xFF000000;
constexpr QRgb red = 0xFFFF0000;
constexpr QRgb green = 0xFF00FF00;
constexpr QRgb blue = 0xFF0000FF;
constexpr QRgb white = 0xFFFFFFFF;
}  // namespace pixels

/// By rows, from the top left on.
using Pixels = std::vector<QRgb>;

/// What a picture file is decoded to, not premultiplied; none if it is null, or if the size that
/// its head tells is another.
Pixels pixelsOf(const QByteArray& file);
Pixels pixelsOf(const BmpSample& sample);

}  // namespace velorama::test

#pragma once

#include <QByteArray>
#include <QColor>
#include <QSize>

#include <vector>

namespace velorama::test {

/// Bytes of a GIF that runs without end: one frame of each colour, so many hundredths of a second
/// each. At most 128 different colours.
inline QByteArray movieBytes(QSize size, const std::vector<QColor>& frames, int delay = 5) {
    const auto two = [](int number) -> QByteArray {
        return QByteArray(1, static_cast<char>(number & 0xFF)) + static_cast<char>(number >> 8);
    };
    const QByteArray area = two(size.width()) + two(size.height());
    QByteArray palette(128 * 3, '\0');
    for (std::size_t i = 0; i < frames.size() && i < 128; ++i) {
        const QColor& colour = frames[i];
        const auto at = static_cast<qsizetype>(i) * 3;
        palette[at] = static_cast<char>(colour.red());
        palette[at + 1] = static_cast<char>(colour.green());
        palette[at + 2] = static_cast<char>(colour.blue());
    }
    QByteArray bytes = "GIF89a" + area + QByteArray("\xF6\0\0", 3) + palette +
                       QByteArray("\x21\xFF\x0BNETSCAPE2.0\x03\x01\0\0\0", 19);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        // Codes of one byte each: the table is cleared before they grow.
        const QByteArray pixels(100, static_cast<char>(i % 128));
        QByteArray codes;
        for (int left = size.width() * size.height(); left > 0; left -= 100) {
            codes += '\x80' + pixels.left(left);
        }
        codes += '\x81';
        bytes += QByteArray("\x21\xF9\x04\0", 4) + two(delay) + QByteArray("\0\0,\0\0\0\0", 7) +
                 area + QByteArray("\0\x07", 2);
        for (qsizetype at = 0; at < codes.size(); at += 200) {
            const QByteArray block = codes.mid(at, 200);
            bytes += static_cast<char>(block.size()) + block;
        }
        bytes += '\0';
    }
    return bytes + ';';
}

}  // namespace velorama::test

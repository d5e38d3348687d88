#include "draw_samples/gif_writer.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace velorama::samples {
namespace {

constexpr int kColours = 256;
constexpr int kClear = 256;
constexpr int kEnd = 257;
constexpr int kCodes = 4096;
constexpr int kBlock = 255;

QList<QRgb> sharedColours(const std::vector<QImage>& frames) {
    QHash<QRgb, int> count;
    for (const QImage& frame : frames) {
        for (int y = 0; y < frame.height(); ++y) {
            for (int x = 0; x < frame.width(); ++x) {
                ++count[frame.pixel(x, y) & 0xFFFCFCFCU];
            }
        }
    }
    QList<QRgb> colours = count.keys();
    std::sort(colours.begin(), colours.end(),
              [&](QRgb a, QRgb b) { return count[a] != count[b] ? count[a] > count[b] : a < b; });
    colours.resize(kColours);
    return colours;
}

/// Codes of growing width, packed from the lowest bit on.
class BitWriter {
public:
    void put(int code, int bits) {
        m_pending |= static_cast<quint32>(code) << m_filled;
        m_filled += bits;
        while (m_filled >= 8) {
            takeByte();
        }
    }
    QByteArray finished() {
        if (m_filled > 0) {
            takeByte();
        }
        return m_bytes;
    }

private:
    void takeByte() {
        m_bytes.append(static_cast<char>(m_pending & 0xFFU));
        m_pending >>= 8;
        m_filled = std::max(m_filled - 8, 0);
    }

    QByteArray m_bytes;
    quint32 m_pending = 0;
    int m_filled = 0;
};

// The codes of the strings seen since the last clear: (string, next colour) -> longer string.
class Strings {
public:
    Strings() : m_next(kCodes) { clear(); }
    void clear() {
        for (auto& row : m_next) {
            row.fill(0);
        }
        m_used = kEnd + 1;
        m_bits = 9;
    }
    int longer(int string, int colour) const {
        return m_next[static_cast<std::size_t>(string)][static_cast<std::size_t>(colour)];
    }
    /// False when the table is full.
    bool add(int string, int colour) {
        if (m_used == kCodes) {
            return false;
        }
        m_next[static_cast<std::size_t>(string)][static_cast<std::size_t>(colour)] =
            static_cast<quint16>(m_used);
        if (m_used == 1 << m_bits) {
            ++m_bits;
        }
        ++m_used;
        return true;
    }
    int bits() const { return m_bits; }

private:
    std::vector<std::array<quint16, kColours>> m_next;
    int m_used = 0;
    int m_bits = 0;
};

QByteArray compressed(const QImage& frame) {
    Strings strings;
    BitWriter out;
    out.put(kClear, strings.bits());
    int string = frame.pixelIndex(0, 0);
    for (int i = 1; i < frame.width() * frame.height(); ++i) {
        const int colour = frame.pixelIndex(i % frame.width(), i / frame.width());
        if (const int longer = strings.longer(string, colour)) {
            string = longer;
            continue;
        }
        out.put(string, strings.bits());
        if (!strings.add(string, colour)) {
            out.put(kClear, strings.bits());
            strings.clear();
        }
        string = colour;
    }
    out.put(string, strings.bits());
    out.put(kEnd, strings.bits());
    return out.finished();
}

void appendNumber(QByteArray& bytes, int number) {
    bytes.append(static_cast<char>(number & 0xFF));
    bytes.append(static_cast<char>(number >> 8 & 0xFF));
}

void appendFrame(QByteArray& bytes, const QImage& frame, int hundredths) {
    bytes.append("\x21\xF9\x04\x04", 4);
    appendNumber(bytes, hundredths);
    bytes.append("\0\0\x2C\0\0\0\0", 7);
    appendNumber(bytes, frame.width());
    appendNumber(bytes, frame.height());
    bytes.append("\0\x08", 2);
    const QByteArray data = compressed(frame);
    for (qsizetype at = 0; at < data.size(); at += kBlock) {
        const QByteArray block = data.mid(at, kBlock);
        bytes.append(static_cast<char>(block.size()));
        bytes.append(block);
    }
    bytes.append('\0');
}

}  // namespace

QByteArray animatedGif(const std::vector<QImage>& frames, int hundredths) {
    if (frames.empty()) {
        return {};
    }
    const QList<QRgb> colours = sharedColours(frames);
    QByteArray bytes("GIF89a");
    appendNumber(bytes, frames.front().width());
    appendNumber(bytes, frames.front().height());
    bytes.append("\xF7\0\0", 3);
    for (const QRgb colour : colours) {
        bytes.append(static_cast<char>(qRed(colour)));
        bytes.append(static_cast<char>(qGreen(colour)));
        bytes.append(static_cast<char>(qBlue(colour)));
    }
    bytes.append("\x21\xFF\x0BNETSCAPE2.0\x03\x01\0\0\0", 19);
    for (const QImage& frame : frames) {
        appendFrame(bytes,
                    frame.convertToFormat(QImage::Format_Indexed8, colours, Qt::ThresholdDither),
                    hundredths);
    }
    bytes.append(';');
    return bytes;
}

}  // namespace velorama::samples

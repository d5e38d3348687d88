#include "imaging/bmp_samples.h"

#include "imaging/decode/decoding.h"

#include <QtEndian>

namespace velorama::test {
namespace {

QByteArray two(int value) {
    QByteArray bytes(2, '\0');
    qToLittleEndian(static_cast<quint16>(value), bytes.data());
    return bytes;
}

QByteArray header(const BmpSample& sample) {
    const auto width = static_cast<quint32>(sample.size.width());
    const auto height = static_cast<quint32>(sample.size.height());
    if (sample.header == 12) {
        return little({12}) + two(sample.size.width()) + two(sample.size.height()) + two(1) +
               two(sample.depth);
    }
    QByteArray fields = little({sample.header, width, height}) + two(1) + two(sample.depth) +
                        little({sample.compression, 0, 2835, 2835, sample.colours, 0});
    if (sample.header > 40) {
        fields += sample.masks.leftJustified(16, '\0') + sample.colourFields;
    }
    return fields.leftJustified(sample.header, '\0', true);
}

}  // namespace

QByteArray little(std::initializer_list<quint32> numbers) {
    QByteArray bytes;
    for (const quint32 number : numbers) {
        bytes += two(static_cast<int>(number & 0xFFFF)) + two(static_cast<int>(number >> 16));
    }
    return bytes;
}

QByteArray bmpFile(const BmpSample& sample) {
    QByteArray head = header(sample);
    const qsizetype inHeader = std::clamp<qsizetype>(qsizetype(sample.header) - 40, 0, 16);
    head += sample.masks.mid(inHeader) + sample.palette;
    const qint64 offset = sample.offset < 0 ? 14 + head.size() : sample.offset;
    const auto whole = static_cast<quint32>(14 + head.size() + sample.content.size());
    return "BM" + little({whole, 0, static_cast<quint32>(offset)}) + head + sample.content;
}

QByteArray bytesOf(const char* hex) {
    return QByteArray::fromHex(hex);
}

Pixels pixelsOf(const QByteArray& file) {
    const Picture picture = decodePicture(file);
    MemoryBytes source(file);
    if (picture.isNull() || pictureSize(source) != picture.size) {
        return {};
    }
    Pixels pixels;
    for (int y = 0; y < picture.size.height(); ++y) {
        for (int x = 0; x < picture.size.width(); ++x) {
            pixels.push_back(qUnpremultiply(picture.bitmap.pixel(x, y)));
        }
    }
    return pixels;
}

Pixels pixelsOf(const BmpSample& sample) {
    return pixelsOf(bmpFile(sample));
}

}  // namespace velorama::test

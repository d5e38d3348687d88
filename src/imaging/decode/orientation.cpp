#include "imaging/decode/decoding.h"

#include <QTransform>
#include <QtEndian>

namespace velorama {
namespace {

/// Numbers of a TIFF block in its own byte order; outside the block everything is 0.
struct TiffBlock {
    QByteArrayView bytes;
    bool bigEndian;

    template <typename Number>
    Number at(quint64 offset) const {
        if (offset + sizeof(Number) > static_cast<quint64>(bytes.size())) {
            return 0;
        }
        const char* place = bytes.data() + offset;
        return bigEndian ? qFromBigEndian<Number>(place) : qFromLittleEndian<Number>(place);
    }
};

constexpr quint16 orientationTag = 0x0112;
constexpr quint16 shortType = 3;

int orientationOf(const TiffBlock& block) {
    const quint64 directory = block.at<quint32>(4);
    const int entries = block.at<quint16>(directory);
    for (int i = 0; i < entries; ++i) {
        const quint64 entry = directory + 2 + 12 * static_cast<quint64>(i);
        if (block.at<quint16>(entry) == orientationTag) {
            const bool isShort = block.at<quint16>(entry + 2) == shortType;
            const quint32 value =
                isShort ? block.at<quint16>(entry + 8) : block.at<quint32>(entry + 8);
            return value >= 1 && value <= 8 ? static_cast<int>(value) : 0;
        }
    }
    return 0;
}

}  // namespace

int exifOrientation(QByteArrayView segment) {
    constexpr QByteArrayView head("Exif\0\0", 6);
    if (!segment.startsWith(head)) {
        return 0;
    }
    const QByteArrayView tiff = segment.sliced(head.size());
    const bool bigEndian = tiff.startsWith("MM");
    if (!bigEndian && !tiff.startsWith("II")) {
        return 0;
    }
    const TiffBlock block{tiff, bigEndian};
    return block.at<quint16>(2) == 42 ? orientationOf(block) : 0;
}

QImage oriented(QImage bitmap, int orientation) {
    const auto turned = [&](int degrees) {
        return bitmap.transformed(QTransform().rotate(degrees));
    };
    switch (orientation) {
        case 2:
            return std::move(bitmap).mirrored(true, false);
        case 3:
            return std::move(bitmap).mirrored(true, true);
        case 4:
            return std::move(bitmap).mirrored(false, true);
        case 5:
            return turned(90).mirrored(true, false);
        case 6:
            return turned(90);
        case 7:
            return turned(270).mirrored(true, false);
        case 8:
            return turned(270);
        default:
            return bitmap;
    }
}

}  // namespace velorama

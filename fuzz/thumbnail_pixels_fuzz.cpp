#include "entry.h"
#include "imaging/cache/pixel_packing.h"

#include <QtEndian>

#include <algorithm>

using namespace velorama;

namespace {

void check(const QByteArray& packed) {
    const QImage image = unpackPixels(packed);
    fuzz::require(image.isNull() || unpackPixels(packPixels(image)) == image);
}

/// The bytes as a body under a head that fits it, which chance would not find.
QByteArray underGoodHead(const QByteArray& bytes) {
    QByteArray head = bytes.left(5) + QByteArray(2, '\0');
    qToLittleEndian(qChecksum(QByteArrayView(head).first(5)), head.data() + 5);
    return head + bytes.mid(5);
}

QImage imageOf(const QByteArray& bytes) {
    const int width = 1 + static_cast<quint8>(bytes[0]) % 64;
    const auto rows =
        static_cast<int>(qMin<qsizetype>(64, (bytes.size() - 1) / (qsizetype{4} * width)));
    QImage image(width, rows, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < rows; ++y) {
        std::copy_n(bytes.constData() + 1 + qsizetype{4} * width * y, qsizetype{4} * width,
                    image.scanLine(y));
    }
    return image;
}

}  // namespace

// A kept thumbnail's bytes as they are and under a head that fits them; and a bitmap of these
// bytes, which must come back as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = fuzz::asBytes(data, size);
    check(bytes);
    if (size > 5) {
        check(underGoodHead(bytes));
        const QImage image = imageOf(bytes);
        fuzz::require(image.isNull() || unpackPixels(packPixels(image)) == image);
    }
    return 0;
}

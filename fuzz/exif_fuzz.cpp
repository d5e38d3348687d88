#include "entry.h"
#include "imaging/decode/decoding.h"

using namespace velorama;

// What stands behind the head of an EXIF segment, and a bitmap turned by it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray segment = QByteArray("Exif\0\0", 6) + fuzz::asBytes(data, size);
    const int orientation = exifOrientation(segment);
    fuzz::require(orientation >= 0 && orientation <= 8);
    const QImage bitmap(3, 2, QImage::Format_RGB32);
    const QSize turned = oriented(bitmap, orientation).size();
    fuzz::require(turned == (orientation >= 5 ? bitmap.size().transposed() : bitmap.size()));
    return 0;
}

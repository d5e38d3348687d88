#include "entry.h"
#include "imaging/decode/decoding.h"

using namespace velorama;

// A picture's colour profile, applied: the bitmap keeps its form.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray profile = fuzz::asBytes(data, size);
    for (const bool grey : {false, true}) {
        QImage bitmap(4, 3, QImage::Format_RGB32);
        bitmap.fill(0xFF204080);
        convertToSrgb(bitmap, profiledSpace(profile, grey));
        fuzz::require(bitmap.size() == QSize(4, 3) && bitmap.format() == QImage::Format_RGB32);
        fuzz::require(!bitmap.colorSpace().isValid());
    }
    return 0;
}

#include "imaging/decode/decoding.h"
#include "imaging/decode/picture.h"
#include "imaging/scale/scaling.h"

#include <cstdint>
#include <cstdlib>

namespace {

/// Pixels of a bitmap that is scaled too. A larger one alone would take seconds of that, with the
/// sanitizers in it.
constexpr std::int64_t mostScaled = 16'000'000;

}  // namespace

// Any picture, BMP among them; its head must tell the size that it is decoded with.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velorama;
    const QByteArrayView bytes(data, qsizetype(size));
    const Fit fit = size % 2 == 0 ? Fit::cell(64) : Fit::whole();
    const Picture picture = decodePicture(bytes, fit);
    MemoryBytes source(bytes);
    const QSize told = pictureSize(source);
    if (!picture.isNull() && picture.size != told) {
        std::abort();
    }
    if (std::int64_t{picture.bitmap.width()} * picture.bitmap.height() <= mostScaled) {
        fittedBitmap(picture.bitmap, QSize(64, 48), 0xFFFFFF, picture.extent);
    }
    return 0;
}

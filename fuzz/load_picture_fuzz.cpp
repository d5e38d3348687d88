#include "imaging/decode/decoding.h"
#include "imaging/decode/picture.h"
#include "imaging/scale/scaling.h"

#include <cstdint>
#include <cstdlib>

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
    fittedBitmap(picture.bitmap, QSize(64, 48), 0xFFFFFF, picture.extent);
    return 0;
}

#include "imaging/decode/picture.h"
#include "imaging/scale/scaling.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velorama;
    const Fit fit = size % 2 == 0 ? Fit::cell(64) : Fit::whole();
    const Picture picture = decodePicture(QByteArrayView(data, qsizetype(size)), fit);
    fittedBitmap(picture.bitmap, QSize(64, 48), 0xFFFFFF, picture.extent);
    return 0;
}

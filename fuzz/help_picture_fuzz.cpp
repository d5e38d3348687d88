#include "controls/browser/page_picture.h"
#include "entry.h"

// A picture of a help page: whatever its head says, it stays small.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QImage picture = velorama::pagePicture(velorama::fuzz::asBytes(data, size));
    velorama::fuzz::require(qint64(picture.width()) * picture.height() <= 4'000'000);
    return 0;
}

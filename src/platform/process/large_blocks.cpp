#include "platform/process/large_blocks.h"

#include <cstdlib>
#include <mutex>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace velorama {

void giveLargeBlocksBack() {
#ifdef __GLIBC__
    // Bytes. The pixels of a thumbnail stay below: mapping each of them apart would cost time.
    constexpr int large = 1024 * 1024;
    static std::once_flag once;
    // Setting it also ends its growing.
    std::call_once(once, [] { mallopt(M_MMAP_THRESHOLD, large); });
#endif
}

}  // namespace velorama

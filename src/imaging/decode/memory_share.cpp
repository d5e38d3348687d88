#include "imaging/decode/memory_share.h"

namespace velorama {

MemoryShare::MemoryShare(MemoryPool& pool, qint64 bytes)
    : pool_(pool), bytes_(bytes <= pool.largest_ ? bytes : -1) {
    if (bytes_ >= 0) {
        std::unique_lock lock(pool_.mutex_);
        pool_.returned_.wait(lock, [this] { return bytes_ <= pool_.total_ - pool_.taken_; });
        pool_.taken_ += bytes_;
    }
}

MemoryShare::~MemoryShare() {
    if (bytes_ >= 0) {
        const std::lock_guard lock(pool_.mutex_);
        pool_.taken_ -= bytes_;
        pool_.returned_.notify_all();
    }
}

}  // namespace velorama

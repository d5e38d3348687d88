#pragma once

#include <QtGlobal>

#include <condition_variable>
#include <mutex>

namespace velorama {

/// An amount of memory, in bytes, that several threads take parts of.
class MemoryPool {
public:
    /// One part may be `largest` at most. What lies between it and `total` stays open to smaller
    /// ones, so that they need not wait for a large one to end.
    MemoryPool(qint64 total, qint64 largest) : total_(total), largest_(largest) {}

    qint64 largest() const { return largest_; }

private:
    friend class MemoryShare;

    const qint64 total_;
    const qint64 largest_;
    std::mutex mutex_;
    std::condition_variable returned_;
    qint64 taken_ = 0;
};

/// A part of a pool, taken while this lives. Waits until there is room; false if the part is more
/// than the pool gives at all. A thread takes no second part of the same pool.
class MemoryShare {
public:
    MemoryShare(MemoryPool& pool, qint64 bytes);
    MemoryShare(const MemoryShare&) = delete;
    MemoryShare& operator=(const MemoryShare&) = delete;
    ~MemoryShare();

    explicit operator bool() const { return bytes_ >= 0; }

private:
    MemoryPool& pool_;
    const qint64 bytes_;
};

}  // namespace velorama

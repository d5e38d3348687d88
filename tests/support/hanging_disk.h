#pragma once

#include "support/waiting.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace velorama::test {

/// A disk that stops answering. It answers by itself in the end, so that what waits for it fails
/// and does not hang. Any thread.
class HangingDisk {
public:
    /// A read: returns when the disk goes on.
    void answer() {
        std::unique_lock guard(lock_);
        ++reads_;
        ++reading_;
        waitedFor_ =
            !changed_.wait_for(guard, std::chrono::seconds(60), [this] { return !stuck_; }) ||
            waitedFor_;
        --reading_;
    }
    void goOn() {
        const std::lock_guard guard(lock_);
        stuck_ = false;
        changed_.notify_all();
    }
    /// Whether a read comes to stand.
    bool hangs() {
        return comesTrue([this] { return reading() == 1; });
    }
    /// The reads that stand.
    int reading() { return of(reading_); }
    /// All reads so far.
    int reads() { return of(reads_); }
    /// Whether a read waited until the disk answered by itself.
    bool wasWaitedFor() { return of(waitedFor_); }

private:
    template <typename Value>
    Value of(const Value& value) {
        const std::lock_guard guard(lock_);
        return value;
    }

    std::mutex lock_;
    std::condition_variable changed_;
    bool stuck_ = true;
    bool waitedFor_ = false;
    int reads_ = 0;
    int reading_ = 0;
};

}  // namespace velorama::test

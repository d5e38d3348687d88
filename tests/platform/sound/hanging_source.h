#pragma once

#include "platform/sound/audio_source.h"
#include "support/waiting.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

namespace velorama::test {

/// A source's disk. It answers by itself in the end, so that what waits for it fails and does not
/// hang.
struct SourceDisk {
    std::mutex lock;
    std::condition_variable changed;
    bool stuck = true;
    bool waitedFor = false;
    int reads = 0;
    int reading = 0;
    std::thread::id freedBy;  // of no thread as long as the source lives

    void answer() {
        std::unique_lock guard(lock);
        ++reads;
        ++reading;
        waitedFor = !changed.wait_for(guard, std::chrono::seconds(60), [this] { return !stuck; }) ||
                    waitedFor;
        --reading;
    }
    void goOn() {
        const std::lock_guard guard(lock);
        stuck = false;
        changed.notify_all();
    }
    template <typename Test>
    bool comesTo(Test test) {
        return comesTrue([&] {
            const std::lock_guard guard(lock);
            return test();
        });
    }
    bool wasWaitedFor() {
        const std::lock_guard guard(lock);
        return waitedFor;
    }
    bool isFreed() {
        return comesTo([this] { return freedBy != std::thread::id(); });
    }
};

/// Gives a half in each of its two channels, as long as `frames` are left.
class HangingSource : public AudioSource {
public:
    explicit HangingSource(std::shared_ptr<SourceDisk> disk, int frames = 1 << 30)
        : disk_(std::move(disk)), left_(frames), length_(frames) {}
    ~HangingSource() override {
        const std::lock_guard guard(disk_->lock);
        disk_->freedBy = std::this_thread::get_id();
    }

    int rate() const override { return 44100; }
    int channels() const override { return 2; }
    qint64 length() override { return length_; }
    int read(float* out, int frames) override {
        disk_->answer();
        const int got = std::min(frames, left_);
        std::fill(out, out + 2 * got, 0.5F);
        left_ -= got;
        return got;
    }

private:
    std::shared_ptr<SourceDisk> disk_;
    int left_;
    int length_;
};

}  // namespace velorama::test

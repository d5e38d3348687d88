#pragma once

#include "platform/sound/audio_source.h"
#include "support/hanging_disk.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>

namespace velorama::test {

/// The disk of a source.
struct SourceDisk : HangingDisk {
    std::atomic<std::thread::id> freedBy;  // of no thread as long as the source lives

    bool isFreed() {
        return comesTrue([this] { return freedBy.load() != std::thread::id(); });
    }
};

/// Gives a half in each of its two channels, as long as `frames` are left.
class HangingSource : public AudioSource {
public:
    explicit HangingSource(std::shared_ptr<SourceDisk> disk, int frames = 1 << 30)
        : disk_(std::move(disk)), left_(frames), length_(frames) {}
    ~HangingSource() override { disk_->freedBy = std::this_thread::get_id(); }

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

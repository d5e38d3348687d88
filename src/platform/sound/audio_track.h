#pragma once

#include "platform/sound/audio_device.h"
#include "platform/sound/audio_source.h"

#include <QtGlobal>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace velorama {

/// One source as a device plays it. The device's thread, which calls `fill`, may be kept in a read
/// by a disk that does not answer; everything else is called from one thread and waits for none.
class AudioTrack : public AudioFeed {
public:
    explicit AudioTrack(std::unique_ptr<AudioSource> source);

    int rate() const { return rate_; }
    int channels() const { return channels_; }
    /// As the source tells; 0 once it is left.
    qint64 length() const;

    /// Lets the sound run or holds it. What a read brings while it is held is kept for later.
    void setRunning(bool running);
    /// From here on there is silence. The source is freed on a thread of its own, or by the one
    /// that is still reading in it when that comes back.
    void leave();

    /// Frames given to the device so far.
    qint64 framesHanded() const { return handed_; }
    /// True once the source has given its last frame.
    bool ended() const { return ended_; }

    void fill(unsigned char* bytes, int count) override;

private:
    void read(std::unique_lock<std::mutex>& guard, int frames);
    void handOver(float* out, int frames);
    void freeOnceLeft(std::unique_lock<std::mutex>& guard);

    const int rate_;
    const int channels_;
    std::mutex lock_;
    std::condition_variable changed_;
    std::unique_ptr<AudioSource> source_;  // gone some time after it is left
    bool running_ = false;
    bool left_ = false;
    bool first_ = true;
    bool reading_ = false;
    // What has been read and not yet been handed over.
    std::vector<float> samples_;
    std::optional<int> waiting_;  // frames of it
    std::atomic<qint64> handed_ = 0;
    std::atomic<bool> ended_ = false;
};

}  // namespace velorama

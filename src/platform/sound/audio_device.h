#pragma once

#include <memory>

namespace velorama {

/// What a device plays.
class AudioFeed {
public:
    AudioFeed() = default;
    AudioFeed(const AudioFeed&) = delete;
    AudioFeed& operator=(const AudioFeed&) = delete;
    virtual ~AudioFeed() = default;

    /// Writes `count` bytes of floats, channels interleaved. Runs on the device's thread, from its
    /// opening on, and may keep only that waiting.
    virtual void fill(unsigned char* bytes, int count) = 0;
};

/// One device of the system's sound output, opened, closed and given back on threads of their own:
/// a sound server that does not answer keeps those waiting, and nobody else. They own what they
/// work on and may outlive this object, which is used from one thread.
class AudioDevice {
public:
    struct Wanted {
        int rate = 0;
        int channels = 0;
        std::shared_ptr<AudioFeed> feed;  // kept until the device is closed
    };
    enum class State { Closed, Opening, Open, Failed };

    AudioDevice();
    AudioDevice(const AudioDevice&) = delete;
    AudioDevice& operator=(const AudioDevice&) = delete;
    /// Lets the last sound out, and leaves a device that does not answer alone after two seconds.
    ~AudioDevice();

    /// Closes what is open and opens a device. Waits a moment for it, too short to be noticed;
    /// what comes later is told by `state`.
    void open(const Wanted& wanted);
    State state() const;
    /// Does not wait for the last sound, nor for the feed, which may be asked for some more.
    void close();

private:
    struct Shared;
    static void work(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
};

}  // namespace velorama

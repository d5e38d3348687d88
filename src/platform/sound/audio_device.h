#pragma once

#include <memory>

namespace velorama {

/// One device of the system's sound output, opened, closed and given back on threads of their own:
/// a sound server that does not answer keeps those waiting, and nobody else. They own what they
/// work on and may outlive this object, which is used from one thread.
class AudioDevice {
public:
    /// Asks for floats, channels interleaved: `count` bytes of them. Runs on the device's thread.
    using Callback = void (*)(void* self, unsigned char* bytes, int count);
    struct Wanted {
        int rate = 0;
        int channels = 0;
        Callback callback = nullptr;
        void* self = nullptr;
    };
    enum class State { Closed, Opening, Open, Failed };

    AudioDevice();
    AudioDevice(const AudioDevice&) = delete;
    AudioDevice& operator=(const AudioDevice&) = delete;
    /// Lets the last sound out, and leaves a device that does not answer alone after two seconds.
    ~AudioDevice();

    /// Closes what is open and opens a held device. Waits a moment for it, too short to be noticed;
    /// what comes later is told by `state`.
    void open(const Wanted& wanted);
    State state() const;
    /// Lets it ask for sound, at once or when it has opened, or keeps it from asking.
    void setRunning(bool running);
    /// It does not ask any more afterwards. Does not wait for the last sound.
    void close();

private:
    struct Shared;
    static void work(const std::shared_ptr<Shared>& shared);

    std::shared_ptr<Shared> shared_;
};

}  // namespace velorama

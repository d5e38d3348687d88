#pragma once

#include "platform/sound/audio_device.h"

#include <QtGlobal>

#include <atomic>

namespace velorama {

class AudioSource;

/// The system's sound output, playing one source. A thread of the device's own calls the source
/// while it is open; everything else here is called from one thread.
class AudioOutput {
public:
    AudioOutput() = default;
    AudioOutput(const AudioOutput&) = delete;
    AudioOutput& operator=(const AudioOutput&) = delete;
    ~AudioOutput();

    /// Opens the device, silent, for a source that must live until `close`. False without a device.
    /// One that keeps us waiting is taken for open: the position stands until it is there.
    bool open(AudioSource& source);
    /// True if the device that was waited for turned out not to be had.
    bool failed() const { return device_.state() == AudioDevice::State::Failed; }
    /// Lets the sound run or holds it; the position stands while it is held.
    void setRunning(bool running) { device_.setRunning(running); }
    /// The source is not touched any more afterwards. Does not wait for the device, which takes its
    /// time to let the last sound out.
    void close();

    /// Frames given to the device so far.
    qint64 framesHanded() const { return handed_; }
    /// True once the source has given its last frame.
    bool sourceEnded() const { return ended_; }

private:
    static void onDeviceWants(void* self, unsigned char* bytes, int count);
    void fill(float* out, int frames);

    AudioSource* source_ = nullptr;
    std::atomic<qint64> handed_ = 0;
    std::atomic<bool> ended_ = false;
    AudioDevice device_;
};

}  // namespace velorama

#pragma once

#include "platform/sound/audio_device.h"
#include "platform/sound/audio_track.h"

#include <memory>

namespace velorama {

/// The system's sound output, playing one source. A thread of the device's own reads it; everything
/// here is called from one thread, and waits for neither the device nor a read that a disk keeps
/// waiting.
class AudioOutput {
public:
    AudioOutput() = default;
    AudioOutput(const AudioOutput&) = delete;
    AudioOutput& operator=(const AudioOutput&) = delete;
    ~AudioOutput();

    /// Opens the device, silent, for a source. False without a device. One that keeps us waiting is
    /// taken for open: the position stands until it is there.
    bool open(std::unique_ptr<AudioSource> source);
    /// True if the device that was waited for turned out not to be had.
    bool failed() const { return device_.state() == AudioDevice::State::Failed; }
    /// Null where nothing is open.
    AudioTrack* track() const { return track_.get(); }
    /// The source is left to the threads that work on it.
    void close();

private:
    std::shared_ptr<AudioTrack> track_;
    AudioDevice device_;
};

}  // namespace velorama

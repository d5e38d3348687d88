#pragma once

#include <QtGlobal>

namespace velorama {

/// One opened music file that gives its sound piece by piece.
class AudioSource {
public:
    AudioSource() = default;
    AudioSource(const AudioSource&) = delete;
    AudioSource& operator=(const AudioSource&) = delete;
    virtual ~AudioSource() = default;

    /// Frames a second, 1,000 to 384,000.
    virtual int rate() const = 0;
    /// Samples a frame: 1, 2, 4, 6 or 8.
    virtual int channels() const = 0;
    /// Frames of the whole file, above 0. May be a guess, beyond what has been read, until the file
    /// has been looked through.
    virtual qint64 length() = 0;
    /// Writes up to `frames` frames of floats, channels interleaved, and tells how many; fewer than
    /// asked only at the end. Runs on the device's thread, never at the same time as itself.
    virtual int read(float* out, int frames) = 0;
};

}  // namespace velorama

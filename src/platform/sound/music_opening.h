#pragma once

#include "platform/sound/music_file.h"

#include <chrono>
#include <future>

namespace velorama {

/// A file that is being opened on a thread of its own, which goes on for nobody once this object
/// is gone. Used from one thread.
class MusicOpening {
public:
    /// `path` goes through `hostFile`, on that thread.
    explicit MusicOpening(const QString& path);
    MusicOpening(const MusicOpening&) = delete;
    MusicOpening& operator=(const MusicOpening&) = delete;
    ~MusicOpening();

    bool isDoneWithin(std::chrono::milliseconds limit) const;
    /// Once it is done, and but once: nothing is asked of this object afterwards.
    MusicFile take();

private:
    std::future<MusicFile> file_;
};

}  // namespace velorama

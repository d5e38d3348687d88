#include "platform/sound/audio_output.h"

#include <utility>

namespace velorama {

AudioOutput::~AudioOutput() {
    close();
}

bool AudioOutput::open(std::unique_ptr<AudioSource> source) {
    close();
    track_ = std::make_shared<AudioTrack>(std::move(source));
    device_.open({track_->rate(), track_->channels(), track_});
    if (failed()) {
        close();
    }
    return track_ != nullptr;
}

void AudioOutput::close() {
    if (track_) {
        track_->leave();
        track_.reset();
    }
    device_.close();
}

}  // namespace velorama

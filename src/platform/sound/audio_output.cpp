#include "platform/sound/audio_output.h"

#include "platform/sound/audio_source.h"

#include <algorithm>

namespace velorama {
namespace {

/// Float files may hold anything, also what is no number.
float audible(float sample) {
    return sample >= -1 ? std::min(sample, 1.0F) : (sample < -1 ? -1.0F : 0.0F);
}

}  // namespace

AudioOutput::~AudioOutput() {
    close();
}

bool AudioOutput::open(AudioSource& source) {
    close();
    source_ = &source;
    handed_ = 0;
    ended_ = false;
    device_.open({source.rate(), source.channels(), &AudioOutput::onDeviceWants, this});
    if (failed()) {
        source_ = nullptr;
    }
    return source_ != nullptr;
}

void AudioOutput::close() {
    device_.close();
    source_ = nullptr;
}

void AudioOutput::onDeviceWants(void* self, unsigned char* bytes, int count) {
    auto* output = static_cast<AudioOutput*>(self);
    const int frameSize = output->source_->channels() * static_cast<int>(sizeof(float));
    output->fill(reinterpret_cast<float*>(bytes), count / frameSize);
}

void AudioOutput::fill(float* out, int frames) {
    const int channels = source_->channels();
    const int got = ended_ ? 0 : source_->read(out, frames);
    float* const silence = out + qsizetype(got) * channels;
    std::transform(out, silence, out, audible);
    std::fill(silence, out + qsizetype(frames) * channels, 0.0F);
    handed_ += got;
    if (got < frames) {
        ended_ = true;
    }
}

}  // namespace velorama

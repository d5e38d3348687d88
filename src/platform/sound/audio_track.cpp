#include "platform/sound/audio_track.h"

#include "platform/process/detached_thread.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace velorama {
namespace {

// How long a device that has just opened waits to be let run before it takes its first turn.
constexpr std::chrono::milliseconds FirstTurn(50);

/// Float files may hold anything, also what is no number.
float audible(float sample) {
    return sample >= -1 ? std::min(sample, 1.0F) : (sample < -1 ? -1.0F : 0.0F);
}

/// A disk that does not answer may keep even that waiting.
void freeOnAThread(std::unique_ptr<AudioSource> source) {
    startDetached([source = std::move(source)]() mutable { source.reset(); });
}

}  // namespace

AudioTrack::AudioTrack(std::unique_ptr<AudioSource> source)
    : rate_(source->rate()), channels_(source->channels()), source_(std::move(source)) {}

qint64 AudioTrack::length() const {
    // Nobody takes the source away before it is left, and only this thread leaves it.
    return left_ ? 0 : source_->length();
}

void AudioTrack::setRunning(bool running) {
    const std::lock_guard guard(lock_);
    running_ = running;
    changed_.notify_all();
}

void AudioTrack::leave() {
    std::unique_lock guard(lock_);
    running_ = false;
    left_ = true;
    changed_.notify_all();
    std::unique_ptr<AudioSource> source = reading_ ? nullptr : std::move(source_);
    guard.unlock();
    if (source) {
        freeOnAThread(std::move(source));
    }
}

void AudioTrack::fill(unsigned char* bytes, int count) {
    const int frames = count / (channels_ * static_cast<int>(sizeof(float)));
    auto* const out = reinterpret_cast<float*>(bytes);
    std::unique_lock guard(lock_);
    if (std::exchange(first_, false)) {
        // A turn of silence would have to be heard to its end before the track begins.
        changed_.wait_for(guard, FirstTurn, [this] { return running_ || left_; });
    }
    if (running_ && !waiting_) {
        read(guard, frames);
    }
    handOver(out, frames);
}

/// With the lock held, but not while the source is read.
void AudioTrack::read(std::unique_lock<std::mutex>& guard, int frames) {
    reading_ = true;
    guard.unlock();
    samples_.resize(static_cast<size_t>(frames) * static_cast<size_t>(channels_));
    const int got = ended_ ? 0 : source_->read(samples_.data(), frames);
    std::transform(samples_.begin(), samples_.end(), samples_.begin(), audible);
    guard.lock();
    reading_ = false;
    waiting_ = got;
    freeOnceLeft(guard);
}

void AudioTrack::freeOnceLeft(std::unique_lock<std::mutex>& guard) {
    if (left_) {
        std::unique_ptr<AudioSource> source = std::move(source_);
        guard.unlock();
        source.reset();
        guard.lock();
    }
}

void AudioTrack::handOver(float* out, int frames) {
    const int got =
        running_ ? std::min(std::exchange(waiting_, std::nullopt).value_or(0), frames) : 0;
    const qsizetype sound = qsizetype(got) * channels_;
    std::copy_n(samples_.begin(), sound, out);
    std::fill(out + sound, out + qsizetype(frames) * channels_, 0.0F);
    handed_ += got;
    if (running_ && got < frames) {
        ended_ = true;
    }
}

}  // namespace velorama

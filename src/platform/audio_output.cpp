#include "platform/audio_output.h"

#include "platform/audio_source.h"

#include <QLibrary>

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <system_error>

namespace velorama {
namespace {

// What one turn of the device takes: shorter turns have been heard as gaps.
constexpr int TurnFrames = 4096;
constexpr int TurnRate = 48000;

/// Frames of a turn at this rate, a power of two, about as long as TurnFrames at TurnRate.
Uint16 turnFrames(int rate) {
    int frames = 256;
    while (frames < 32768 && qint64(frames) * TurnRate < qint64(rate) * TurnFrames) {
        frames *= 2;
    }
    return static_cast<Uint16>(frames);
}

/// Float files may hold anything, also what is no number.
float audible(float sample) {
    return sample >= -1 ? std::min(sample, 1.0F) : (sample < -1 ? -1.0F : 0.0F);
}

void noMessage(const char*, int, const char*, int, const char*, ...) {}

/// ALSA writes to the error stream, at every attempt, that there is no card. Where there is no ALSA
/// nothing happens.
void silenceAlsa() {
    using SetHandler = int (*)(decltype(&noMessage));
    const auto set = reinterpret_cast<SetHandler>(
        QLibrary::resolve(QStringLiteral("asound"), 2, "snd_lib_error_set_handler"));
    if (set) {
        set(&noMessage);
    }
}

}  // namespace

AudioOutput::~AudioOutput() {
    close();
    end();
}

bool AudioOutput::begin() {
    if (begun_) {
        return true;
    }
    // A device that cannot be had is a failure like any other; nothing of it goes to the terminal.
    SDL_LogSetOutputFunction(nullptr, nullptr);
    silenceAlsa();
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Velorama");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Music");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_ROLE, "music");
    begun_ = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
    if (begun_) {
        // Nobody takes these from the queue.
        SDL_EventState(SDL_AUDIODEVICEADDED, SDL_IGNORE);
        SDL_EventState(SDL_AUDIODEVICEREMOVED, SDL_IGNORE);
    }
    return begun_;
}

void AudioOutput::end() {
    closing_.clear();  // waits for each
    if (begun_) {
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        begun_ = false;
    }
}

bool AudioOutput::openDevice() {
    if (!begin()) {
        return false;
    }
    SDL_AudioSpec wanted = {};
    wanted.freq = source_->rate();
    wanted.format = AUDIO_F32SYS;
    wanted.channels = static_cast<Uint8>(source_->channels());
    wanted.samples = turnFrames(source_->rate());
    wanted.callback = &AudioOutput::onDeviceWants;
    wanted.userdata = this;
    device_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    return device_ != 0;
}

bool AudioOutput::open(AudioSource& source) {
    close();
    source_ = &source;
    handed_ = 0;
    ended_ = false;
    const bool wasBegun = begun_;
    if (openDevice()) {
        return true;
    }
    // The sound server met at the beginning may be gone, and another one may be there by now.
    end();
    if (wasBegun && openDevice()) {
        return true;
    }
    end();
    source_ = nullptr;
    return false;
}

void AudioOutput::setRunning(bool running) {
    if (device_ != 0) {
        SDL_PauseAudioDevice(device_, running ? 0 : 1);
    }
}

void AudioOutput::close() {
    if (device_ != 0) {
        // A held device never calls back, and so this object and the source are free at once.
        SDL_PauseAudioDevice(device_, 1);
        std::erase_if(closing_, [](const std::future<void>& closing) {
            return closing.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        });
        try {
            closing_.push_back(std::async(std::launch::async, SDL_CloseAudioDevice, device_));
        } catch (const std::system_error&) {
            SDL_CloseAudioDevice(device_);  // No thread to be had: it takes its time here, then.
        }
        device_ = 0;
    }
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
    std::transform(out, out + got * channels, out, audible);
    std::fill(out + got * channels, out + frames * channels, 0.0F);
    handed_ += got;
    if (got < frames) {
        ended_ = true;
    }
}

}  // namespace velorama

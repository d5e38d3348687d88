#include "platform/audio_device.h"

#include "platform/detached_thread.h"

#include <QLibrary>

#include <SDL.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

namespace velorama {
namespace {

using namespace std::chrono_literals;

// How long the user interface waits for a device.
constexpr auto Moment = 100ms;
// The last sound takes a fifth of a second to be let out.
constexpr auto LongestEnd = 2s;

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

/// Opening and giving back change what belongs to the whole process. Never destroyed, since a
/// thread may still be waiting inside when the process ends.
std::mutex& systemLock() {
    static auto* lock = new std::mutex;
    return *lock;
}

bool begin() {
    // A device that cannot be had is a failure like any other; nothing of it goes to the terminal.
    SDL_LogSetOutputFunction(nullptr, nullptr);
    silenceAlsa();
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Velorama");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Music");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_ROLE, "music");
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        return false;
    }
    // Nobody takes these from the queue.
    SDL_EventState(SDL_AUDIODEVICEADDED, SDL_IGNORE);
    SDL_EventState(SDL_AUDIODEVICEREMOVED, SDL_IGNORE);
    return true;
}

SDL_AudioDeviceID openHeld(const AudioDevice::Wanted& wanted) {
    SDL_AudioSpec spec = {};
    spec.freq = wanted.rate;
    spec.format = AUDIO_F32SYS;
    spec.channels = static_cast<Uint8>(wanted.channels);
    spec.samples = turnFrames(wanted.rate);
    spec.callback = wanted.callback;
    spec.userdata = wanted.self;
    return SDL_OpenAudioDevice(nullptr, 0, &spec, nullptr, 0);
}

}  // namespace

struct AudioDevice::Shared : std::enable_shared_from_this<Shared> {
    std::mutex lock;
    std::condition_variable changed;
    std::optional<Wanted> wanted;  // what no thread has taken up yet
    State state = State::Closed;
    SDL_AudioDeviceID device = 0;
    bool running = false;
    bool working = false;  // a thread is opening or giving back
    bool leaving = false;
    bool begun = false;  // touched by that thread only
    int closing = 0;     // threads that let the last sound out

    bool idle() const { return !working && closing == 0; }

    /// With the lock held. A held device never calls back.
    void letGo(SDL_AudioDeviceID old) {
        SDL_PauseAudioDevice(old, 1);
        ++closing;
        const auto close = [self = shared_from_this(), old] {
            SDL_CloseAudioDevice(old);
            const std::lock_guard guard(self->lock);
            --self->closing;
            self->changed.notify_all();
        };
        if (!startDetached(close)) {
            SDL_CloseAudioDevice(old);  // It takes its time here, then.
            --closing;
        }
    }

    void endSystem() {
        std::unique_lock guard(lock);
        changed.wait(guard, [this] { return closing == 0; });
        guard.unlock();
        if (begun) {
            SDL_QuitSubSystem(SDL_INIT_AUDIO);
            begun = false;
        }
    }

    SDL_AudioDeviceID openDevice(const Wanted& what) {
        begun = begun || begin();
        return begun ? openHeld(what) : 0;
    }

    SDL_AudioDeviceID openAnew(const Wanted& what) {
        const std::lock_guard guard(systemLock());
        const bool wasBegun = begun;
        SDL_AudioDeviceID opened = openDevice(what);
        if (opened == 0) {
            // The sound server met at the beginning may be gone, and another one be there by now.
            endSystem();
            opened = wasBegun ? openDevice(what) : 0;
        }
        if (opened == 0) {
            endSystem();
        }
        return opened;
    }

    /// With the lock held; for a device that has come, or 0 for one that has not.
    void take(SDL_AudioDeviceID opened) {
        if (state == State::Opening && !wanted) {
            device = opened;
            state = opened != 0 ? State::Open : State::Failed;
            if (opened != 0) {
                SDL_PauseAudioDevice(opened, running ? 0 : 1);
            }
        } else if (opened != 0) {
            letGo(opened);  // Nobody waits for it any more.
        }
    }
};

/// Opens what is wanted, the newest only, until nothing more is.
void AudioDevice::work(const std::shared_ptr<Shared>& shared) {
    std::unique_lock guard(shared->lock);
    while (shared->wanted) {
        const Wanted wanted = *std::exchange(shared->wanted, std::nullopt);
        guard.unlock();
        const SDL_AudioDeviceID opened = shared->openAnew(wanted);
        guard.lock();
        shared->take(opened);
        shared->changed.notify_all();
    }
    if (shared->leaving) {
        guard.unlock();
        {
            const std::lock_guard system(systemLock());
            shared->endSystem();
        }
        guard.lock();
    }
    shared->working = false;
    shared->changed.notify_all();
}

AudioDevice::AudioDevice() : shared_(std::make_shared<Shared>()) {}

AudioDevice::~AudioDevice() {
    close();
    std::unique_lock guard(shared_->lock);
    shared_->leaving = true;
    if (!shared_->working) {
        shared_->working = startDetached([shared = shared_] { work(shared); });
    }
    shared_->changed.wait_for(guard, LongestEnd, [this] { return shared_->idle(); });
}

void AudioDevice::open(const Wanted& wanted) {
    close();
    std::unique_lock guard(shared_->lock);
    const bool late =
        shared_->working;  // An earlier one still waits, and this one would behind it.
    shared_->wanted = wanted;
    shared_->running = false;
    shared_->state = State::Opening;
    if (!late && !startDetached([shared = shared_] { work(shared); })) {
        shared_->wanted.reset();
        shared_->state = State::Failed;
        return;
    }
    shared_->working = true;
    if (!late) {
        shared_->changed.wait_for(guard, Moment,
                                  [this] { return shared_->state != State::Opening; });
    }
}

AudioDevice::State AudioDevice::state() const {
    const std::lock_guard guard(shared_->lock);
    return shared_->state;
}

void AudioDevice::setRunning(bool running) {
    const std::lock_guard guard(shared_->lock);
    shared_->running = running;
    if (shared_->device != 0) {
        SDL_PauseAudioDevice(shared_->device, running ? 0 : 1);
    }
}

void AudioDevice::close() {
    const std::lock_guard guard(shared_->lock);
    if (shared_->device != 0) {
        shared_->letGo(std::exchange(shared_->device, 0));
    }
    shared_->wanted.reset();
    shared_->state = State::Closed;
}

}  // namespace velorama

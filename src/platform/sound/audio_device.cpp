#include "platform/sound/audio_device.h"

#include "platform/process/detached_thread.h"

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

// What one turn of the device takes. Shorter turns have been heard as gaps, and a turn wakes the
// processor a few times whatever its length; a pause is heard up to a turn late.
constexpr int TurnFrames = 8192;
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

void onTurn(void* feed, Uint8* bytes, int count) {
    static_cast<AudioFeed*>(feed)->fill(bytes, count);
}

struct Device {
    SDL_AudioDeviceID id = 0;  // 0: none
    std::shared_ptr<AudioFeed> feed;
};

Device openFor(const AudioDevice::Wanted& wanted) {
    SDL_AudioSpec spec = {};
    spec.freq = wanted.rate;
    spec.format = AUDIO_F32SYS;
    spec.channels = static_cast<Uint8>(wanted.channels);
    spec.samples = turnFrames(wanted.rate);
    spec.callback = &onTurn;
    spec.userdata = wanted.feed.get();
    const SDL_AudioDeviceID id = SDL_OpenAudioDevice(nullptr, 0, &spec, nullptr, 0);
    // At once: its thread is about to take the first turn.
    SDL_PauseAudioDevice(id, 0);
    return {id, wanted.feed};
}

}  // namespace

struct AudioDevice::Shared {
    std::mutex lock;
    std::condition_variable changed;
    std::optional<Wanted> wanted;  // what no thread has taken up yet
    State state = State::Closed;
    Device device;
    bool working = false;  // a thread is opening or giving back
    bool leaving = false;
    bool begun = false;  // touched by that thread only
    int closing = 0;     // threads that let the last sound out

    bool idle() const { return !working && closing == 0; }

    /// With the lock held.
    static void letGo(const std::shared_ptr<Shared>& self, const Device& old) {
        ++self->closing;
        const auto close = [self, old] {
            SDL_CloseAudioDevice(old.id);
            SDL_TLSCleanup();
            const std::lock_guard guard(self->lock);
            --self->closing;
            self->changed.notify_all();
        };
        if (!startDetached(close)) {
            SDL_CloseAudioDevice(old.id);  // It takes its time here, then.
            --self->closing;
        }
    }

    bool areClosedWithin(std::chrono::milliseconds limit) {
        std::unique_lock guard(lock);
        return changed.wait_for(guard, limit, [this] { return closing == 0; });
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

    Device openDevice(const Wanted& what) {
        begun = begun || begin();
        return begun ? openFor(what) : Device();
    }

    Device openAnew(const Wanted& what) {
        const std::lock_guard guard(systemLock());
        const bool wasBegun = begun;
        Device opened = openDevice(what);
        // A device that hangs in its feed is not closed for ever.
        if (opened.id == 0 && areClosedWithin(LongestEnd)) {
            // The sound server met at the beginning may be gone, and another one be there by now.
            endSystem();
            opened = wasBegun ? openDevice(what) : Device();
            if (opened.id == 0) {
                endSystem();
            }
        }
        return opened;
    }

    /// With the lock held; for a device that has come, or one that has not.
    static void take(const std::shared_ptr<Shared>& self, const Device& opened) {
        if (self->state == State::Opening && !self->wanted) {
            self->device = opened;
            self->state = opened.id != 0 ? State::Open : State::Failed;
        } else if (opened.id != 0) {
            letGo(self, opened);  // Nobody waits for it any more.
        }
    }
};

/// Opens what is wanted, the newest only, until nothing more is.
void AudioDevice::work(const std::shared_ptr<Shared>& shared) {
    std::unique_lock guard(shared->lock);
    while (shared->wanted) {
        const Wanted wanted = *std::exchange(shared->wanted, std::nullopt);
        guard.unlock();
        const Device opened = shared->openAnew(wanted);
        guard.lock();
        Shared::take(shared, opened);
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
    SDL_TLSCleanup();  // what the library keeps for a thread it did not start itself
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

void AudioDevice::close() {
    const std::lock_guard guard(shared_->lock);
    if (shared_->device.id != 0) {
        Shared::letGo(shared_, std::exchange(shared_->device, Device()));
    }
    shared_->wanted.reset();
    shared_->state = State::Closed;
}

}  // namespace velorama

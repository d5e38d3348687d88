#include "peers.h"
#include "sound_server.h"
#include "stopwatch.h"
#include "works.h"

#include "platform/sound/media_commands.h"

#include <QCoreApplication>
#include <QFile>

#include <SDL.h>
#include <mpg123.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <memory>
#include <thread>

namespace velorama::bench {
namespace {

using namespace std::chrono_literals;

constexpr double playingGoal = 1.3;
constexpr double openingGoal = 1.2;
constexpr int secondsPlayed = 40;
// MPEG 1 layer 3 at 44.1 kHz.
constexpr int framesPlayed = secondsPlayed * 44100 / 1152;
constexpr double patience = 60'000;
constexpr auto betweenLooks = 100us;

bool openAndPlay(MediaCommands& device, const QString& file) {
    return device.send(QStringLiteral("open \"%1\" type MPEGVideo alias track").arg(file)) &&
           device.send(QStringLiteral("play track"));
}

int position(MediaCommands& device) {
    QString answer;
    device.send(QStringLiteral("status track position"), &answer);
    return answer.toInt();
}

/// A track decoded by libmpg123 alone, in the shape and with the turns that the program asks for.
struct Plain {
    mpg123_handle* handle = nullptr;
    std::atomic<bool> sounded = false;

    static void onDeviceWants(void* self, Uint8* bytes, int count) {
        auto* plain = static_cast<Plain*>(self);
        size_t got = 0;
        mpg123_read(plain->handle, bytes, static_cast<size_t>(count), &got);
        std::fill(bytes + got, bytes + count, Uint8(0));
        const auto* samples = reinterpret_cast<const float*>(bytes);
        if (std::any_of(samples, samples + got / sizeof(float),
                        [](float sample) { return std::abs(sample) > 0.001F; })) {
            plain->sounded = true;
        }
    }

    bool openFile(const QString& file, long& rate) {
        handle = mpg123_new(nullptr, nullptr);
        int channels = 0;
        int encoding = 0;
        return handle &&
               mpg123_param(handle, MPG123_ADD_FLAGS,
                            MPG123_QUIET | MPG123_FORCE_FLOAT | MPG123_FORCE_STEREO,
                            0) == MPG123_OK &&
               mpg123_open(handle, QFile::encodeName(file).constData()) == MPG123_OK &&
               mpg123_scan(handle) == MPG123_OK &&
               mpg123_getformat(handle, &rate, &channels, &encoding) == MPG123_OK;
    }

    SDL_AudioDeviceID play(const QString& file) {
        long rate = 0;
        if (!openFile(file, rate) || SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
            return 0;
        }
        SDL_AudioSpec wanted = {};
        wanted.freq = static_cast<int>(rate);
        wanted.format = AUDIO_F32SYS;
        wanted.channels = 2;
        wanted.samples = 4096;
        wanted.callback = &Plain::onDeviceWants;
        wanted.userdata = this;
        const SDL_AudioDeviceID device = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
        SDL_PauseAudioDevice(device, 0);
        return device;
    }
};

/// A server, the track and what is missing of them.
struct Sound {
    SoundServer server;
    QString track = fourMinutes();

    QString whyAbsent() const {
        return server.whyAbsent() +
               (track.isEmpty() ? QStringLiteral("the track needs sox and lame") : QString());
    }
    /// Runs a process to its end; what it printed, nothing if it failed.
    std::optional<QByteArray> run(const QString& program, const QStringList& arguments) const {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        server.addTo(environment);
        process.setProcessEnvironment(environment);
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(program, arguments);
        if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit ||
            process.exitCode() != 0) {
            return std::nullopt;
        }
        return process.readAllStandardOutput();
    }
    std::optional<double> processorTime(const QString& program,
                                        const QStringList& arguments) const {
        const double before = timeOfChildren();
        const auto output = run(program, arguments);
        return output ? std::optional(timeOfChildren() - before) : std::nullopt;
    }
    std::optional<double> printed(const QString& option) const {
        const auto output = run(QCoreApplication::applicationFilePath(), {option, track});
        return output ? std::optional(output->trimmed().toDouble()) : std::nullopt;
    }
};

}  // namespace

int playTrack(const QString& file) {
    const auto device = makeMediaPlayer();
    const Stopwatch watch;
    if (!openAndPlay(*device, file)) {
        return 1;
    }
    while (position(*device) < secondsPlayed * 1000) {
        if (watch.milliseconds() > patience) {
            return 1;
        }
        std::this_thread::sleep_for(100ms);
    }
    device->send(QStringLiteral("close track"));
    return 0;
}

int timeFirstSound(const QString& file) {
    const auto device = makeMediaPlayer();
    const Stopwatch watch;
    if (!openAndPlay(*device, file)) {
        return 1;
    }
    // The track sounds from its first sample: frames handed are frames heard.
    while (position(*device) == 0 && watch.milliseconds() < patience) {
        std::this_thread::sleep_for(betweenLooks);
    }
    std::printf("%.3f\n", watch.milliseconds());
    return position(*device) > 0 ? 0 : 1;
}

int timeFirstPlainSound(const QString& file) {
    Plain plain;
    const Stopwatch watch;
    const SDL_AudioDeviceID device = plain.play(file);
    while (device != 0 && !plain.sounded && watch.milliseconds() < patience) {
        std::this_thread::sleep_for(betweenLooks);
    }
    std::printf("%.3f\n", watch.milliseconds());
    SDL_CloseAudioDevice(device);
    mpg123_delete(plain.handle);
    return plain.sounded ? 0 : 1;
}

Contest playingMusic() {
    const auto sound = std::make_shared<Sound>();
    const QString mpg123 = QStringLiteral("mpg123");
    return {.work = QStringLiteral("processor time of %1 s of an MP3").arg(secondsPlayed),
            .unit = QStringLiteral("ms"),
            .rounds = 2,
            .ours =
                [sound] {
                    return sound->processorTime(QCoreApplication::applicationFilePath(),
                                                {QStringLiteral("--play-track"), sound->track});
                },
            .against = {{.name = QStringLiteral("mpg123 -q -o pulse"),
                         .goal = playingGoal,
                         .measure =
                             [sound, mpg123] {
                                 return sound->processorTime(
                                     mpg123, {QStringLiteral("-q"), QStringLiteral("-o"),
                                              QStringLiteral("pulse"), QStringLiteral("-n"),
                                              QString::number(framesPlayed), sound->track});
                             },
                         .absent = whyAbsent(mpg123, mpg123)}},
            .absent = sound->whyAbsent(),
            .warmUp = false};
}

Contest firstSound() {
    const auto sound = std::make_shared<Sound>();
    return {.work = QStringLiteral("open to the first sound of a four-minute MP3"),
            .unit = QStringLiteral("ms"),
            .rounds = 11,
            .ours = [sound] { return sound->printed(QStringLiteral("--first-sound")); },
            .against = {{.name = QStringLiteral("libmpg123 with a scan, and SDL"),
                         .goal = openingGoal,
                         .measure =
                             [sound] {
                                 return sound->printed(QStringLiteral("--first-plain-sound"));
                             }}},
            .absent = sound->whyAbsent()};
}

}  // namespace velorama::bench

#include "platform/sound/midi_source.h"

#include <QFile>

#include <fluidsynth.h>

#include <algorithm>
#include <chrono>
#include <semaphore>
#include <utility>

namespace velorama {
namespace {

// A larger file is no music, and the player needs twenty times its size in memory.
constexpr qint64 MaxFileSize = 16LL * 1024 * 1024;
// Makes MIDI about as loud as recorded music.
constexpr double Gain = 1.0;
// How long the next track waits for the one before to be let go of.
constexpr std::chrono::milliseconds Moment(100);

void beSilent() {
    for (int level = FLUID_PANIC; level < LAST_LOG_LEVEL; ++level) {
        fluid_set_log_function(level, nullptr, nullptr);
    }
}

QByteArray defaultFont(fluid_settings_t* settings) {
    char* name = nullptr;
    fluid_settings_dupstr(settings, "synth.default-soundfont", &name);
    QByteArray font(name);
    fluid_free(name);
    return font;
}

}  // namespace

struct MidiSynth::Voices {
    explicit Voices(const QByteArray& wantedFont);
    Voices(const Voices&) = delete;
    Voices& operator=(const Voices&) = delete;
    ~Voices() {
        delete_fluid_synth(synth);
        delete_fluid_settings(settings);
    }

    fluid_settings_t* settings;
    fluid_synth_t* synth = nullptr;
    bool hasFont = false;
    std::binary_semaphore free{1};
};

MidiSynth::Voices::Voices(const QByteArray& wantedFont) : settings(new_fluid_settings()) {
    if (!settings) {
        return;
    }
    fluid_settings_setnum(settings, "synth.sample-rate", rate);
    fluid_settings_setnum(settings, "synth.gain", Gain);
    // Time runs with the frames that are rendered, so a pause needs nothing more than not
    // rendering.
    fluid_settings_setstr(settings, "player.timing-source", "sample");
    fluid_settings_setint(settings, "synth.lock-memory", 0);
    synth = new_fluid_synth(settings);
    const QByteArray font = wantedFont.isEmpty() ? defaultFont(settings) : wantedFont;
    hasFont = synth && fluid_synth_sfload(synth, font.constData(), 1) != FLUID_FAILED;
}

MidiSynth::MidiSynth(const QString& soundFont) : font_(QFile::encodeName(soundFont)) {}

MidiSynth::~MidiSynth() = default;

std::shared_ptr<MidiSynth::Voices> MidiSynth::take() {
    if (voices_ && voices_->free.try_acquire_for(Moment)) {
        return voices_;
    }
    beSilent();
    voices_ = std::make_shared<Voices>(font_);
    if (!voices_->hasFont) {
        voices_.reset();
        return nullptr;
    }
    voices_->free.acquire();
    return voices_;
}

namespace {

class MidiSource : public AudioSource {
public:
    MidiSource(std::shared_ptr<MidiSynth::Voices> voices, qint64 length)
        : voices_(std::move(voices)), player_(new_fluid_player(voices_->synth)), length_(length) {}

    ~MidiSource() override {
        if (player_) {
            fluid_player_stop(player_);
            delete_fluid_player(player_);
        }
        fluid_synth_system_reset(voices_->synth);
        voices_->free.release();
    }

    bool start(const PlayableMidi& midi) {
        return player_ &&
               fluid_player_add_mem(player_, midi.bytes.constData(),
                                    static_cast<size_t>(midi.bytes.size())) == FLUID_OK &&
               (midi.tempo == 0 || fluid_player_set_tempo(player_, FLUID_PLAYER_TEMPO_EXTERNAL_MIDI,
                                                          midi.tempo) == FLUID_OK) &&
               fluid_player_play(player_) == FLUID_OK;
    }

    int rate() const override { return MidiSynth::rate; }
    int channels() const override { return 2; }
    qint64 length() override { return length_; }

    /// The player's own word on its end cannot be relied on; frames are counted.
    int read(float* out, int frames) override {
        const int count = static_cast<int>(std::min<qint64>(frames, length_ - done_));
        if (count > 0) {
            fluid_synth_write_float(voices_->synth, count, out, 0, 2, out, 1, 2);
            done_ += count;
        }
        return count;
    }

private:
    std::shared_ptr<MidiSynth::Voices> voices_;
    fluid_player_t* player_;
    qint64 length_;
    qint64 done_ = 0;
};

}  // namespace

std::optional<MidiMusic> readMidi(const QString& file) {
    QFile handle(file);
    if (!handle.open(QIODevice::ReadOnly) || handle.size() > MaxFileSize) {
        return std::nullopt;
    }
    const QByteArray bytes = handle.readAll();
    const QByteArrayView midi = unwrappedMidi(bytes);
    const auto length = midiLength(midi);
    const qint64 frames = length ? length->count() * MidiSynth::rate / 1000000 : 0;
    return frames > 0 ? std::make_optional(MidiMusic{playableMidi(midi), frames}) : std::nullopt;
}

std::unique_ptr<AudioSource> playMidi(const MidiMusic& music, MidiSynth& synth) {
    std::shared_ptr<MidiSynth::Voices> voices = synth.take();
    if (!voices) {
        return nullptr;
    }
    auto source = std::make_unique<MidiSource>(std::move(voices), music.frames);
    return source->start(music.midi) ? std::move(source) : nullptr;
}

}  // namespace velorama

#include "platform/sound/midi_source.h"

#include "platform/sound/midi_length.h"

#include <QFile>

#include <fluidsynth.h>

#include <algorithm>

namespace velorama {
namespace {

// A larger file is no music, and the player needs twenty times its size in memory.
constexpr qint64 MaxFileSize = 16LL * 1024 * 1024;
// Makes MIDI about as loud as recorded music.
constexpr double Gain = 1.0;

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

class MidiSource : public AudioSource {
public:
    MidiSource(fluid_synth_t* synth, fluid_player_t* player, qint64 length)
        : synth_(synth), player_(player), length_(length) {}

    ~MidiSource() override {
        fluid_player_stop(player_);
        delete_fluid_player(player_);
        fluid_synth_system_reset(synth_);
    }

    int rate() const override { return MidiSynth::rate; }
    int channels() const override { return 2; }
    qint64 length() override { return length_; }

    /// The player's own word on its end cannot be relied on; frames are counted.
    int read(float* out, int frames) override {
        const int count = static_cast<int>(std::min<qint64>(frames, length_ - done_));
        if (count > 0) {
            fluid_synth_write_float(synth_, count, out, 0, 2, out, 1, 2);
            done_ += count;
        }
        return count;
    }

private:
    fluid_synth_t* synth_;
    fluid_player_t* player_;
    qint64 length_;
    qint64 done_ = 0;
};

std::unique_ptr<AudioSource> playing(fluid_synth_t* synth, const PlayableMidi& midi,
                                     qint64 frames) {
    fluid_player_t* player = new_fluid_player(synth);
    if (!player) {
        return nullptr;
    }
    auto source = std::make_unique<MidiSource>(synth, player, frames);
    const bool ready =
        fluid_player_add_mem(player, midi.bytes.constData(),
                             static_cast<size_t>(midi.bytes.size())) == FLUID_OK &&
        (midi.tempo == 0 || fluid_player_set_tempo(player, FLUID_PLAYER_TEMPO_EXTERNAL_MIDI,
                                                   midi.tempo) == FLUID_OK) &&
        fluid_player_play(player) == FLUID_OK;
    return ready ? std::move(source) : nullptr;
}

}  // namespace

MidiSynth::MidiSynth(const QString& soundFont) : font_(QFile::encodeName(soundFont)) {}

MidiSynth::~MidiSynth() {
    delete_fluid_synth(synth_);
    delete_fluid_settings(settings_);
}

fluid_synth_t* MidiSynth::synth() {
    if (!synth_ && !make()) {
        delete_fluid_synth(synth_);
        delete_fluid_settings(settings_);
        synth_ = nullptr;
        settings_ = nullptr;
    }
    return synth_;
}

bool MidiSynth::make() {
    beSilent();
    settings_ = new_fluid_settings();
    if (!settings_) {
        return false;
    }
    fluid_settings_setnum(settings_, "synth.sample-rate", rate);
    fluid_settings_setnum(settings_, "synth.gain", Gain);
    // Time runs with the frames that are rendered, so a pause needs nothing more than not
    // rendering.
    fluid_settings_setstr(settings_, "player.timing-source", "sample");
    fluid_settings_setint(settings_, "synth.lock-memory", 0);
    synth_ = new_fluid_synth(settings_);
    const QByteArray font = font_.isEmpty() ? defaultFont(settings_) : font_;
    return synth_ && fluid_synth_sfload(synth_, font.constData(), 1) != FLUID_FAILED;
}

std::unique_ptr<AudioSource> openMidi(const QString& file, MidiSynth& synth) {
    QFile handle(file);
    if (!handle.open(QIODevice::ReadOnly) || handle.size() > MaxFileSize) {
        return nullptr;
    }
    const QByteArray bytes = handle.readAll();
    const QByteArrayView midi = unwrappedMidi(bytes);
    const auto length = midiLength(midi);
    fluid_synth_t* voices = length ? synth.synth() : nullptr;
    const qint64 frames = length ? length->count() * MidiSynth::rate / 1000000 : 0;
    return voices && frames > 0 ? playing(voices, playableMidi(midi), frames) : nullptr;
}

}  // namespace velorama

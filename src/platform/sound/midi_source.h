#pragma once

#include "platform/sound/audio_source.h"
#include "platform/sound/midi_length.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

namespace velorama {

/// The synthesizer that all MIDI files play on. It is made when the first one opens, since its font
/// takes time and memory, and then kept. A track that is still being let go of keeps the one it
/// has, and the next gets another.
class MidiSynth {
public:
    /// `soundFont`: file of this machine; empty for the system's own General MIDI font.
    explicit MidiSynth(const QString& soundFont = QString());
    MidiSynth(const MidiSynth&) = delete;
    MidiSynth& operator=(const MidiSynth&) = delete;
    ~MidiSynth();

    static constexpr int rate = 44100;

    struct Voices;
    /// For one track, which gives them back; null if the font does not load.
    std::shared_ptr<Voices> take();

private:
    QByteArray font_;
    std::shared_ptr<Voices> voices_;
};

/// What a MIDI file plays.
struct MidiMusic {
    PlayableMidi midi;
    qint64 frames = 0;
};

/// Reads a MIDI file, plain or wrapped in RIFF. Nothing if it is damaged.
std::optional<MidiMusic> readMidi(const QString& file);

/// Null if the synthesizer has no font.
std::unique_ptr<AudioSource> playMidi(const MidiMusic& music, MidiSynth& synth);

}  // namespace velorama

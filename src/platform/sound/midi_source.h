#pragma once

#include "platform/sound/audio_source.h"

#include <QByteArray>

struct _fluid_hashtable_t;  // NOLINT(bugprone-reserved-identifier): the library's own name
struct _fluid_synth_t;      // NOLINT(bugprone-reserved-identifier)

namespace velorama {

/// The synthesizer that all MIDI files play on. It is made when the first one opens, since its font
/// takes time and memory, and then kept.
class MidiSynth {
public:
    /// `soundFont`: file of this machine; empty for the system's own General MIDI font.
    explicit MidiSynth(const QString& soundFont = QString());
    MidiSynth(const MidiSynth&) = delete;
    MidiSynth& operator=(const MidiSynth&) = delete;
    ~MidiSynth();

    static constexpr int rate = 44100;

    /// Null if the font does not load.
    _fluid_synth_t* synth();

private:
    bool make();

    QByteArray font_;
    _fluid_hashtable_t* settings_ = nullptr;
    _fluid_synth_t* synth_ = nullptr;
};

/// A MIDI file, plain or wrapped in RIFF. Null if it is damaged or the synthesizer has no font.
std::unique_ptr<AudioSource> openMidi(const QString& file, MidiSynth& synth);

}  // namespace velorama

#pragma once

#include "platform/sound/midi_source.h"

#include <memory>
#include <optional>

namespace velorama {

/// A music file of which everything has come that an opening needs from the disk. Both empty: it
/// does not play.
struct MusicFile {
    std::unique_ptr<AudioSource> sound;
    std::optional<MidiMusic> midi;
};

/// Opens a file of this machine by its content: `MThd`, and `RIFF` with `RMID`, is MIDI, any other
/// `RIFF`, `RIFX` or `RF64` a sound file, and the rest is taken for MP3. Empty if it is no plain
/// file, or damaged. Waits for the disk; any thread.
MusicFile openMusicFile(const QString& file);

/// Null if it does not play.
std::unique_ptr<AudioSource> sourceOf(MusicFile file, MidiSynth& synth);

}  // namespace velorama

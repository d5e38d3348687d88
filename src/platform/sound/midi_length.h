#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <chrono>
#include <optional>

namespace velorama {

/// The MIDI file inside a RIFF wrapping, or the whole of `bytes` if there is none. Empty if the
/// wrapping is damaged.
QByteArrayView unwrappedMidi(QByteArrayView bytes);

/// Playing time of a MIDI file, from its tempo changes and its longest track. Nothing if anything
/// in it is damaged (a track that runs past the file's end, an event that runs past its track's),
/// if it plays nothing, or if it plays for more than a day.
std::optional<std::chrono::microseconds> midiLength(QByteArrayView midi);

/// The same music in a form that the synthesizer takes: 128 tracks at the most, time in beats.
struct PlayableMidi {
    QByteArray bytes;  // empty for a damaged file
    int tempo = 0;     // microseconds a beat from the first to the last; 0: as the file tells
};
PlayableMidi playableMidi(QByteArrayView midi);

}  // namespace velorama

#pragma once

#include <QByteArrayView>

#include <chrono>
#include <optional>

namespace velorama {

/// The MIDI file inside a RIFF wrapping, or the whole of `bytes` if there is none. Empty if the
/// wrapping is damaged.
QByteArrayView unwrappedMidi(QByteArrayView bytes);

/// Playing time of a MIDI file, from its tempo changes and its longest track. Nothing if anything
/// in it is damaged (a track that runs past the file's end, an event that runs past its track's),
/// if its time is not counted in quarter notes, if it plays nothing, or if it plays for more than a
/// day.
std::optional<std::chrono::microseconds> midiLength(QByteArrayView midi);

}  // namespace velorama

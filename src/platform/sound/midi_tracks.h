#pragma once

#include <QByteArrayView>

#include <functional>
#include <optional>
#include <vector>

namespace velorama {

/// The tracks of a MIDI file and how its time is counted.
struct MidiTracks {
    int division = 0;    // ticks a beat
    int fixedTempo = 0;  // microseconds a beat, whatever the tracks say; 0: the tracks tell it
    std::vector<QByteArrayView> tracks;
};

/// Nothing if the head is damaged, or a track is missing or runs past the file's end. Time counted
/// in film frames comes as beats of about a second at a fixed tempo.
std::optional<MidiTracks> midiTracks(QByteArrayView midi);

/// An event without the time before it. `status` is its first byte, which `bytes` may leave out
/// where it is that of the event before.
struct MidiEvent {
    qint64 tick = 0;
    quint8 status = 0;
    QByteArrayView bytes;
};

/// Passes on all events but the track's end. The tick of that end; nothing if the track is damaged:
/// an event that runs past it, a tempo of 0, or more ticks than a synthesizer counts.
std::optional<qint64> walkMidiTrack(QByteArrayView track,
                                    const std::function<void(const MidiEvent&)>& visit);

}  // namespace velorama

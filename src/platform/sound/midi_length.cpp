#include "platform/sound/midi_length.h"

#include "platform/sound/midi_tracks.h"

#include <QtEndian>

#include <algorithm>

namespace velorama {
namespace {

using std::chrono::microseconds;

constexpr qint64 DefaultTempo = 500000;  // microseconds a beat
constexpr int MaxTracks = 128;           // the synthesizer takes no more
constexpr microseconds MaxLength = std::chrono::hours(24);

struct TempoChange {
    qint64 tick;
    qint64 tempo;
};

void noteTempo(const MidiEvent& event, std::vector<TempoChange>& tempos) {
    if (event.status == 0xff && event.bytes[1] == 0x51) {
        qint64 tempo = 0;
        for (const char byte : event.bytes.last(3)) {
            tempo = tempo << 8 | static_cast<quint8>(byte);
        }
        tempos.push_back({event.tick, tempo});
    }
}

/// Time from 0 to `end`, given in ticks.
microseconds timeAt(qint64 end, std::vector<TempoChange>& tempos, qint64 division) {
    std::stable_sort(tempos.begin(), tempos.end(),
                     [](const auto& a, const auto& b) { return a.tick < b.tick; });
    qint64 sum = 0;  // ticks times tempo: 55 bits at the most
    qint64 tick = 0;
    qint64 tempo = DefaultTempo;
    for (const TempoChange& change : tempos) {
        sum += (change.tick - tick) * tempo;
        tick = change.tick;
        tempo = change.tempo;
    }
    sum += (end - tick) * tempo;
    return microseconds(sum / division);
}

void appendTime(QByteArray& bytes, qint64 ticks) {
    for (int shift = 21; shift > 0; shift -= 7) {
        if (ticks >> shift != 0) {
            bytes += static_cast<char>(0x80 | (ticks >> shift & 0x7f));
        }
    }
    bytes += static_cast<char>(ticks & 0x7f);
}

/// All tracks as one. What happens at the same tick keeps the order of the tracks.
QByteArray inOneTrack(const MidiTracks& midi) {
    std::vector<MidiEvent> events;
    qint64 end = 0;
    for (const QByteArrayView track : midi.tracks) {
        const auto last =
            walkMidiTrack(track, [&](const MidiEvent& event) { events.push_back(event); });
        end = std::max(end, last.value_or(0));
    }
    std::stable_sort(events.begin(), events.end(),
                     [](const auto& a, const auto& b) { return a.tick < b.tick; });
    QByteArray bytes;
    qint64 tick = 0;
    for (const MidiEvent& event : events) {
        appendTime(bytes, event.tick - std::exchange(tick, event.tick));
        if (static_cast<quint8>(event.bytes[0]) < 0x80) {
            bytes += static_cast<char>(event.status);
        }
        bytes += event.bytes;
    }
    appendTime(bytes, end - tick);
    return bytes + QByteArray("\xff\x2f\0", 3);
}

template <typename Number>
QByteArray big(Number number) {
    QByteArray bytes(sizeof(number), 0);
    qToBigEndian(number, bytes.data());
    return bytes;
}

}  // namespace

QByteArrayView unwrappedMidi(QByteArrayView bytes) {
    if (!bytes.startsWith("RIFF")) {
        return bytes;
    }
    qint64 at = 12;
    while (at + 8 <= bytes.size()) {
        const qint64 length = qFromLittleEndian<quint32>(bytes.data() + at + 4);
        const qint64 content = at + 8;
        if (length > bytes.size() - content) {
            return {};
        }
        if (bytes.sliced(at, 4) == QByteArrayView("data")) {
            return bytes.sliced(content, length);
        }
        at = content + length + length % 2;
    }
    return {};
}

std::optional<microseconds> midiLength(QByteArrayView midi) {
    const std::optional<MidiTracks> found = midiTracks(midi);
    if (!found) {
        return std::nullopt;
    }
    std::vector<TempoChange> tempos;
    qint64 end = 0;
    for (const QByteArrayView track : found->tracks) {
        const std::optional<qint64> trackEnd =
            walkMidiTrack(track, [&](const MidiEvent& event) { noteTempo(event, tempos); });
        if (!trackEnd) {
            return std::nullopt;
        }
        end = std::max(end, *trackEnd);
    }
    if (found->fixedTempo > 0) {
        tempos = {{0, found->fixedTempo}};
    }
    // A tempo change behind the end of the longest track cannot be: tracks end behind their events.
    const microseconds length = timeAt(end, tempos, found->division);
    return length.count() > 0 && length <= MaxLength ? std::optional(length) : std::nullopt;
}

PlayableMidi playableMidi(QByteArrayView midi) {
    const std::optional<MidiTracks> found = midiTracks(midi);
    if (!found) {
        return {};
    }
    const QByteArray division = big(static_cast<quint16>(found->division));
    if (found->tracks.size() > MaxTracks) {
        const QByteArray track = inOneTrack(*found);
        return {"MThd" + big(quint32(6)) + big(quint16(0)) + big(quint16(1)) + division + "MTrk" +
                    big(static_cast<quint32>(track.size())) + track,
                found->fixedTempo};
    }
    return {midi.toByteArray().replace(12, 2, division), found->fixedTempo};
}

}  // namespace velorama

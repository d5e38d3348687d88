#include "platform/midi_length.h"

#include <QtEndian>

#include <algorithm>
#include <vector>

namespace velorama {
namespace {

using std::chrono::microseconds;

constexpr qint64 DefaultTempo = 500000;  // microseconds a quarter note
constexpr qint64 MaxTicks = 0x3fffffff;  // the synthesizer counts in 32 bits
constexpr int MaxTracks = 128;           // and plays no more tracks
constexpr microseconds MaxLength = std::chrono::hours(24);

struct TempoChange {
    qint64 tick;
    qint64 tempo;
};

/// Reads forward through bytes. A read past the end gives 0 and makes the reader bad for good.
class Reader {
public:
    explicit Reader(QByteArrayView bytes) : bytes_(bytes) {}

    bool good() const { return good_; }
    bool atEnd() const { return bytes_.isEmpty(); }
    void fail() { good_ = false; }

    QByteArrayView take(qint64 count) {
        if (!good_ || count > bytes_.size()) {
            good_ = false;
            return {};
        }
        const QByteArrayView taken = bytes_.first(count);
        bytes_ = bytes_.sliced(count);
        return taken;
    }

    /// A big-endian number of `count` bytes.
    quint32 number(int count) {
        quint32 value = 0;
        for (const char byte : take(count)) {
            value = value << 8 | static_cast<quint8>(byte);
        }
        return value;
    }

    /// A number in groups of seven bits, four at most.
    quint32 variable() {
        quint32 value = 0;
        for (int i = 0; i < 4; ++i) {
            const quint32 byte = number(1);
            value = value << 7 | (byte & 0x7f);
            if (byte < 0x80) {
                return value;
            }
        }
        fail();
        return 0;
    }

private:
    QByteArrayView bytes_;
    bool good_ = true;
};

/// Walks the events of one track and notes where it ends and where the tempo changes.
class Track {
public:
    Track(QByteArrayView bytes, std::vector<TempoChange>& tempos)
        : reader_(bytes), tempos_(tempos) {}

    /// Tick of the track's end, nothing if it is damaged.
    std::optional<qint64> walk() {
        while (reader_.good() && !ended_ && !reader_.atEnd()) {
            tick_ += reader_.variable();
            if (tick_ > MaxTicks) {
                return std::nullopt;
            }
            event();
        }
        return reader_.good() ? std::optional(tick_) : std::nullopt;
    }

private:
    void event() {
        const quint32 first = reader_.number(1);
        if (first == 0xff) {
            meta();
        } else if (first == 0xf0 || first == 0xf7) {
            reader_.take(reader_.variable());
        } else if (first < 0xf0) {
            channelEvent(first);
        } else {
            reader_.fail();
        }
    }

    void meta() {
        const quint32 type = reader_.number(1);
        const QByteArrayView content = reader_.take(reader_.variable());
        if (type == 0x2f) {
            ended_ = true;
        } else if (type == 0x51) {
            const qint64 tempo = content.size() == 3 ? Reader(content).number(3) : 0;
            if (tempo == 0) {
                reader_.fail();
            }
            tempos_.push_back({tick_, tempo});
        }
    }

    /// One or two data bytes; the first of them has been read where the status runs on.
    void channelEvent(quint32 first) {
        const bool running = first < 0x80;
        if (!running) {
            status_ = first;
        }
        if (status_ == 0) {
            reader_.fail();
        }
        const bool single = (status_ & 0xf0) == 0xc0 || (status_ & 0xf0) == 0xd0;
        reader_.take((single ? 1 : 2) - (running ? 1 : 0));
    }

    Reader reader_;
    std::vector<TempoChange>& tempos_;
    qint64 tick_ = 0;
    quint32 status_ = 0;
    bool ended_ = false;
};

/// The content of the next track chunk; chunks of other kinds are passed over.
QByteArrayView nextTrack(Reader& file) {
    while (file.good()) {
        const QByteArrayView kind = file.take(4);
        const QByteArrayView content = file.take(file.number(4));
        if (kind == QByteArrayView("MTrk")) {
            return content;
        }
    }
    return {};
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

}  // namespace

QByteArrayView unwrappedMidi(QByteArrayView bytes) {
    if (!bytes.startsWith("RIFF")) {
        return bytes;
    }
    Reader riff(bytes);
    riff.take(12);
    while (riff.good() && !riff.atEnd()) {
        const QByteArrayView kind = riff.take(4);
        const QByteArrayView size = riff.take(4);
        const qint64 length = size.isEmpty() ? 0 : qFromLittleEndian<quint32>(size.data());
        const QByteArrayView content = riff.take(length);
        if (kind == QByteArrayView("data")) {
            return content;
        }
        if (length % 2 == 1) {
            riff.take(1);
        }
    }
    return {};
}

std::optional<microseconds> midiLength(QByteArrayView midi) {
    Reader file(midi);
    if (file.take(4) != QByteArrayView("MThd") || file.number(4) != 6) {
        return std::nullopt;
    }
    const quint32 format = file.number(2);
    const int tracks = static_cast<int>(file.number(2));
    const quint32 division = file.number(2);
    if (!file.good() || format > 2 || tracks > MaxTracks || division == 0 || division >= 0x8000) {
        return std::nullopt;
    }
    std::vector<TempoChange> tempos;
    qint64 end = 0;
    for (int i = 0; i < tracks; ++i) {
        const std::optional<qint64> trackEnd = Track(nextTrack(file), tempos).walk();
        if (!trackEnd || !file.good()) {
            return std::nullopt;
        }
        end = std::max(end, *trackEnd);
    }
    // A tempo change behind the end of the longest track cannot be: tracks end behind their events.
    const microseconds length = timeAt(end, tempos, division);
    return length.count() > 0 && length <= MaxLength ? std::optional(length) : std::nullopt;
}

}  // namespace velorama

#include "platform/sound/midi_tracks.h"

namespace velorama {
namespace {

constexpr qint64 MaxTicks = 0x3fffffff;  // the synthesizer counts in 32 bits
constexpr quint32 Meta = 0xff;

/// Reads forward through bytes. A read past the end gives 0 and makes the reader bad for good.
class Reader {
public:
    explicit Reader(QByteArrayView bytes) : bytes_(bytes) {}

    bool good() const { return good_; }
    bool atEnd() const { return bytes_.isEmpty(); }
    void fail() { good_ = false; }
    const char* place() const { return bytes_.data(); }

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

class Walk {
public:
    Walk(QByteArrayView track, const std::function<void(const MidiEvent&)>& visit)
        : reader_(track), visit_(visit) {}

    std::optional<qint64> toTheEnd() {
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
        const char* start = reader_.place();
        const quint32 first = reader_.number(1);
        quint32 status = first;
        if (first == Meta) {
            meta();
        } else if (first == 0xf0 || first == 0xf7) {
            reader_.take(reader_.variable());
        } else if (first < 0xf0) {
            channelEvent(first);
            status = status_;
        } else {
            reader_.fail();
        }
        if (reader_.good() && !ended_) {
            visit_({tick_, static_cast<quint8>(status), QByteArrayView(start, reader_.place())});
        }
    }

    void meta() {
        const quint32 type = reader_.number(1);
        const QByteArrayView content = reader_.take(reader_.variable());
        if (type == 0x2f) {
            ended_ = true;
        } else if (type == 0x51 && (content.size() != 3 || Reader(content).number(3) == 0)) {
            reader_.fail();
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
    const std::function<void(const MidiEvent&)>& visit_;
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

/// False if it cannot be.
bool readDivision(quint32 division, MidiTracks& into) {
    if (division < 0x8000) {
        into.division = static_cast<int>(division);
        return division > 0;
    }
    const int frames = 0x100 - static_cast<int>(division >> 8);
    const int ticks = static_cast<int>(division & 0xff);
    into.division = frames == 29 ? 30 * ticks : frames * ticks;
    into.fixedTempo = frames == 29 ? 1001000 : 1000000;  // 29 stands for 30 in 1.001 seconds
    return ticks > 0 && (frames == 24 || frames == 25 || frames == 29 || frames == 30);
}

}  // namespace

std::optional<MidiTracks> midiTracks(QByteArrayView midi) {
    Reader file(midi);
    MidiTracks found;
    if (file.take(4) != QByteArrayView("MThd") || file.number(4) != 6) {
        return std::nullopt;
    }
    const quint32 format = file.number(2);
    const quint32 tracks = file.number(2);
    if (!readDivision(file.number(2), found) || format > 2) {
        return std::nullopt;
    }
    for (quint32 i = 0; i < tracks && file.good(); ++i) {
        found.tracks.push_back(nextTrack(file));
    }
    return file.good() ? std::optional(found) : std::nullopt;
}

std::optional<qint64> walkMidiTrack(QByteArrayView track,
                                    const std::function<void(const MidiEvent&)>& visit) {
    return Walk(track, visit).toTheEnd();
}

}  // namespace velorama

#include "media_world.h"

#include <QDir>
#include <QRandomGenerator>

#include <limits>

namespace velorama {
namespace {

using namespace test;

class DamagedAudio : public WithMediaPlayer {
protected:
    /// Peak of the process so far, in megabytes.
    static int peakMemory() {
        const QByteArray status = contentOf(QStringLiteral("/proc/self/status"));
        const qsizetype at = status.indexOf("VmHWM:");
        return status.mid(at + 6, 20).trimmed().split(' ').first().toInt() / 1024;
    }

    /// Opens the bytes under a name; what opens is played to its end.
    bool opensAndEnds(const QString& name, const QByteArray& bytes) {
        const bool opened = open(saved(folder, name, bytes));
        if (opened) {
            EXPECT_TRUE(playsToItsEnd()) << name.toStdString();
        }
        send("close CURRFILE");
        return opened;
    }

    QByteArray random(int size) const {
        QRandomGenerator generator(7);
        QByteArray bytes(size, 0);
        for (char& byte : bytes) {
            byte = static_cast<char>(generator.bounded(256));
        }
        return bytes;
    }
};

QByteArray track(const char* hex) {
    return midiHead(1, 480) + midiTrack(QByteArray::fromHex(hex));
}

TEST_F(DamagedAudio, IsRefused) {
    const QByteArray wav = wavFile(500);
    const QByteArray midi = sixSecondsOfMidi();
    QByteArray longTrack = midi;
    longTrack.replace(18, 4, QByteArray::fromHex("7fffffff"));
    QByteArray noBeat = midi;
    noBeat.replace(12, 2, QByteArray(2, 0));
    QByteArray hugeTag = "ID3" + QByteArray::fromHex("0400007f7f7f7f") + QByteArray(4000, 0);
    struct Row {
        const char* name;
        QByteArray bytes;
    };
    const Row rows[] = {
        {"empty.mp3", QByteArray()},
        {"one-byte.mp3", "R"},
        {"text.mp3", QByteArray("no music at all\n").repeated(5000)},
        {"zeros.mp3", QByteArray(1 << 20, 0)},
        {"huge-tag.mp3", hugeTag},
        {"one-frame-head.mp3", QByteArray::fromHex("fffb9064")},
        {"head-only.wav", wav.first(20)},
        {"no-data.wav", wavHead(0)},
        {"no-channels.wav", wavHead(1000, 0) + QByteArray(1000, 1)},
        {"no-rate.wav", wavHead(1000, 2, 0) + QByteArray(1000, 1)},
        {"unknown-format.wav", wavHead(1000, 2, 44100, 16, 0x7777) + QByteArray(1000, 1)},
        // Whole and silent: what follows its data is no sound.
        {"no-data-and-a-text.wav", QByteArray(wavHead(0)).replace(4, 1, "4") + "LIST" +
                                       QByteArray::fromHex("08000000") + "INFOtext"},
        {"riff-only.wav", "RIFF"},
        {"rifx-only.wav", "RIFX"},
        {"rf64-only.wav", QByteArray("RF64").leftJustified(27, '\xff')},
        {"rf64-of-nothing.wav", QByteArray("RF64").leftJustified(5000, '\xff')},
        {"head-only.mid", midi.first(14)},
        {"cut.mid", midi.first(midi.size() - 9)},
        {"long-track.mid", longTrack},
        {"no-beat.mid", noBeat},
        {"frames-without-ticks.mid", midiHead(1, 0xe700) + midi.mid(14)},
        {"seven-frames-a-second.mid", midiHead(1, 0xf928) + midi.mid(14)},
        {"no-tracks.mid", midiHead(0, 480)},
        {"missing-track.mid", midiHead(2, 480) + midi.mid(14)},
        {"silent-for-ever.mid", track("ffffff7f90454000ff2f00")},
        {"event-past-track.mid", track("00ff01ffff7f41")},
        {"data-without-status.mid", track("0045400a4500")},
        {"tempo-of-nothing.mid", track("00ff5103000000604540ff2f00")},
        {"cut-wrapping.mid", riffWrapped(midi).first(40)},
        {"too-large.mid",
         midiHead(1, 480) + midiTrack(QByteArray::fromHex("00c000").repeated(6000000))},
    };
    for (const Row& row : rows) {
        EXPECT_FALSE(opensAndEnds(QString::fromLatin1(row.name), row.bytes)) << row.name;
    }
}

TEST_F(DamagedAudio, ThatOpensComesToItsEnd) {
    const QByteArray mp3 = contentOf(mp3File(folder, QStringLiteral("a.mp3"), wavFile(3000)));
    const QByteArray midi = sixSecondsOfMidi();
    const float broken[] = {std::numeric_limits<float>::quiet_NaN(),
                            std::numeric_limits<float>::infinity(), 1e30F, -1e30F};
    const QByteArray floats =
        QByteArray(reinterpret_cast<const char*>(broken), sizeof(broken)).repeated(1000);
    struct Row {
        const char* name;
        QByteArray bytes;
    };
    const Row rows[] = {
        {"cut-in-a-frame.mp3", mp3.first(mp3.size() / 2 + 7)},
        {"junk-in-the-middle.mp3", mp3.first(20000) + QByteArray(1 << 20, 0x55) + mp3.mid(20000)},
        {"junk-in-front.mp3", QByteArray(3000, 0x55) + mp3},
        {"claims-four-gigabytes.wav", wavHead(0xffffff00U) + QByteArray(100000, 1)},
        {"no-numbers.wav", wavHead(static_cast<quint32>(floats.size()), 2, 44100, 32, 3) + floats},
        {"junk-behind.mid", midi + random(1000)},
    };
    for (const Row& row : rows) {
        EXPECT_TRUE(opensAndEnds(QString::fromLatin1(row.name), row.bytes)) << row.name;
        for (const float sample : heard()) {
            ASSERT_TRUE(sample >= -1 && sample <= 1) << row.name << " " << sample;
        }
    }
}

/// These may be refused or played: what counts is that they end.
TEST_F(DamagedAudio, OfAnyOtherKindDoesNotHang) {
    const QByteArray mp3 = contentOf(mp3File(folder, QStringLiteral("a.mp3"), wavFile(1000)));
    const QByteArray noise = random(200000);
    opensAndEnds(QStringLiteral("noise.mp3"), noise);
    opensAndEnds(QStringLiteral("noise.wav"), "RIFF" + noise);
    opensAndEnds(QStringLiteral("noise-in-wave.wav"), wavHead(200000).first(20) + noise);
    opensAndEnds(QStringLiteral("noise.mid"), midiHead(1, 480) + midiTrack(noise));
    opensAndEnds(QStringLiteral("many-channels.wav"), wavHead(200000, 65535) + noise);
    opensAndEnds(QStringLiteral("frame-heads.mp3"),
                 QByteArray::fromHex("fffb9064").repeated(50000));
    for (int seed = 0; seed < 60; ++seed) {
        QRandomGenerator generator(static_cast<quint32>(seed));
        QByteArray bytes = seed % 3 == 0 ? mp3 : seed % 3 == 1 ? wavFile(200) : sixSecondsOfMidi();
        for (int i = 0; i < 8; ++i) {
            const qsizetype reach =
                seed % 2 == 0 ? std::min<qsizetype>(bytes.size(), 64) : bytes.size();
            bytes[generator.bounded(reach)] = static_cast<char>(generator.bounded(256));
        }
        opensAndEnds(QStringLiteral("changed-%1").arg(seed), bytes);
    }
}

TEST_F(DamagedAudio, TakesLittleMemory) {
    opensAndEnds(QStringLiteral("a.mid"), sixSecondsOfMidi());
    const int before = peakMemory();
    const QByteArray note = QByteArray::fromHex("0090454000904500");
    opensAndEnds(
        QStringLiteral("dense.mid"),
        midiHead(1, 480) + midiTrack(note.repeated(250000) + QByteArray::fromHex("8740ff2f00")));
    opensAndEnds(QStringLiteral("channels.wav"),
                 wavHead(0xffffff00U, 1024) + QByteArray(100000, 1));
    opensAndEnds(QStringLiteral("tag.mp3"),
                 "ID3" + QByteArray::fromHex("0400007f7f7f7f") + QByteArray(4000, 0));
    EXPECT_LT(peakMemory() - before, 200);
}

}  // namespace
}  // namespace velorama

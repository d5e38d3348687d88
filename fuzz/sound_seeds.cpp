#include "seeds.h"
#include "support/sound_files.h"

#include <algorithm>
#include <utility>

namespace velorama::fuzz {
namespace {

using namespace test;

/// Frames of silence, 128 kbit/s at 44.1 kHz, of 417 bytes each.
QByteArray mp3Frames(int count, const QByteArray& tag = {}) {
    QByteArray first = QByteArray("\xFF\xFB\x90\x00", 4) + QByteArray(413, '\0');
    first.replace(36, tag.size(), tag);
    QByteArray bytes = first;
    for (int i = 1; i < count; ++i) {
        bytes += QByteArray("\xFF\xFB\x90\x00", 4) + QByteArray(413, '\0');
    }
    return bytes;
}

QByteArray unfinished(const QByteArray& wave) {
    return QByteArray(wave).replace(4, 4, QByteArray(4, '\0'));
}

QByteArray bigEndianWave() {
    QByteArray head = wavHead(32);
    head.replace(0, 4, "RIFX");
    for (const auto& [at, size] : {std::pair(4, 4),
                                   {16, 4},
                                   {20, 2},
                                   {22, 2},
                                   {24, 4},
                                   {28, 4},
                                   {32, 2},
                                   {34, 2},
                                   {40, 4}}) {
        std::reverse(head.begin() + at, head.begin() + at + size);
    }
    return head + QByteArray(32, '\x11');
}

}  // namespace

QByteArrayList soundSeeds() {
    QByteArrayList files;
    for (const quint16 bits : {8, 16, 24, 32}) {
        for (const quint16 channels : {1, 2, 3, 6}) {
            files << wavHead(96, channels, 8000, bits) + QByteArray(96, '\x21');
        }
    }
    const QByteArray id3("ID3\x04\0\0\0\0\0\x0A", 10);
    const QByteArray xing("Xing\0\0\0\x03\0\0\0\x03\0\0\x04\xE3", 16);
    return files << wavHead(64, 2, 44100, 32, 3) + QByteArray(64, '\0')  // floats
                 << wavHead(64, 1, 8000, 8, 7) + QByteArray(64, '\x55')  // mu-law
                 << unfinished(wavHead(64) + QByteArray(64, '\x21')) << bigEndianWave()
                 << mp3Frames(3) << mp3Frames(3, xing) << id3 + QByteArray(10, '\0') + mp3Frames(2)
                 << mp3Frames(2) + "TAG" + QByteArray(125, ' ');
}

QByteArrayList midiSeeds() {
    const QByteArray six = sixSecondsOfMidi();
    QByteArray many = midiHead(130, 96);
    for (int i = 0; i < 130; ++i) {
        many += midiTrack(QByteArray::fromHex("00903c4060803c0000ff2f00"));
    }
    return {six, riffWrapped(six), many,
            midiHead(1, 0xE728, 0) + midiTrack(QByteArray::fromHex("00903c4081003c0000ff2f00"))};
}

}  // namespace velorama::fuzz

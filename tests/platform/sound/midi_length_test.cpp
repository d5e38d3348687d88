#include "platform/sound/midi_length.h"

#include "support/sound_files.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

using namespace test;
using std::chrono::microseconds;

microseconds lengthOf(const QByteArray& midi) {
    return midiLength(midi).value_or(microseconds(-1));
}

PlayableMidi playable(const QByteArray& midi) {
    return playableMidi(midi);
}

QByteArray hex(const char* text) {
    return QByteArray::fromHex(text);
}

TEST(MidiLength, WithoutATempoThereAre120BeatsAMinute) {
    EXPECT_EQ(lengthOf(midiFile({{1, 69}})), microseconds(500000));
    EXPECT_EQ(lengthOf(midiFile({{3, 69}}, 96)), microseconds(1500000));
}

TEST(MidiLength, EachTempoCountsFromItsPlace) {
    EXPECT_EQ(lengthOf(sixSecondsOfMidi()), microseconds(6000000));
    EXPECT_EQ(lengthOf(midiFile({{2, 69}, {1, 69, 250000}, {4, 69, 300000}})),
              microseconds(1000000 + 250000 + 1200000));
}

TEST(MidiLength, TheTempoOfOneTrackHoldsForAll) {
    // Track 1: at 960 ticks a beat becomes a second. Track 2: a note of 1,440 ticks.
    const QByteArray tempo = midiTrack(hex("8740ff51030f424000ff2f00"));
    const QByteArray note = midiTrack(hex("009045408b2080450000ff2f00"));
    EXPECT_EQ(lengthOf(midiHead(2, 480) + tempo + note), microseconds(1000000 + 1000000));
    EXPECT_EQ(lengthOf(midiHead(2, 480) + note + tempo), microseconds(1000000 + 1000000));
}

TEST(MidiLength, RunningStatusSysexAndUnknownChunksArePassedOver) {
    const QByteArray events = hex("00f0037e7ff7") + hex("00904540") + hex("604500") +
                              hex("00c005") + hex("0006") + hex("00f70101") + hex("6007") +
                              hex("00ff2f00");
    EXPECT_EQ(lengthOf(midiHead(1, 96) + "XFIH" + hex("000000020102") + midiTrack(events)),
              microseconds(1000000));
}

TEST(MidiLength, ATrackWithoutAnEndEventEndsWithItsBytes) {
    EXPECT_EQ(lengthOf(midiHead(1, 96) + midiTrack(hex("00904540608045 00"))),
              microseconds(500000));
}

TEST(MidiLength, ADayIsTheMost) {
    // 24 hours are 172,800 beats.
    const auto beats = [](int count) -> QByteArray {
        QByteArray events;
        for (int i = 0; i < count; ++i) {
            events += hex("8768b04000");  // 1000 ticks later: a controller
        }
        return midiHead(1, 1000) + midiTrack(events);
    };
    EXPECT_EQ(lengthOf(beats(172800)), std::chrono::hours(24));
    EXPECT_EQ(lengthOf(beats(172801)), microseconds(-1));
}

TEST(MidiLength, FilmFramesAreCountedWithoutRegardToTempo) {
    struct Row {
        int division;
        int milliseconds;
    };
    // 3,000 ticks; a tempo of ten minutes a beat means nothing.
    const QByteArray track = midiTrack(hex("00ff5103ffffff009045409738804500 00ff2f00"));
    const Row rows[] = {
        {0xe728, 3000},    // 25 frames of 40 ticks
        {0xe850, 1562},    // 24 of 80
        {0xe264, 1000},    // 30 of 100
        {0xe364, 1001},    // 30 of 100 in 1.001 seconds
        {0xe701, 120000},  // 25 of 1
    };
    for (const Row& row : rows) {
        EXPECT_EQ(lengthOf(midiHead(1, row.division) + track).count() / 1000, row.milliseconds)
            << row.division;
    }
    for (const int never : {0xe700, 0xff28, 0x8028, 0xe128, 0}) {
        EXPECT_EQ(lengthOf(midiHead(1, never) + track), microseconds(-1)) << never;
    }
}

TEST(MidiLength, AnyNumberOfTracksCounts) {
    QByteArray tracks;
    for (int i = 0; i < 1999; ++i) {
        tracks += midiTrack(hex("00ff2f00"));
    }
    tracks += midiTrack(hex("009045408740804500 00ff2f00"));
    EXPECT_EQ(lengthOf(midiHead(2000, 480) + tracks), microseconds(1000000));
    EXPECT_EQ(lengthOf(midiHead(2001, 480) + tracks), microseconds(-1));
}

TEST(PlayableMidi, UsualFilesStayAsTheyAre) {
    const QByteArray midi = sixSecondsOfMidi();
    EXPECT_EQ(playable(midi).bytes, midi);
    EXPECT_EQ(playable(midi).tempo, 0);
    EXPECT_TRUE(playable(midi.first(30)).bytes.isEmpty());
}

TEST(PlayableMidi, FilmFramesBecomeBeatsOfAFixedTempo) {
    const QByteArray track = midiTrack(hex("009045408b38804500 00ff2f00"));
    const PlayableMidi midi = playable(midiHead(1, 0xe364) + track);
    EXPECT_EQ(midi.bytes, midiHead(1, 3000) + track);
    EXPECT_EQ(midi.tempo, 1001000);
}

TEST(PlayableMidi, TooManyTracksBecomeOneInTheOrderOfTime) {
    QByteArray tracks;
    for (int i = 0; i < 127; ++i) {
        tracks += midiTrack(hex("00ff2f00"));
    }
    // One note beside another that begins later and ends at the same time, then a longer rest.
    tracks += midiTrack(hex("00904540 8740 4500 00ff2f00"));
    EXPECT_EQ(playable(midiHead(128, 480) + tracks).bytes, midiHead(128, 480) + tracks);
    tracks += midiTrack(hex("60914c40 00f003010203 8660 814c00 8740ff2f00"));
    EXPECT_EQ(playable(midiHead(129, 480) + tracks).bytes,
              midiHead(1, 480, 0) +
                  midiTrack(hex("00904540 60914c40 00f003010203 8660 904500 00814c00 8740ff2f00")));
}

TEST(MidiLength, OneThatPlaysNothingHasNone) {
    EXPECT_EQ(lengthOf(midiHead(1, 480) + midiTrack(hex("00ff2f00"))), microseconds(-1));
    EXPECT_FALSE(midiLength(midiHead(0, 480)));
    EXPECT_FALSE(midiLength(QByteArray()));
}

TEST(MidiLength, ItsWrappingIsTakenOff) {
    const QByteArray midi = sixSecondsOfMidi();
    EXPECT_EQ(unwrappedMidi(midi), QByteArrayView(midi));
    const QByteArray wrapped = riffWrapped(midi);
    EXPECT_EQ(unwrappedMidi(wrapped), QByteArrayView(midi));
    QByteArray withInfo = wrapped;
    withInfo.insert(12, "INFO" + hex("03000000414243 00"));
    EXPECT_EQ(unwrappedMidi(withInfo), QByteArrayView(midi));
    EXPECT_TRUE(unwrappedMidi(wrapped.chopped(1)).isEmpty());
    EXPECT_TRUE(unwrappedMidi("RIFF").isEmpty());
}

}  // namespace
}  // namespace velorama

#include "media_world.h"

#include "support/file_gate.h"
#include "support/waiting.h"

namespace velorama {
namespace {

using namespace test;

/// A file that does not let itself be opened, as on a disk that sleeps or a server that is gone.
class FileThatHangs : public WithMediaPlayer {
protected:
    void hang(const QByteArray& bytes) {
        gate = std::make_unique<FileGate>(saved(folder, QStringLiteral("a.wav"), bytes));
        ASSERT_TRUE(gate->isClosed());
        ASSERT_TRUE(open(folder + QStringLiteral("/a.wav")));
        ASSERT_TRUE(gate->isSomebodyWaiting());
        // Of none of the files here: it has not come yet, and is not over.
        ASSERT_EQ(length(), 2000);
    }
    bool isForgotten() {
        return comesTrue([this] { return !send("set CURRFILE time format s"); });
    }

    std::unique_ptr<FileGate> gate;
};

TEST_F(FileThatHangs, IsTakenForOpenAndPlayedWhenItAnswers) {
    ASSERT_NO_FATAL_FAILURE(hang(wavFile(1240)));
    EXPECT_TRUE(send("set CURRFILE time format s"));
    EXPECT_TRUE(send("play CURRFILE "));
    EXPECT_EQ(position(), 0);
    EXPECT_FALSE(open(saved(folder, QStringLiteral("b.wav"), wavFile(500))));
    EXPECT_TRUE(gate->isSomebodyWaiting());
    gate->open();
    EXPECT_TRUE(comesTrue([this] { return position() == 1240; }));
    EXPECT_EQ(length(), 1240);
}

TEST_F(FileThatHangs, IsPlayedOnlyIfItWasNotPausedMeanwhile) {
    useRealTime();
    ASSERT_NO_FATAL_FAILURE(hang(wavFile(60000)));
    EXPECT_TRUE(send("play CURRFILE "));
    EXPECT_TRUE(send("pause CURRFILE"));
    gate->open();
    EXPECT_TRUE(comesTrue([this] { return length() == 60000; }));
    QTest::qWait(300);
    EXPECT_EQ(position(), 0);
    EXPECT_TRUE(send("Resume CURRFILE"));
    EXPECT_TRUE(reaches(100));
}

TEST_F(FileThatHangs, IsLeftForAnother) {
    ASSERT_NO_FATAL_FAILURE(hang(wavFile(1240)));
    EXPECT_TRUE(send("close CURRFILE"));
    EXPECT_FALSE(send("close CURRFILE"));
    EXPECT_TRUE(open(saved(folder, QStringLiteral("b.wav"), wavFile(500))));
    EXPECT_EQ(length(), 500);
    EXPECT_TRUE(playsToItsEnd());
    EXPECT_TRUE(gate->isSomebodyWaiting());
    gate->open();
    EXPECT_EQ(length(), 500);
}

TEST_F(FileThatHangs, IsForgottenIfItDoesNotPlayAfterAll) {
    ASSERT_NO_FATAL_FAILURE(hang("nonsense"));
    EXPECT_TRUE(send("play CURRFILE "));
    gate->open();
    EXPECT_TRUE(isForgotten());
    EXPECT_EQ(answer("status CURRFILE length"), QString());
    EXPECT_TRUE(open(saved(folder, QStringLiteral("b.wav"), wavFile(500))));
}

TEST_F(FileThatHangs, DoesNotKeepTheProgramFromEnding) {
    ASSERT_NO_FATAL_FAILURE(hang(wavFile(1240)));
    player.reset();
    EXPECT_TRUE(gate->isSomebodyWaiting());
}

TEST_F(WithMediaPlayer, AMidiTrackHasVoicesOfItsOwnWhereTheOneBeforeStillHasThem) {
    const QString path = saved(folder, QStringLiteral("a.mid"), midiFile({{2, 69}, {2, 76}}));
    MidiSynth synth;
    const auto soundOf = [](AudioSource& source) {
        std::vector<float> sound(size_t{2} * 44100);
        sound.resize(size_t{2} * static_cast<size_t>(source.read(sound.data(), 44100)));
        return sound;
    };
    const auto first = sourceOf(openMusicFile(path), synth);
    ASSERT_NE(first, nullptr);
    const std::vector<float> begin = soundOf(*first);
    const auto second = sourceOf(openMusicFile(path), synth);
    ASSERT_NE(second, nullptr);
    EXPECT_NEAR(static_cast<double>(sounding(soundOf(*second)).size()),
                static_cast<double>(sounding(begin).size()), 2000);
}

}  // namespace
}  // namespace velorama

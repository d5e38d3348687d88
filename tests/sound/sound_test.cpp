#include "sound_world.h"

#include "music/audio_engine.h"

#include <QElapsedTimer>

namespace velorama {
namespace {

using namespace test;

TEST_F(SoundTest, EachKindIsHeardAsLongAsHighAndAsLoudAsItIs) {
    struct Row {
        QString path;
        double seconds;
        double hertz;
    };
    const Row rows[] = {
        {saved(folder, QStringLiteral("a.wav"), wavFile(5500, 440)), 5.5, 440},
        {mp3File(folder, QStringLiteral("a.mp3"), wavFile(7250, 660)), 7.25, 660},
        // The note itself lasts until the last tick.
        {saved(folder, QStringLiteral("a.mid"), sixSecondsOfMidi()), 6.0, 440},
    };
    for (const Row& row : rows) {
        const Recording heard = heardWhole(row.path);
        EXPECT_NEAR(heard.seconds(), row.seconds, LengthLimit) << row.path.toStdString();
        EXPECT_NEAR(heard.pitch(), row.hertz, PitchLimit) << row.path.toStdString();
        EXPECT_GT(heard.loudness(), LeastLoudness) << row.path.toStdString();
        RecordProperty(row.path.right(3).toStdString() + "_seconds",
                       std::to_string(heard.seconds()));
        RecordProperty(row.path.right(3).toStdString() + "_hertz", std::to_string(heard.pitch()));
        RecordProperty(row.path.right(3).toStdString() + "_loudness",
                       std::to_string(heard.loudness()));
        RecordProperty(row.path.right(3).toStdString() + "_gap",
                       std::to_string(heard.longestGap()));
    }
}

/// The engine with a list of one track over the real device.
class EngineSoundTest : public SoundTest {
protected:
    EngineSoundTest() {
        controls.lstMUSIC->addItem(saved(folder, QStringLiteral("a.wav"), wavFile(5500, 440)));
        controls.lstMUSIC->setListIndex(0);
        // The end would begin the track anew.
        controls.tmrMUSIC->disconnect(&engine);
    }

    QWidget page;
    const MusicControls controls{page};
    CommonDialog cdlDIALOG;
    AudioEngine engine{controls, *player, cdlDIALOG};
};

TEST_F(EngineSoundTest, APauseIsASilenceOfItsLength) {
    ASSERT_TRUE(server.startRecording());
    engine.AudioPlay();
    ASSERT_TRUE(reaches(2000));
    engine.AudioPause();
    QElapsedTimer pause;
    pause.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return pause.elapsed() >= 1500; }, 5000));
    engine.AudioPlay();
    const double gap = static_cast<double>(pause.elapsed()) / 1000;
    ASSERT_TRUE(reaches(5500));
    const Recording heard = server.stopRecording();
    EXPECT_NEAR(heard.longestGap(), gap, LengthLimit);
    EXPECT_NEAR(heard.seconds() - heard.longestGap(), 5.5, LengthLimit);
    RecordProperty("asked", std::to_string(gap));
    RecordProperty("heard", std::to_string(heard.longestGap()));
}

TEST_F(EngineSoundTest, PlayInMidTrackIsNotHeard) {
    ASSERT_TRUE(server.startRecording());
    engine.AudioPlay();
    for (const int milliseconds : {1000, 2000, 3000}) {
        ASSERT_TRUE(reaches(milliseconds));
        engine.AudioPlay();
    }
    ASSERT_TRUE(reaches(5500));
    const Recording heard = server.stopRecording();
    EXPECT_LT(heard.longestGap(), NoGap);
    EXPECT_NEAR(heard.seconds(), 5.5, LengthLimit);
    EXPECT_NEAR(heard.pitch(), 440, PitchLimit);
}

TEST_F(SoundTest, ClosingSilencesWithinAMoment) {
    ASSERT_TRUE(server.startRecording());
    ASSERT_TRUE(open(saved(folder, QStringLiteral("a.wav"), wavFile(20000))) && play());
    ASSERT_TRUE(reaches(1000));
    close();
    const Recording heard = server.stopRecording();
    EXPECT_GT(heard.seconds(), 0.5);
    EXPECT_LT(heard.seconds(), 1.5);
}

TEST_F(SoundTest, WhenTheServerDiesTheTrackRunsToItsEnd) {
    const QString path = saved(folder, QStringLiteral("a.wav"), wavFile(4000));
    ASSERT_TRUE(open(path) && play());
    ASSERT_TRUE(reaches(500));
    QElapsedTimer clock;
    clock.start();
    server.kill();
    ASSERT_TRUE(reaches(4000));
    // By the clock, and not in a rush to the end.
    EXPECT_GT(clock.elapsed(), 2000);
    EXPECT_TRUE(close());

    open(path);
    EXPECT_TRUE(isForgotten());
    ASSERT_TRUE(server.start());
    EXPECT_NEAR(heardWhole(path).seconds(), 4, LengthLimit);
}

}  // namespace
}  // namespace velorama

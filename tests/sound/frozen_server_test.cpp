#include "sound_world.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace velorama {
namespace {

using namespace test;

/// The server, frozen. It goes on by itself in the end, so that what waits for it fails and does
/// not hang.
class Frozen {
public:
    explicit Frozen(SoundServer& server) : server_(server) { server_.freeze(); }
    ~Frozen() { goOn(); }

    /// False if it has gone on by itself: somebody has waited for it.
    bool goOn() {
        {
            const std::lock_guard guard(lock_);
            over_ = true;
        }
        changed_.notify_all();
        if (watch_.joinable()) {
            watch_.join();
        }
        return !waitedFor_;
    }

private:
    void watch() {
        std::unique_lock guard(lock_);
        waitedFor_ = !changed_.wait_for(guard, std::chrono::seconds(60), [this] { return over_; });
        server_.goOn();
    }

    SoundServer& server_;
    std::mutex lock_;
    std::condition_variable changed_;
    bool over_ = false;
    bool waitedFor_ = false;
    std::thread watch_{[this] { watch(); }};
};

class FrozenServer : public SoundTest {
protected:
    void SetUp() override {
        SoundTest::SetUp();
        track = saved(folder, QStringLiteral("a.wav"), wavFile(4000, 440));
        other = saved(folder, QStringLiteral("b.wav"), wavFile(3000, 660));
    }

    QString track;
    QString other;
};

TEST_F(FrozenServer, IsNotWaitedForAndPlaysWhenItGoesOn) {
    ASSERT_TRUE(server.startRecording());
    Frozen frozen(server);
    EXPECT_TRUE(open(track));
    EXPECT_TRUE(play());
    EXPECT_EQ(ask("length"), 4000);
    EXPECT_EQ(ask("position"), 0);
    ASSERT_TRUE(frozen.goOn());
    ASSERT_TRUE(reaches(4000));
    const Recording heard = server.stopRecording();
    EXPECT_NEAR(heard.seconds(), 4, LengthLimit);
    EXPECT_NEAR(heard.pitch(), 440, PitchLimit);
}

TEST_F(FrozenServer, PlaysTheLastOfTheTracksThatWaited) {
    ASSERT_TRUE(server.startRecording());
    Frozen frozen(server);
    for (const QString& path : {track, track, other}) {
        close();
        EXPECT_TRUE(open(path));
        EXPECT_TRUE(play());
    }
    ASSERT_TRUE(frozen.goOn());
    ASSERT_TRUE(reaches(3000));
    const Recording heard = server.stopRecording();
    EXPECT_NEAR(heard.seconds(), 3, LengthLimit);
    EXPECT_NEAR(heard.pitch(), 660, PitchLimit);
}

TEST_F(FrozenServer, HoldsATrackThatWasPausedMeanwhile) {
    Frozen frozen(server);
    EXPECT_TRUE(open(track) && play());
    EXPECT_TRUE(player->send(QStringLiteral("pause CURRFILE")));
    ASSERT_TRUE(frozen.goOn());
    QTest::qWait(500);
    EXPECT_EQ(ask("position"), 0);
    EXPECT_TRUE(player->send(QStringLiteral("Resume CURRFILE")));
    EXPECT_TRUE(reaches(500));
}

TEST_F(FrozenServer, InMidTrackIsPausedLeftAndTakenUpAgain) {
    ASSERT_TRUE(open(track) && play() && reaches(500));
    ASSERT_TRUE(server.startRecording());
    Frozen frozen(server);
    EXPECT_TRUE(player->send(QStringLiteral("pause CURRFILE")));
    EXPECT_TRUE(play());
    EXPECT_TRUE(close());
    EXPECT_TRUE(open(other) && play());
    ASSERT_TRUE(frozen.goOn());
    ASSERT_TRUE(reaches(3000));
    EXPECT_NEAR(server.stopRecording().pitch(1.5), 660, PitchLimit);
}

TEST_F(FrozenServer, ThatDiesLeavesATrackThatDidNotOpen) {
    Frozen frozen(server);
    EXPECT_TRUE(open(track) && play());
    server.kill();
    EXPECT_TRUE(isForgotten());
    EXPECT_EQ(ask("length"), 0);
    EXPECT_TRUE(frozen.goOn());
    ASSERT_TRUE(server.start());
    EXPECT_NEAR(heardWhole(track).seconds(), 4, LengthLimit);
}

TEST_F(FrozenServer, DoesNotKeepTheProgramFromEnding) {
    Frozen frozen(server);
    EXPECT_TRUE(open(track) && play());
    player.reset();
    EXPECT_TRUE(frozen.goOn());

    player = std::make_unique<MediaPlayer>();
    ASSERT_TRUE(open(track) && play() && reaches(500));
    Frozen again(server);
    player.reset();
    EXPECT_TRUE(again.goOn());

    player = std::make_unique<MediaPlayer>();
    // PipeWire first plays what it was sent before.
    const Recording heard = heardWhole(other);
    EXPECT_GT(heard.seconds(), 3 - LengthLimit);
    EXPECT_NEAR(heard.pitch(1.5), 660, PitchLimit);
}

}  // namespace
}  // namespace velorama

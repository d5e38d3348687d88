#include "platform/sound/audio_track.h"

#include "hanging_source.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

using namespace test;

constexpr int turn = 100;  // frames

class AudioTrackTest : public testing::Test {
protected:
    ~AudioTrackTest() override {
        disk->goOn();
        join();
    }

    /// On a device's thread.
    void beginTurn() {
        device = std::thread([this] { fill(); });
        ASSERT_TRUE(disk->hangs());
    }
    void join() {
        if (device.joinable()) {
            device.join();
        }
    }
    void fill() {
        track->fill(reinterpret_cast<unsigned char*>(sound.data()),
                    static_cast<int>(sound.size() * sizeof(float)));
    }
    bool isSilent() const {
        return std::all_of(sound.begin(), sound.end(), [](float sample) { return sample == 0; });
    }
    bool isSounding() const {
        return std::all_of(sound.begin(), sound.end(), [](float sample) { return sample == 0.5F; });
    }

    std::shared_ptr<SourceDisk> disk = std::make_shared<SourceDisk>();
    std::shared_ptr<AudioTrack> track =
        std::make_shared<AudioTrack>(std::make_unique<HangingSource>(disk, 3 * turn));
    std::vector<float> sound = std::vector<float>(size_t{2} * turn, 1.0F);
    std::thread device;
};

TEST_F(AudioTrackTest, GivesItsSourceToTheEndAndThenSilence) {
    disk->goOn();
    track = std::make_shared<AudioTrack>(std::make_unique<HangingSource>(disk, turn + turn / 2));
    EXPECT_EQ(track->length(), turn + turn / 2);
    track->setRunning(true);
    fill();
    EXPECT_TRUE(isSounding());
    EXPECT_EQ(track->framesHanded(), turn);
    EXPECT_FALSE(track->ended());
    fill();
    EXPECT_EQ(sound.at(turn - 1), 0.5F);
    EXPECT_EQ(sound.at(turn), 0.0F);
    EXPECT_EQ(track->framesHanded(), turn + turn / 2);
    EXPECT_TRUE(track->ended());
    fill();
    EXPECT_TRUE(isSilent());
    EXPECT_EQ(disk->reads(), 2);
}

TEST_F(AudioTrackTest, IsHeldAndLetRunWhileItsDiskHangs) {
    track->setRunning(true);
    ASSERT_NO_FATAL_FAILURE(beginTurn());
    track->setRunning(false);
    track->setRunning(true);
    EXPECT_EQ(track->framesHanded(), 0);
    disk->goOn();
    join();
    EXPECT_TRUE(isSounding());
    EXPECT_EQ(track->framesHanded(), turn);
    EXPECT_FALSE(disk->wasWaitedFor());
}

TEST_F(AudioTrackTest, KeepsForLaterWhatTheDiskBringsWhileItIsHeld) {
    track->setRunning(true);
    ASSERT_NO_FATAL_FAILURE(beginTurn());
    track->setRunning(false);
    disk->goOn();
    join();
    EXPECT_TRUE(isSilent());
    EXPECT_EQ(track->framesHanded(), 0);
    fill();
    EXPECT_TRUE(isSilent());
    track->setRunning(true);
    fill();
    EXPECT_TRUE(isSounding());
    EXPECT_EQ(track->framesHanded(), turn);
    EXPECT_EQ(disk->reads(), 1);
    fill();
    EXPECT_EQ(disk->reads(), 2);
}

TEST_F(AudioTrackTest, IsLeftInTheMidstOfAReadWhoseThreadFreesIt) {
    track->setRunning(true);
    ASSERT_NO_FATAL_FAILURE(beginTurn());
    const std::thread::id reader = device.get_id();
    track->leave();
    EXPECT_EQ(track->length(), 0);
    EXPECT_TRUE(comesTrue([this] { return disk->freedBy.load() == std::thread::id(); }));
    disk->goOn();
    join();
    EXPECT_EQ(disk->freedBy.load(), reader);
    EXPECT_TRUE(isSilent());
    EXPECT_EQ(track->framesHanded(), 0);
    EXPECT_FALSE(disk->wasWaitedFor());
    fill();
    EXPECT_TRUE(isSilent());
    EXPECT_EQ(disk->reads(), 1);
}

TEST_F(AudioTrackTest, IsFreedOnAnotherThreadWhereNothingReads) {
    track->leave();
    EXPECT_TRUE(disk->isFreed());
    EXPECT_NE(disk->freedBy.load(), std::this_thread::get_id());
    fill();
    EXPECT_TRUE(isSilent());
    EXPECT_EQ(disk->reads(), 0);
}

}  // namespace
}  // namespace velorama

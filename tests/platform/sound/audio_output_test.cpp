#include "platform/sound/audio_output.h"

#include "hanging_source.h"
#include "support/test_world.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

using namespace test;

class AudioOutputTest : public testing::Test {
protected:
    AudioOutputTest() {
        // Has more than one device, as the usual systems do.
        qputenv("SDL_AUDIODRIVER", "disk");
        qputenv("SDL_DISKAUDIODELAY", "20");
        qputenv("SDL_DISKAUDIOFILE", (folder + QStringLiteral("/heard.raw")).toUtf8());
    }
    ~AudioOutputTest() override { hanging->goOn(); }

    void playWhatHangs() {
        ASSERT_TRUE(output.open(std::make_unique<HangingSource>(hanging)));
        output.track()->setRunning(true);
        ASSERT_TRUE(hanging->hangs());
    }

    QString folder = temporaryFolder();
    std::shared_ptr<SourceDisk> hanging = std::make_shared<SourceDisk>();
    AudioOutput output;
};

TEST_F(AudioOutputTest, PlaysTheNextTrackWhileTheOneBeforeHangs) {
    ASSERT_NO_FATAL_FAILURE(playWhatHangs());
    output.close();
    const auto disk = std::make_shared<SourceDisk>();
    disk->goOn();
    qputenv("SDL_DISKAUDIOFILE", (folder + QStringLiteral("/next.raw")).toUtf8());
    ASSERT_TRUE(output.open(std::make_unique<HangingSource>(disk)));
    output.track()->setRunning(true);
    EXPECT_TRUE(comesTrue([this] { return output.track()->framesHanded() > 0; }));
    EXPECT_FALSE(hanging->wasWaitedFor());
    EXPECT_TRUE(hanging->hangs());
    hanging->goOn();
    EXPECT_TRUE(hanging->isFreed());
    EXPECT_EQ(hanging->reads(), 1);
}

TEST_F(AudioOutputTest, KnowsThatThereIsNoDeviceWhileATrackHangs) {
    ASSERT_NO_FATAL_FAILURE(playWhatHangs());
    output.close();
    qputenv("SDL_DISKAUDIOFILE", (folder + QStringLiteral("/none/heard.raw")).toUtf8());
    const auto disk = std::make_shared<SourceDisk>();
    output.open(std::make_unique<HangingSource>(disk));
    EXPECT_TRUE(comesTrue([this] { return output.failed(); }));
    EXPECT_FALSE(hanging->wasWaitedFor());
}

TEST_F(AudioOutputTest, EndsWhileATrackHangs) {
    {
        AudioOutput ending;
        ASSERT_TRUE(ending.open(std::make_unique<HangingSource>(hanging)));
        ending.track()->setRunning(true);
        ASSERT_TRUE(hanging->hangs());
    }
    EXPECT_FALSE(hanging->wasWaitedFor());
    EXPECT_TRUE(hanging->hangs());
    hanging->goOn();
    EXPECT_TRUE(hanging->isFreed());
}

}  // namespace
}  // namespace velorama

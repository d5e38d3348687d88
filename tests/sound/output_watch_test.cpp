#include "sound_world.h"

#include <QProcess>

namespace velorama {
namespace {

using namespace test;

QByteArray pactl(const QStringList& words) {
    QProcess asking;
    asking.start(QStringLiteral("pactl"), words);
    asking.waitForFinished();
    return asking.readAllStandardOutput().trimmed();
}

/// A track that plays on an output of its own, beside the server's first one.
class OutputWatchTest : public SoundTest {
protected:
    void SetUp() override {
        SoundTest::SetUp();
        module = pactl({QStringLiteral("load-module"), QStringLiteral("module-null-sink"),
                        QStringLiteral("sink_name=headset")});
        ASSERT_FALSE(module.isEmpty());
        pactl({QStringLiteral("set-default-sink"), QStringLiteral("headset")});
        player->whenPulled([this] { ++pulled; });
        ASSERT_TRUE(playAnew());
        ASSERT_TRUE(comesTrue([] { return playsOn("headset"); }));
    }

    bool playAnew() {
        close();
        return open(saved(folder, QStringLiteral("a.wav"), wavFile(120'500))) && play() &&
               reaches(500);
    }

    /// The first word of the one line that `pactl list short <kind>` has about it.
    static QByteArray numberOf(const char* kind, const QByteArray& name) {
        for (const QByteArray& line :
             pactl({QStringLiteral("list"), QStringLiteral("short"), QString::fromLatin1(kind)})
                 .split('\n')) {
            if (line.contains(name)) {
                return line.split('\t').first();
            }
        }
        return {};
    }
    static bool playsOn(const QByteArray& sink) {
        const QList<QByteArray> words =
            pactl({QStringLiteral("list"), QStringLiteral("short"), QStringLiteral("sink-inputs")})
                .split('\t');
        return words.size() > 1 && words.at(1) == numberOf("sinks", sink);
    }

    QByteArray module;
    int pulled = 0;
};

TEST_F(OutputWatchTest, TellsThatTheOutputIsGone) {
    EXPECT_EQ(pulled, 0);
    pactl({QStringLiteral("unload-module"), QString::fromLatin1(module)});
    EXPECT_TRUE(comesTrue([this] { return pulled > 0; }));
    // It has not ended: the server plays it elsewhere, and whoever is told may pause it.
    EXPECT_TRUE(comesTrue([] { return playsOn("cap"); }));
    const int before = ask("position");
    EXPECT_TRUE(reaches(before + 300));
    EXPECT_EQ(pulled, 1);
}

TEST_F(OutputWatchTest, AMoveByHandIsNone) {
    pactl({QStringLiteral("move-sink-input"), QString::fromLatin1(numberOf("sink-inputs", "\t")),
           QStringLiteral("cap")});
    ASSERT_TRUE(comesTrue([] { return playsOn("cap"); }));
    // The output it has left goes: nothing that plays has been pulled.
    pactl({QStringLiteral("unload-module"), QString::fromLatin1(module)});
    const int before = ask("position");
    EXPECT_TRUE(reaches(before + 1000));
    EXPECT_EQ(pulled, 0);
}

TEST_F(OutputWatchTest, HoldsForEveryTrackThatFollows) {
    ASSERT_TRUE(playAnew());
    ASSERT_TRUE(comesTrue([] { return playsOn("headset"); }));
    EXPECT_EQ(pulled, 0);
    pactl({QStringLiteral("unload-module"), QString::fromLatin1(module)});
    EXPECT_TRUE(comesTrue([this] { return pulled > 0; }));
}

TEST_F(OutputWatchTest, IsSilentOnceItIsEnded) {
    player->whenPulled({});
    pactl({QStringLiteral("unload-module"), QString::fromLatin1(module)});
    ASSERT_TRUE(comesTrue([] { return playsOn("cap"); }));
    const int before = ask("position");
    EXPECT_TRUE(reaches(before + 500));
    EXPECT_EQ(pulled, 0);
}

}  // namespace
}  // namespace velorama

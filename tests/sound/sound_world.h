#pragma once

#include "sound_server.h"

#include "platform/sound/media_player.h"
#include "support/sound_files.h"
#include "support/test_world.h"
#include "support/waiting.h"

#include <QTest>

#include <gtest/gtest.h>

namespace velorama::test {

inline constexpr double LengthLimit = 0.2;  // seconds
inline constexpr double PitchLimit = 5;     // hertz
inline constexpr double LeastLoudness = 0.01;
inline constexpr double NoGap = 0.02;  // seconds: more than half a wave of the deepest tone

class SoundTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(server.start()); }

    bool open(const QString& path) {
        return player->send(u"open \"" + path + u"\" type MPEGVideo alias CURRFILE");
    }
    bool play() { return player->send(QStringLiteral("play CURRFILE ")); }
    bool close() { return player->send(QStringLiteral("close CURRFILE")); }
    int ask(const char* what) {
        QString answer;
        player->send(u"status CURRFILE " + QString::fromLatin1(what), &answer);
        return answer.toInt();
    }
    bool reaches(int milliseconds) {
        return comesTrue([&] { return ask("position") >= milliseconds; });
    }
    /// Soon there is no open track any more: its device did not come.
    bool isForgotten() {
        return comesTrue(
            [this] { return !player->send(QStringLiteral("set CURRFILE time format s")); });
    }
    Recording heardWhole(const QString& path) {
        EXPECT_TRUE(server.startRecording());
        EXPECT_TRUE(open(path) && play() && reaches(ask("length")));
        Recording heard = server.stopRecording();
        close();
        return heard;
    }

    QString folder = temporaryFolder();
    SoundServer server;
    std::unique_ptr<MediaPlayer> player = std::make_unique<MediaPlayer>();
};

}  // namespace velorama::test

// Music on a place of the disk that stops answering, led by media keys: what they ask for goes
// through the window's thread, and so does the answer.

#include "desktop/hanging_place.h"
#include "desktop/media_player.h"
#include "support/sound_files.h"

#include <gtest/gtest.h>

#include <optional>

namespace velorama::desktop {
namespace {

using First = HangingPlace::First;

class HangingMusic : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        store.setSetting(QStringLiteral("mfrmPRGMAINAUD\\Items Total"),
                         QStringLiteral("lstMUSICList Total"), QString::number(tracks.size()));
        for (int row = 0; row < tracks.size(); ++row) {
            store.setSetting(QStringLiteral("mfrmPRGMAINAUD\\Details"),
                             QStringLiteral("lstMUSIC%1").arg(row), tracks.at(row));
        }
    }

    void open(const HangingPlace& place) {
        // Has more than one device, as the usual systems do.
        const QStringList sound = {QStringLiteral("SDL_AUDIODRIVER=disk"),
                                   QStringLiteral("SDL_DISKAUDIOFILE=/dev/null")};
        page.emplace(session, session.start({}, sound + place.environment()));
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(player.comesToStatus("Stopped")) << "it is not on the bus";
    }
    void openAndPlay(const HangingPlace& place) {
        ASSERT_NO_FATAL_FAILURE(open(place));
        ASSERT_TRUE(player.order("next"));
        ASSERT_TRUE(player.order("play"));
        ASSERT_TRUE(player.comesToMoveOn());
    }

    // At a page that the settings do not have yet.
    void endsAndKeepsItsSettings() const {
        EXPECT_TRUE(page->turnTo(WebAlbumPage));
        EXPECT_EQ(page->close(), 0);
        EXPECT_EQ(store.setting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX")),
                  QString::number(WebAlbumPage));
        EXPECT_TRUE(store.setting(QStringLiteral("mfrmPRGMAIN\\Window"), QStringLiteral("Width")));
    }

    DesktopSession session;
    MediaPlayer player{session};
    Store store{session};
    // None ends by itself.
    QStringList tracks = {
        test::saved(session.home(), QStringLiteral("first.wav"), test::wavFile(60500)),
        test::saved(session.home(), QStringLiteral("second.wav"), test::wavFile(60500))};
    std::optional<MainWindow> page;
};

TEST_F(HangingMusic, ATrackThatHangsInItsMidstIsPausedStoppedAndLeft) {
    const HangingPlace place(tracks.at(0), First::Answers);
    ASSERT_NO_FATAL_FAILURE(openAndPlay(place));
    place.hang();
    ASSERT_TRUE(place.isWaitedFor());
    ASSERT_TRUE(player.order("pause"));
    EXPECT_TRUE(player.comesToStatus("Paused"));
    ASSERT_TRUE(player.order("play"));
    EXPECT_TRUE(player.comesToStatus("Playing"));
    ASSERT_TRUE(player.order("stop"));
    EXPECT_TRUE(player.comesToStatus("Stopped"));
    ASSERT_TRUE(player.order("next"));
    ASSERT_TRUE(player.order("play"));
    EXPECT_TRUE(player.comesToMetadata("xesam:title", "second.wav"));
    EXPECT_TRUE(player.comesToMoveOn());
    endsAndKeepsItsSettings();
}

TEST_F(HangingMusic, TheProgramEndsInTheMidstOfATrackThatHangs) {
    const HangingPlace place(tracks.at(0), First::Answers);
    ASSERT_NO_FATAL_FAILURE(openAndPlay(place));
    place.hang();
    ASSERT_TRUE(place.isWaitedFor());
    endsAndKeepsItsSettings();
}

TEST_F(HangingMusic, ATrackThatAnswersAgainGoesOn) {
    const HangingPlace place(tracks.at(0), First::Answers);
    ASSERT_NO_FATAL_FAILURE(openAndPlay(place));
    place.hang();
    ASSERT_TRUE(place.isWaitedFor());
    place.answer();
    EXPECT_TRUE(player.comesToMoveOn());
    EXPECT_EQ(page->close(), 0);
}

TEST_F(HangingMusic, ARowOfWhichNothingAnswersIsSelectedAndLeft) {
    const HangingPlace place(tracks.at(1));
    ASSERT_NO_FATAL_FAILURE(open(place));
    ASSERT_TRUE(player.order("next"));
    ASSERT_TRUE(player.order("next"));
    EXPECT_TRUE(player.comesToMetadata("xesam:title", "second.wav"));
    place.answer();
    EXPECT_TRUE(player.comesToMetadata("xesam:url", ("file://" + tracks.at(1)).toUtf8()));
    place.hang();
    endsAndKeepsItsSettings();
}

TEST_F(HangingMusic, ATrackThatHangsAtItsStartIsPlayedWhenItAnswers) {
    const HangingPlace place(tracks.at(1));
    ASSERT_NO_FATAL_FAILURE(openAndPlay(place));
    ASSERT_TRUE(player.order("next"));
    EXPECT_TRUE(player.comesToMetadata("xesam:title", "second.wav"));
    EXPECT_TRUE(page->turnTo(MusicPage));
    EXPECT_EQ(player.status(), "Playing");
    place.answer();
    EXPECT_TRUE(player.comesToMoveOn());
    EXPECT_TRUE(player.comesToMetadata("mpris:length", "60500000"));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(HangingMusic, TheProgramEndsWhileATrackHangsAtItsStart) {
    const HangingPlace place(tracks.at(1));
    ASSERT_NO_FATAL_FAILURE(openAndPlay(place));
    ASSERT_TRUE(player.order("next"));
    EXPECT_TRUE(player.comesToMetadata("xesam:title", "second.wav"));
    endsAndKeepsItsSettings();
}

}  // namespace
}  // namespace velorama::desktop

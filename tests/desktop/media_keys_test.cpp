#include "desktop/media_player.h"
#include "desktop/photographs.h"
#include "desktop/show_screen.h"
#include "sound/sound_server.h"
#include "support/sound_files.h"

#include <gtest/gtest.h>

#include <vector>

namespace velorama::desktop {
namespace {

// A desktop with a sound server, and the program on it as other programs of the session reach it.
class MediaKeysOnDesktop : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_TRUE(server.start());
    }

    // Two tracks of a minute, so that none ends by itself.
    void putMusic() {
        const QString details = QStringLiteral("mfrmPRGMAINAUD\\Details");
        const QByteArray minute = test::wavFile(60500);
        store.setSetting(QStringLiteral("mfrmPRGMAINAUD\\Items Total"),
                         QStringLiteral("lstMUSICList Total"), QStringLiteral("2"));
        store.setSetting(details, QStringLiteral("lstMUSIC0"),
                         test::saved(session.home(), QStringLiteral("first song.wav"), minute));
        store.setSetting(details, QStringLiteral("lstMUSIC1"),
                         test::saved(session.home(), QStringLiteral("second song.wav"), minute));
    }

    void putPhotographs(const std::vector<const char*>& photographs) {
        for (std::size_t i = 0; i < photographs.size(); ++i) {
            files.append(session.home() +
                         QStringLiteral("/show/Photograph %1.jpg").arg(QChar(u"abc"[i])));
            ASSERT_TRUE(putPhotograph(photographs.at(i), files.back()))
                << "plasma-workspace-wallpapers is not installed";
            references.push_back(fittedReference(files.back(), look.picture.size()));
        }
        setPace(store, QStringLiteral("3600"), QStringLiteral("1"));
        ASSERT_TRUE(setFilesLocation(store, session.home() + QStringLiteral("/show")));
    }

    void open() {
        page.emplace(session, session.start({}, {QStringLiteral("SDL_AUDIODRIVER=pulseaudio"),
                                                 QStringLiteral("PULSE_SERVER=") +
                                                     qEnvironmentVariable("PULSE_SERVER")}));
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(player.comesToStatus("Stopped")) << "it is not on the bus";
        if (!files.isEmpty()) {
            ASSERT_TRUE(page->waitForThumbnails(static_cast<int>(files.size())));
            page->press(AddAll);
            ASSERT_TRUE(waitForSlides(store, files));
        }
    }

    bool waitForSlide(std::size_t number) const {
        return waitFor(
            [&] { return psnr(session.glance(look.picture), references.at(number)) >= 34; });
    }

    DesktopSession session;
    MediaPlayer player{session};
    test::SoundServer server;
    Store store{session};
    ShowScreen look{QSize(1280, 960)};
    std::optional<PicturesPage> page;
    QStringList files;
    std::vector<QImage> references;
};

TEST_F(MediaKeysOnDesktop, LeadTheMusicOfTheWindow) {
    putMusic();
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_TRUE(player.order("next"));
    ASSERT_TRUE(server.startRecording());
    ASSERT_TRUE(player.order("play"));
    EXPECT_TRUE(player.comesToPlay("first song.wav"));
    EXPECT_TRUE(server.hears(0.5));
    EXPECT_EQ(player.metadata("mpris:length"), "60500000");
    EXPECT_TRUE(player.comesToMoveOn());

    ASSERT_TRUE(player.order("pause"));
    EXPECT_TRUE(player.comesToStatus("Paused"));
    const double held = player.position();
    EXPECT_GT(held, 0);
    ASSERT_TRUE(player.order("play-pause"));
    EXPECT_TRUE(player.comesToStatus("Playing"));
    EXPECT_GE(player.position(), held) << "it goes on where it was";

    ASSERT_TRUE(player.order("next"));
    EXPECT_TRUE(player.comesToPlay("second song.wav"));
    ASSERT_TRUE(player.order("next"));
    EXPECT_TRUE(player.comesToPlay("first song.wav"));
    ASSERT_TRUE(player.order("previous"));
    EXPECT_TRUE(player.comesToPlay("second song.wav"));
    ASSERT_TRUE(player.order("stop"));
    EXPECT_TRUE(player.comesToStatus("Stopped"));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(MediaKeysOnDesktop, AHeadsetThatIsPulledPauses) {
    const auto pactl = [this](const QStringList& words) {
        const QString where =
            QStringLiteral("PULSE_SERVER=") + qEnvironmentVariable("PULSE_SERVER");
        return session
            .run(QStringLiteral("env"), QStringList{where, QStringLiteral("pactl")} + words)
            .value_or(QByteArray())
            .trimmed();
    };
    const QByteArray headset =
        pactl({QStringLiteral("load-module"), QStringLiteral("module-null-sink"),
               QStringLiteral("sink_name=headset")});
    ASSERT_FALSE(headset.isEmpty());
    pactl({QStringLiteral("set-default-sink"), QStringLiteral("headset")});
    putMusic();
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_TRUE(player.order("next"));
    ASSERT_TRUE(player.order("play"));
    ASSERT_TRUE(waitFor([&] { return player.position() > 1; }));
    ASSERT_EQ(player.status(), "Playing");
    pactl({QStringLiteral("unload-module"), QString::fromLatin1(headset)});
    EXPECT_TRUE(player.comesToStatus("Paused"));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(MediaKeysOnDesktop, StepAndPauseTheShow) {
    putMusic();
    ASSERT_NO_FATAL_FAILURE(putPhotographs({kOrdinary, kOther}));
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_TRUE(player.order("next"));
    const WindowId show = page->startShow();
    ASSERT_NE(show, 0U);
    EXPECT_TRUE(player.comesToPlay("first song.wav"));
    EXPECT_TRUE(waitForSlide(0));
    ASSERT_TRUE(player.order("next"));
    EXPECT_TRUE(waitForSlide(1));
    ASSERT_TRUE(player.order("previous"));
    EXPECT_TRUE(waitForSlide(0));
    EXPECT_TRUE(player.comesToPlay("first song.wav")) << "the music's row is left alone";
    ASSERT_TRUE(player.order("pause"));
    EXPECT_TRUE(player.comesToStatus("Paused"));
    ASSERT_TRUE(player.order("play"));
    EXPECT_TRUE(player.comesToStatus("Playing"));
    ASSERT_TRUE(player.order("stop"));
    EXPECT_TRUE(page->waitForEndOfShow());
    EXPECT_TRUE(player.comesToStatus("Stopped"));
    ASSERT_TRUE(session.activate(page->window()));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(MediaKeysOnDesktop, RaiseAndQuitAreTheWindows) {
    ASSERT_NO_FATAL_FAILURE(putPhotographs({kOrdinary, kOther}));
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_TRUE(session
                    .run(QStringLiteral("xdotool"),
                         {QStringLiteral("windowminimize"), QString::number(page->window())})
                    .has_value());
    ASSERT_TRUE(waitFor([&] { return session.activeWindow() != page->window(); }));
    ASSERT_TRUE(player.call("Raise"));
    EXPECT_TRUE(waitFor([&] { return session.activeWindow() == page->window(); }));
    // An unsaved list: it asks, and Cancel keeps the window.
    ASSERT_TRUE(player.call("Quit"));
    ASSERT_TRUE(page->answer(QStringLiteral("Escape")));
    EXPECT_TRUE(page->waitForNoDialog());
    EXPECT_TRUE(page->program().runs());
    ASSERT_TRUE(player.call("Quit"));
    ASSERT_TRUE(page->answer(QStringLiteral("shift+n")));
    EXPECT_EQ(page->program().waitForExit(), 0);
}

}  // namespace
}  // namespace velorama::desktop

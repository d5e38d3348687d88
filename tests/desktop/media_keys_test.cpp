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
        ASSERT_TRUE(waitFor([this] { return ask({QStringLiteral("status")}) == "Stopped"; }))
            << "it is not on the bus";
        if (!files.isEmpty()) {
            ASSERT_TRUE(page->waitForThumbnails(static_cast<int>(files.size())));
            page->press(AddAll);
            ASSERT_TRUE(waitForSlides(store, files));
        }
    }

    // What playerctl prints; nothing where it fails.
    QByteArray ask(const QStringList& words) const {
        const QStringList all =
            QStringList{QStringLiteral("--no-messages"), QStringLiteral("--player=velorama")} +
            words;
        return session.run(QStringLiteral("playerctl"), all).value_or(QByteArray()).trimmed();
    }
    bool order(const char* word) const {
        return session
            .run(QStringLiteral("playerctl"),
                 {QStringLiteral("--player=velorama"), QLatin1String(word)})
            .has_value();
    }
    // What playerctl has no word for.
    bool call(const char* method) const {
        return session
            .run(QStringLiteral("dbus-send"),
                 {QStringLiteral("--session"), QStringLiteral("--print-reply"),
                  QStringLiteral("--dest=org.mpris.MediaPlayer2.velorama"),
                  QStringLiteral("/org/mpris/MediaPlayer2"),
                  QStringLiteral("org.mpris.MediaPlayer2.") + QLatin1String(method)})
            .has_value();
    }
    bool comesToPlay(const char* title) const {
        return waitFor([&] {
            return ask({QStringLiteral("status")}) == "Playing" &&
                   ask({QStringLiteral("metadata"), QStringLiteral("xesam:title")}) == title;
        });
    }
    bool comesToStatus(const char* status) const {
        return waitFor([&] { return ask({QStringLiteral("status")}) == status; });
    }
    double position() const { return ask({QStringLiteral("position")}).toDouble(); }

    bool waitForSlide(std::size_t number) const {
        return waitFor(
            [&] { return psnr(session.glance(look.picture), references.at(number)) >= 34; });
    }

    DesktopSession session;
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
    ASSERT_TRUE(order("next"));
    ASSERT_TRUE(server.startRecording());
    ASSERT_TRUE(order("play"));
    EXPECT_TRUE(comesToPlay("first song.wav"));
    EXPECT_TRUE(server.hears(0.5));
    EXPECT_EQ(ask({QStringLiteral("metadata"), QStringLiteral("mpris:length")}), "60500000");
    const double earlier = position();
    EXPECT_TRUE(waitFor([&] { return position() > earlier + 0.5; }));

    ASSERT_TRUE(order("pause"));
    EXPECT_TRUE(comesToStatus("Paused"));
    const double held = position();
    EXPECT_GT(held, 0);
    ASSERT_TRUE(order("play-pause"));
    EXPECT_TRUE(comesToStatus("Playing"));
    EXPECT_GE(position(), held) << "it goes on where it was";

    ASSERT_TRUE(order("next"));
    EXPECT_TRUE(comesToPlay("second song.wav"));
    ASSERT_TRUE(order("next"));
    EXPECT_TRUE(comesToPlay("first song.wav"));
    ASSERT_TRUE(order("previous"));
    EXPECT_TRUE(comesToPlay("second song.wav"));
    ASSERT_TRUE(order("stop"));
    EXPECT_TRUE(comesToStatus("Stopped"));
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
    ASSERT_TRUE(order("next"));
    ASSERT_TRUE(order("play"));
    ASSERT_TRUE(waitFor([&] { return position() > 1; }));
    ASSERT_EQ(ask({QStringLiteral("status")}), "Playing");
    pactl({QStringLiteral("unload-module"), QString::fromLatin1(headset)});
    EXPECT_TRUE(comesToStatus("Paused"));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(MediaKeysOnDesktop, StepAndPauseTheShow) {
    putMusic();
    ASSERT_NO_FATAL_FAILURE(putPhotographs({kOrdinary, kOther}));
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_TRUE(order("next"));
    const WindowId show = page->startShow();
    ASSERT_NE(show, 0U);
    EXPECT_TRUE(comesToPlay("first song.wav"));
    EXPECT_TRUE(waitForSlide(0));
    ASSERT_TRUE(order("next"));
    EXPECT_TRUE(waitForSlide(1));
    ASSERT_TRUE(order("previous"));
    EXPECT_TRUE(waitForSlide(0));
    EXPECT_TRUE(comesToPlay("first song.wav")) << "the music's row is left alone";
    ASSERT_TRUE(order("pause"));
    EXPECT_TRUE(comesToStatus("Paused"));
    ASSERT_TRUE(order("play"));
    EXPECT_TRUE(comesToStatus("Playing"));
    ASSERT_TRUE(order("stop"));
    EXPECT_TRUE(page->waitForEndOfShow());
    EXPECT_TRUE(comesToStatus("Stopped"));
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
    ASSERT_TRUE(call("Raise"));
    EXPECT_TRUE(waitFor([&] { return session.activeWindow() == page->window(); }));
    // An unsaved list: it asks, and Cancel keeps the window.
    ASSERT_TRUE(call("Quit"));
    ASSERT_TRUE(page->answer(QStringLiteral("Escape")));
    EXPECT_TRUE(page->waitForNoDialog());
    EXPECT_TRUE(page->program().runs());
    ASSERT_TRUE(call("Quit"));
    ASSERT_TRUE(page->answer(QStringLiteral("shift+n")));
    EXPECT_EQ(page->program().waitForExit(), 0);
}

}  // namespace
}  // namespace velorama::desktop

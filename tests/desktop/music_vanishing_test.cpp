#include "desktop/albums_page.h"
#include "desktop/photographs.h"
#include "sound/sound_server.h"
#include "support/sound_files.h"

#include <QFile>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

constexpr double firstPitch = 440;  // hertz
constexpr double secondPitch = 660;
constexpr double pitchLimit = 5;
constexpr int firstLength = 6100;  // milliseconds
constexpr int secondLength = 4100;

const QString listKey = QStringLiteral("mfrmPRGMAINAUD");

bool remove(const QString& track) {
    return QFile::remove(track);
}
bool empty(const QString& track) {
    return QFile::resize(track, 0);
}
bool cutShort(const QString& track) {
    return QFile::resize(track, 200000);
}

struct Loss {
    const char* name;
    bool (*happen)(const QString& track);
};

// A show with two tracks, of which the first is lost while it plays.
class VanishingTrack : public testing::TestWithParam<Loss> {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_TRUE(server.start());
        const QString slide = session.home() + QStringLiteral("/a.jpg");
        ASSERT_TRUE(putPhotograph(kOrdinary, slide))
            << "plasma-workspace-wallpapers is not installed";
        ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("1"), {slide})));
        store.setSetting(listKey + QStringLiteral("\\Items Total"),
                         QStringLiteral("lstMUSICList Total"), QString::number(tracks.size()));
        for (int row = 0; row < tracks.size(); ++row) {
            store.setSetting(listKey + QStringLiteral("\\Details"),
                             QStringLiteral("lstMUSIC%1").arg(row), tracks.at(row));
        }
    }

    void open() {
        page.emplace(session, session.start({album}, {QStringLiteral("SDL_AUDIODRIVER=pulseaudio"),
                                                      QStringLiteral("PULSE_SERVER=") +
                                                          qEnvironmentVariable("PULSE_SERVER")}));
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(page->waitForTitle(QStringLiteral("Velorama - ") + album));
        ASSERT_TRUE(page->turnTo(MusicPage));
        for (const char* key : {"Home", "Down", "Home"}) {
            session.key(QString::fromLatin1(key));
        }
    }

    DesktopSession session;
    test::SoundServer server;
    Store store{session};
    QString album = session.home() + QStringLiteral("/one.vlr");
    QStringList tracks = {test::saved(session.home(), QStringLiteral("a.wav"),
                                      test::wavFile(firstLength, firstPitch)),
                          test::saved(session.home(), QStringLiteral("b.wav"),
                                      test::wavFile(secondLength, secondPitch))};
    std::optional<MainWindow> page;
};

TEST_P(VanishingTrack, IsFollowedByTheNextRow) {
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_TRUE(server.startRecording());
    const WindowId show = page->startShow();
    ASSERT_NE(show, 0U);
    ASSERT_TRUE(server.hears(0.5));
    ASSERT_TRUE(GetParam().happen(tracks.at(0)));
    // Both tracks once at the most, and what follows them in the list, which begins anew.
    ASSERT_TRUE(server.hears(15)) << "the music has ended";
    const test::Recording heard = server.stopRecording();
    EXPECT_NEAR(heard.pitch(0.1), firstPitch, pitchLimit);
    EXPECT_NEAR(heard.pitch(7.5), secondPitch, pitchLimit);

    EXPECT_EQ(session.activeWindow(), show) << "the show has ended";
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(store.setting(listKey + QStringLiteral("\\Details"), QStringLiteral("lstMUSIC0")),
              tracks.at(0));
}

INSTANTIATE_TEST_SUITE_P(Losses, VanishingTrack,
                         testing::Values(Loss{"Removed", remove}, Loss{"Emptied", empty},
                                         Loss{"CutShort", cutShort}),
                         [](const auto& loss) { return std::string(loss.param.name); });

}  // namespace
}  // namespace velorama::desktop

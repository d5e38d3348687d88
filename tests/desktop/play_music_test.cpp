#include "desktop/pictures_page.h"
#include "sound/sound_server.h"
#include "support/sound_files.h"

#include <QFile>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

constexpr double kPitchLimit = 5;  // hertz

/// An album of one picture, a music list of one track, and a sound server.
class PlayMusic : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_TRUE(server.start());
        QImage picture(300, 200, QImage::Format_RGB32);
        picture.fill(Qt::green);
        ASSERT_TRUE(picture.save(session.home() + QStringLiteral("/a.bmp")));
        QFile file(album);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("1|\r\na.bmp\r\n");
        store.setSetting(QStringLiteral("mfrmPRGMAINAUD\\Items Total"),
                         QStringLiteral("lstMUSICList Total"), QStringLiteral("1"));
        store.setSetting(QStringLiteral("mfrmPRGMAINAUD\\Details"), QStringLiteral("lstMUSIC0"),
                         track(QStringLiteral("list.wav"), 660));
    }
    QString track(const QString& name, double hertz) const {
        return test::saved(session.home(), name, test::wavFile(20'000, hertz));
    }
    /// The pitch that is heard while the album is shown.
    double heard(const QStringList& options) {
        EXPECT_TRUE(server.startRecording());
        Program& program =
            session.start(QStringList{QStringLiteral("--play"), album} + options,
                          {QStringLiteral("SDL_AUDIODRIVER=pulseaudio"),
                           QStringLiteral("PULSE_SERVER=") + qEnvironmentVariable("PULSE_SERVER")});
        EXPECT_TRUE(server.hears(2));
        const double pitch = server.stopRecording().pitch();
        session.key(QStringLiteral("Escape"));
        EXPECT_EQ(program.waitForExit(), 0);
        return pitch;
    }

    DesktopSession session{{.width = 800, .height = 600}};
    Store store{session};
    test::SoundServer server;
    QString album = session.home() + QStringLiteral("/trip.vlr");
};

TEST_F(PlayMusic, IsTheListOfTheSettings) {
    EXPECT_NEAR(heard({}), 660, kPitchLimit);
}

TEST_F(PlayMusic, IsWhatTheCallNames) {
    track(QStringLiteral("our song.wav"), 880);
    EXPECT_NEAR(heard({QStringLiteral("--music"), QStringLiteral("our song.wav")}), 880,
                kPitchLimit);
}

}  // namespace
}  // namespace velorama::desktop

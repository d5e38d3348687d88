#include "desktop/file_manager.h"
#include "sound/sound_server.h"
#include "support/sound_files.h"

#include <QFile>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

// The music list, in twips on its page.
constexpr int listX = 1935;
constexpr int listY = 90;
constexpr int listWidth = 8700;
constexpr int listHeight = 2700;

QString rowOf(const Store& store, int row) {
    return store
        .setting(QStringLiteral("mfrmPRGMAINAUD\\Details"), QStringLiteral("lstMUSIC%1").arg(row))
        .value_or(QString());
}

void putRow(const Store& store, int row, const QString& path) {
    store.setSetting(QStringLiteral("mfrmPRGMAINAUD\\Details"),
                     QStringLiteral("lstMUSIC%1").arg(row), path);
    store.setSetting(QStringLiteral("mfrmPRGMAINAUD\\Items Total"),
                     QStringLiteral("lstMUSICList Total"), QString::number(row + 1));
}

/// A desktop with a sound server, and the program on it with its music page.
class MusicPageWorld : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_TRUE(server.start());
    }

    void open() {
        page.emplace(session, session.start({}, {QStringLiteral("SDL_AUDIODRIVER=pulseaudio"),
                                                 QStringLiteral("PULSE_SERVER=") +
                                                     qEnvironmentVariable("PULSE_SERVER")}));
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(page->turnTo(MusicPage));
    }
    QImage look() const { return page->look(page->onPage(listX, listY, listWidth, listHeight)); }
    bool changesFrom(const QImage& before) const {
        return waitFor([&] { return look() != before; });
    }

    DesktopSession session;
    test::SoundServer server;
    Store store{session};
    std::optional<MainWindow> page;
};

TEST_F(MusicPageWorld, DroppedMusicIsAddedInLowerCaseAndHeard) {
    const QString track =
        test::saved(session.home(), QStringLiteral("Mixed Case.WAV"), test::wavFile(20500, 660));
    test::saved(session.home(), QStringLiteral("Other Song.mp3"), QByteArray(3000, 'a'));
    const QString other = session.home() + QStringLiteral("/other song.mp3");
    const QString text = test::saved(session.home(), QStringLiteral("words.txt"), "words");
    ASSERT_NO_FATAL_FAILURE(open());
    const FileManager source(session, {other, text, track});
    ASSERT_NE(source.window(), 0U);
    const QImage empty = look();
    ASSERT_TRUE(source.dropOn(*page, page->onPage(listX + listWidth / 2, listY + listHeight / 2)));
    EXPECT_TRUE(changesFrom(empty));

    // The last row is selected, and plays though its file is written otherwise.
    ASSERT_TRUE(session.activate(page->window()));
    ASSERT_TRUE(server.startRecording());
    const QPoint secondRow = page->onPage(listX, listY) + QPoint(80, 25);
    session.doubleClick(page->window(), secondRow);
    EXPECT_TRUE(server.hears(1.5));
    EXPECT_NEAR(server.stopRecording().pitch(), 660, 5);
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(store.setting(QStringLiteral("mfrmPRGMAINAUD\\Items Total"),
                            QStringLiteral("lstMUSICList Total")),
              QStringLiteral("2"));
    EXPECT_EQ(rowOf(store, 0), other.toLower());
    EXPECT_EQ(rowOf(store, 1), track.toLower());
    EXPECT_TRUE(QFile::exists(track));
}

TEST_F(MusicPageWorld, AFrozenSoundServerHoldsUpNeitherTheWindowNorTheEnd) {
    const QString track =
        test::saved(session.home(), QStringLiteral("a.wav"), test::wavFile(20500));
    putRow(store, 0, track);
    putRow(store, 1, track);
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_TRUE(server.startRecording());
    server.freeze();
    session.key(QStringLiteral("Down"));
    for (const char* step : {"Down", "Up", "Down"}) {
        session.key(QStringLiteral("Return"));
        const QImage before = look();
        session.key(QString::fromLatin1(step));
        EXPECT_TRUE(changesFrom(before)) << step;
    }
    server.goOn();
    EXPECT_TRUE(server.hears(1));
    server.freeze();
    session.key(QStringLiteral("Return"));
    EXPECT_EQ(page->close(), 0);
}

}  // namespace
}  // namespace velorama::desktop

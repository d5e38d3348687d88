#include "desktop/album_files.h"
#include "desktop/main_window.h"
#include "desktop/session.h"
#include "desktop/store.h"

#include <QDir>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

const QString kTitle = QStringLiteral("Velorama");

class SecondInstance : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(session.isUp()); }

    QString storedHandle() const {
        return store.value(QStringLiteral("Software\\Details\\velorama"), QStringLiteral("hwnd"))
            .value_or(QString());
    }
    bool waitForHandle(const MainWindow& of) const {
        return waitFor([&] { return storedHandle() == QString::number(of.window()); });
    }
    QStringList sockets() const {
        return QDir(session.home() + QStringLiteral("/runtime/velorama"))
            .entryList(QDir::Files | QDir::System, QDir::Name)
            .filter(QRegularExpression(QStringLiteral("^\\d+-\\d+$")));
    }
    static QString captionOf(const QString& album) {
        return kTitle + QStringLiteral(" - ") + album;
    }

    DesktopSession session;
    const Store store{session};
};

TEST_F(SecondInstance, OpensItsOwnWindowAndTheFirstShowsNoChange) {
    const MainWindow first(session, session.start());
    ASSERT_TRUE(waitForHandle(first));
    const QString album = makeAlbum(session, QStringLiteral("My Albums/a trip.vlr"));
    const MainWindow second(session, session.start({album}));
    EXPECT_TRUE(second.waitForTitle(captionOf(album)));
    EXPECT_TRUE(waitForHandle(second));
    EXPECT_NE(first.window(), second.window());
    EXPECT_EQ(first.title(), kTitle);
    EXPECT_EQ(sockets().size(), 2);
    EXPECT_EQ(second.close(), 0);
    EXPECT_EQ(first.title(), kTitle);
    ASSERT_TRUE(session.activate(first.window()));
    EXPECT_EQ(first.close(), 0);
    EXPECT_EQ(sockets(), QStringList());
}

TEST_F(SecondInstance, MeetsAFirstThatShowsAnAlbum) {
    const QString one = makeAlbum(session, QStringLiteral("one.vlr"));
    const QString two = makeAlbum(session, QStringLiteral("two.vlr"));
    const MainWindow first(session, session.start({one}));
    ASSERT_TRUE(first.waitForTitle(captionOf(one)));
    const MainWindow second(session, session.start({two}));
    EXPECT_TRUE(second.waitForTitle(captionOf(two)));
    EXPECT_EQ(first.title(), captionOf(one));
    EXPECT_EQ(second.close(), 0);
    EXPECT_EQ(first.title(), captionOf(one));
    ASSERT_TRUE(session.activate(first.window()));
    EXPECT_EQ(first.close(), 0);
}

TEST_F(SecondInstance, TakesAMissingFileAsItsAlbumAllTheSame) {
    const MainWindow first(session, session.start());
    ASSERT_NE(first.window(), 0U);
    const QString album = session.home() + QStringLiteral("/no such.vlr");
    const MainWindow second(session, session.start({album}));
    EXPECT_TRUE(second.waitForTitle(captionOf(album)));
    EXPECT_EQ(second.close(), 0);
    EXPECT_EQ(first.title(), kTitle);
}

TEST_F(SecondInstance, AnAlbumNamedInItsFolderIsKnownElsewhere) {
    const QString later = makeAlbum(session, QStringLiteral("later.vlr"));
    const QString album = makeAlbum(session, QStringLiteral("albums/my trip.vlr"));
    const QString folder = session.home() + QStringLiteral("/albums");
    {
        // The shell hands blanks over in one word or, unquoted, in two.
        const MainWindow window(
            session, session.start({QStringLiteral("my"), QStringLiteral("trip.vlr")}, {}, folder));
        EXPECT_TRUE(window.waitForTitle(captionOf(album)));
        EXPECT_EQ(window.close(), 0);
    }
    {
        const MainWindow window(session, session.start({later}));
        EXPECT_TRUE(window.waitForTitle(captionOf(later)));
        EXPECT_EQ(window.close(), 0);
    }
    const QString details = QStringLiteral("mfrmPRGMAIN\\Details");
    EXPECT_EQ(store.setting(details, QStringLiteral("lvwALBUMS1")), album);
    EXPECT_EQ(store.setting(details, QStringLiteral("lvwALBUMS2")), later);
}

TEST_F(SecondInstance, AKilledFirstIsNoHindrance) {
    {
        const MainWindow first(session, session.start());
        ASSERT_TRUE(waitForHandle(first));
        first.program().kill();
    }
    EXPECT_EQ(sockets().size(), 1);
    const QString album = makeAlbum(session, QStringLiteral("trip.vlr"));
    const MainWindow second(session, session.start({album}));
    EXPECT_TRUE(second.waitForTitle(captionOf(album)));
    EXPECT_EQ(sockets().size(), 1);
    EXPECT_EQ(second.close(), 0);
    EXPECT_EQ(sockets(), QStringList());
}

// It answers nothing and still holds its socket.
TEST_F(SecondInstance, AFrozenFirstIsNoHindrance) {
    const MainWindow first(session, session.start());
    ASSERT_NE(first.window(), 0U);
    const QString pid = QString::number(first.program().pid());
    ASSERT_TRUE(session.run(QStringLiteral("kill"), {QStringLiteral("-STOP"), pid}));
    const QString album = makeAlbum(session, QStringLiteral("trip.vlr"));
    const MainWindow second(session, session.start({album}));
    EXPECT_TRUE(second.waitForTitle(captionOf(album)));
    EXPECT_EQ(second.close(), 0);
    ASSERT_TRUE(session.run(QStringLiteral("kill"), {QStringLiteral("-CONT"), pid}));
    ASSERT_TRUE(session.activate(first.window()));
    EXPECT_EQ(first.close(), 0);
}

TEST_F(SecondInstance, StartsWithoutAPlaceForSockets) {
    const QString file = makeAlbum(session, QStringLiteral("no folder"));
    const QStringList nowhere = {QStringLiteral("XDG_RUNTIME_DIR=") + file,
                                 QStringLiteral("TMPDIR=") + file};
    const QString album = makeAlbum(session, QStringLiteral("trip.vlr"));
    const MainWindow first(session, session.start({}, nowhere));
    ASSERT_TRUE(waitForHandle(first));
    const MainWindow second(session, session.start({album}, nowhere));
    EXPECT_TRUE(second.waitForTitle(captionOf(album)));
    EXPECT_TRUE(waitForHandle(second));
    EXPECT_EQ(second.close(), 0);
    second.program().takeErrors();
    first.program().takeErrors();
}

}  // namespace
}  // namespace velorama::desktop

#include "desktop/main_window.h"
#include "desktop/pictures_page.h"
#include "desktop/show_screen.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <csignal>

namespace velorama::desktop {
namespace {

const QString kTitle = QStringLiteral("Velorama");
const QColor kFirst = Qt::green;
const QColor kSecond = Qt::blue;

/// An album of two pictures of one colour each, and settings with quick fades.
class Play : public testing::Test {
protected:
    void begin(const ScreenOptions& screen = {.width = 800, .height = 600}) {
        session.emplace(screen);
        ASSERT_TRUE(session->isUp());
        store.emplace(*session);
        look.emplace(QSize(screen.width, screen.height));
        setPace(*store, QStringLiteral("3600"), QStringLiteral("1"));
        pictures = {put(QStringLiteral("green.bmp"), kFirst),
                    put(QStringLiteral("blue.bmp"), kSecond)};
        album = session->home() + QStringLiteral("/Our \u00DCber 100% 'trip'.vlr");
        QFile file(album);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("2|Our note \r\n" + pictures.join(QLatin1String("\r\n")).toUtf8() + "\r\n\r\n");
    }
    QString put(const QString& name, const QColor& colour) const {
        QImage picture(300, 200, QImage::Format_RGB32);
        picture.fill(colour);
        QString path = session->home() + u'/' + name;
        EXPECT_TRUE(picture.save(path));
        return path;
    }
    Program& play(const QStringList& options = {}) {
        return session->start(QStringList{QStringLiteral("--play"), album} + options);
    }

    bool waitForSlide(const QColor& colour, QPoint at = {}) const {
        const QPoint middle = at.isNull() ? look->picture.center() : at;
        return waitFor([&] { return session->glance().pixelColor(middle) == colour; });
    }
    /// All that lies in the folder of the settings, with its bytes and its times.
    QStringList settings() const {
        QStringList all;
        const QDir folder(QFileInfo(store->file()).path());
        for (const QFileInfo& one : folder.entryInfoList(QDir::Files | QDir::Hidden, QDir::Name)) {
            QFile file(one.filePath());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            all += one.fileName() + u' ' + one.lastModified().toString(Qt::ISODateWithMs) + u' ' +
                   QString::number(one.permissions(), 16) + u' ' +
                   QString::fromLatin1(file.readAll().toHex());
        }
        return all;
    }
    static void terminate(const Program& program) {
        ::kill(static_cast<pid_t>(program.pid()), SIGTERM);
    }

    std::optional<DesktopSession> session;
    std::optional<Store> store;
    std::optional<ShowScreen> look;
    QStringList pictures;
    QString album;
};

TEST_F(Play, ShowsTheAlbumAloneAndAKeyEndsIt) {
    ASSERT_NO_FATAL_FAILURE(begin());
    const QStringList before = settings();
    ASSERT_EQ(before.size(), 1);
    Program& program = play();
    ASSERT_TRUE(waitForSlide(kFirst));
    EXPECT_TRUE(waitFor([&] { return look->isFramed(session->glance()); }));
    const QImage first = session->glance();
    for (const QPoint& corner : look->corners()) {
        EXPECT_NEAR(qRed(first.pixel(corner)), look->gradientRed(corner), 1);
    }
    EXPECT_EQ(session->windows(QString(), program.pid()).size(), 1U);
    session->key(QStringLiteral("Right"));
    ASSERT_TRUE(waitForSlide(kSecond));
    session->key(QStringLiteral("Escape"));
    EXPECT_EQ(program.waitForExit(), 0);
    EXPECT_EQ(settings(), before);
}

TEST_F(Play, OnceEndsOfItself) {
    ASSERT_NO_FATAL_FAILURE(begin());
    const QStringList before = settings();
    Program& program =
        play({QStringLiteral("--once"), QStringLiteral("--interval"), QStringLiteral("3")});
    EXPECT_TRUE(waitForSlide(kFirst));
    EXPECT_TRUE(waitForSlide(kSecond));
    EXPECT_EQ(program.waitForExit(), 0);
    EXPECT_EQ(settings(), before);
}

TEST_F(Play, LockedHearsTheSystemOnly) {
    ASSERT_NO_FATAL_FAILURE(begin());
    const QStringList before = settings();
    Program& program =
        play({QStringLiteral("--lock"), QStringLiteral("--interval"), QStringLiteral("2")});
    ASSERT_TRUE(waitForSlide(kFirst));
    const WindowId window = session->waitForWindow(kTitle, program.pid());
    // A click would pause it: the next slide comes all the same.
    session->click(window, look->picture.center());
    session->moveMouse(window, {400, 595});
    for (const char* key : {"Escape", "a", "Tab", "space", "alt+F4"}) {
        session->key(QString::fromLatin1(key));
    }
    EXPECT_TRUE(waitForSlide(kSecond));
    EXPECT_TRUE(waitForSlide(kFirst));
    EXPECT_TRUE(program.runs());
    terminate(program);
    EXPECT_EQ(program.waitForExit(), 0);
    EXPECT_EQ(settings(), before);
}

TEST_F(Play, LockedGoesOnWhenPicturesAreBack) {
    ASSERT_NO_FATAL_FAILURE(begin());
    Program& program =
        play({QStringLiteral("--lock"), QStringLiteral("--interval"), QStringLiteral("0.5")});
    ASSERT_TRUE(waitForSlide(kFirst));
    for (const QString& picture : pictures) {
        ASSERT_TRUE(QFile::remove(picture));
    }
    put(QStringLiteral("blue.bmp"), Qt::yellow);
    EXPECT_TRUE(waitForSlide(Qt::yellow));
    terminate(program);
    EXPECT_EQ(program.waitForExit(), 0);
}

// The server cannot shrink to nothing and says so, but the output is off.
TEST_F(Play, OutlivesItsOnlyScreen) {
    ASSERT_NO_FATAL_FAILURE(begin());
    const auto isOn = [&] {
        return session->run(QStringLiteral("xrandr"), {QStringLiteral("--query")})
            .value_or(QByteArray())
            .contains("connected 800x600+0+0");
    };
    Program& program =
        play({QStringLiteral("--lock"), QStringLiteral("--interval"), QStringLiteral("2")});
    ASSERT_TRUE(waitForSlide(kFirst));
    ASSERT_TRUE(isOn());
    session->run(QStringLiteral("xrandr"),
                 {QStringLiteral("--output"), QStringLiteral("screen"), QStringLiteral("--off")});
    ASSERT_TRUE(waitFor([&] { return !isOn(); }));
    ASSERT_TRUE(session->run(
        QStringLiteral("xrandr"),
        {QStringLiteral("--output"), QStringLiteral("screen"), QStringLiteral("--auto")}));
    EXPECT_TRUE(waitForSlide(kSecond));
    EXPECT_TRUE(waitForSlide(kFirst));
    EXPECT_TRUE(waitFor([&] { return look->isFramed(session->glance()); }));
    terminate(program);
    EXPECT_EQ(program.waitForExit(), 0);
}

TEST_F(Play, WithoutAWindowManagerKeysReachItToo) {
    ASSERT_NO_FATAL_FAILURE(begin({.width = 800, .height = 600, .windowManager = false}));
    Program& program = play();
    ASSERT_TRUE(waitForSlide(kFirst));
    session->key(QStringLiteral("Right"));
    ASSERT_TRUE(waitForSlide(kSecond));
    session->key(QStringLiteral("Escape"));
    EXPECT_EQ(program.waitForExit(), 0);
}

TEST_F(Play, AFirstInstanceIsLeftAlone) {
    ASSERT_NO_FATAL_FAILURE(begin());
    const QString key = QStringLiteral("Software\\Details\\velorama");
    const auto handle = [&] { return store->value(key, QStringLiteral("hwnd")); };
    const MainWindow first(*session, session->start());
    ASSERT_TRUE(waitFor([&] { return handle() == QString::number(first.window()); }));
    Program& program = play();
    EXPECT_TRUE(waitForSlide(kFirst));
    session->key(QStringLiteral("Escape"));
    EXPECT_EQ(program.waitForExit(), 0);
    EXPECT_EQ(first.title(), kTitle);
    EXPECT_EQ(handle(), QString::number(first.window()));
    EXPECT_EQ(storedItems(*store).value_or(QStringLiteral("0")), QStringLiteral("0"));
    ASSERT_TRUE(session->activate(first.window()));
    EXPECT_EQ(first.close(), 0);
}

TEST_F(Play, AScreenThatIsNotThereIsOneLine) {
    ASSERT_NO_FATAL_FAILURE(begin());
    Program& program = play({QStringLiteral("--screen"), QStringLiteral("2")});
    EXPECT_EQ(program.waitForExit(), 1);
    EXPECT_EQ(program.takeErrors(), QStringLiteral("velorama: there is no screen 2, only 1\n"));
}

class PlayOnTwo : public Play {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(begin({.width = 1600, .height = 600}));
        // The first takes the server's one output, which would be a monitor of its own otherwise.
        ASSERT_TRUE(setMonitor("A", "800/211x600/159+0+0", "screen"));
        ASSERT_TRUE(setMonitor("B", "800/211x600/159+800+0", "none"));
    }
    bool setMonitor(const char* name, const char* place, const char* output) const {
        return session
            ->run(QStringLiteral("xrandr"),
                  {QStringLiteral("--setmonitor"), QString::fromLatin1(name),
                   QString::fromLatin1(place), QString::fromLatin1(output)})
            .has_value();
    }
};

TEST_F(PlayOnTwo, ComesBackToTheScreenThatWasLost) {
    const QRect left(0, 0, 800, 600);
    const QRect right(800, 0, 800, 600);
    Program& program = play({QStringLiteral("--screen"), QStringLiteral("2")});
    ASSERT_TRUE(waitForSlide(kFirst, right.center()));
    const WindowId window = session->waitForWindow(kTitle, program.pid());
    EXPECT_TRUE(waitFor([&] { return session->geometry(window) == right; }));
    ASSERT_TRUE(session->run(QStringLiteral("xrandr"),
                             {QStringLiteral("--delmonitor"), QStringLiteral("B")}));
    EXPECT_TRUE(waitFor([&] { return session->geometry(window) == left; }));
    EXPECT_TRUE(waitForSlide(kFirst, left.center()));
    ASSERT_TRUE(setMonitor("B", "800/211x600/159+800+0", "none"));
    EXPECT_TRUE(waitFor([&] { return session->geometry(window) == right; }));
    EXPECT_TRUE(waitForSlide(kFirst, right.center()));
    session->key(QStringLiteral("Escape"));
    EXPECT_EQ(program.waitForExit(), 0);
}

}  // namespace
}  // namespace velorama::desktop

// What a desktop must see of the program on Wayland is what it sees on X11. Where it puts windows
// is its own business.

#include "wayland/wayland_session.h"

#include "desktop/session.h"
#include "desktop/store.h"

#include <QColor>
#include <QFile>

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <utility>

namespace velorama::wayland {
namespace {

const QString windowKey = QStringLiteral("mfrmPRGMAIN\\Window");
const QString programTitle = QStringLiteral("Velorama");
const QString settingsTitle = QStringLiteral("Slideshow Settings");

bool isLike(const QColor& seen, const QColor& wanted) {
    constexpr int tolerance = 8;  // the pictures are JPEG
    return qAbs(seen.red() - wanted.red()) <= tolerance &&
           qAbs(seen.green() - wanted.green()) <= tolerance &&
           qAbs(seen.blue() - wanted.blue()) <= tolerance;
}

/// Three pictures of one colour each, and an album of them.
template <typename Session>
class OnWayland : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        QByteArray text = "3|Our note\r\n";
        for (const QColor& colour : colours) {
            QImage picture(320, 240, QImage::Format_RGB32);
            picture.fill(colour);
            const QString file =
                session.home() + QLatin1Char('/') + colour.name().mid(1) + QStringLiteral(".jpg");
            ASSERT_TRUE(picture.save(file, "JPG", 100));
            text += file.toUtf8() + "\r\n";
        }
        QFile file(album);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }

    std::optional<QString> stored(const char* name) const {
        return store.setting(windowKey, QLatin1String(name));
    }
    void storePlace(const char* left, const char* top, const char* width, const char* height) {
        const std::array<std::pair<const char*, const char*>, 4> values = {
            {{"Left", left}, {"Top", top}, {"Width", width}, {"Height", height}}};
        for (const auto& [name, value] : values) {
            ASSERT_TRUE(
                store.setSetting(windowKey, QLatin1String(name), QString::fromLatin1(value)));
        }
    }
    QString placeStored() const {
        QStringList all;
        for (const char* name : {"Left", "Top", "Width", "Height", "Window State"}) {
            all += stored(name).value_or(QStringLiteral("(none)"));
        }
        return all.join(QLatin1Char(' '));
    }
    /// A window is on the screen when the compositor says so of its surface.
    bool isShown(Client& client) const {
        return client.waitFor(QStringLiteral(".set_title(\"Velorama\")")) &&
               client.waitFor(QStringLiteral(".enter(wl_output@"));
    }

    const std::array<QColor, 3> colours = {QColor(0, 0, 255), QColor(0, 255, 0),
                                           QColor(255, 255, 0)};
    Session session;
    desktop::Store store{session.configFolder()};
    QString album = session.home() + QStringLiteral("/Our trip.vlr");
    QString albumTitle = programTitle + QStringLiteral(" - ") + album;
};

class OnWeston : public OnWayland<Weston> {};

TEST_F(OnWeston, ComesUpAndEndsWithItsStoreWritten) {
    const QImage empty = session.screenshot();
    ASSERT_EQ(empty.size(), QSize(1280, 960));
    Client& client = session.start();
    ASSERT_TRUE(isShown(client));
    EXPECT_TRUE(client.waitFor(QStringLiteral(".set_app_id(\"velorama\")")));
    EXPECT_TRUE(desktop::waitFor([&] { return session.screenshot() != empty; }));
    EXPECT_EQ(client.terminate(), 0);
    EXPECT_EQ(stored("Width"), QStringLiteral("11040"));
    EXPECT_EQ(stored("Window State"), QStringLiteral("0"));
    EXPECT_EQ(store.setting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX")),
              QStringLiteral("1"));
}

TEST_F(OnWeston, OpensAnAlbumByItsName) {
    Client& client = session.start({album});
    ASSERT_TRUE(isShown(client));
    EXPECT_TRUE(client.waitFor(QStringLiteral(".set_title(\"%1\")").arg(albumTitle)));
    EXPECT_EQ(client.terminate(), 0);
    EXPECT_EQ(store.setting(QStringLiteral("frmSLIDESHOW\\Items"), QStringLiteral("Items")),
              QStringLiteral("3"));
}

// The frame is drawn by the program here, and is none of the stored size.
TEST_F(OnWeston, SizeStaysAndThePlaceOfX11IsKept) {
    storePlace("1500", "3000", "12000", "9000");
    for (int run = 0; run < 3; ++run) {
        Client& client = session.start();
        ASSERT_TRUE(isShown(client));
        EXPECT_EQ(client.terminate(), 0);
        ASSERT_EQ(placeStored(), QStringLiteral("1500 3000 12000 9000 0")) << run;
    }
}

TEST_F(OnWeston, MaximisedComesBackOverItsOldSize) {
    storePlace("1500", "3000", "12000", "9000");
    ASSERT_TRUE(store.setSetting(windowKey, QStringLiteral("Window State"), QStringLiteral("2")));
    for (int run = 0; run < 2; ++run) {
        Client& client = session.start();
        ASSERT_TRUE(isShown(client));
        EXPECT_TRUE(client.waitFor(QStringLiteral(".set_maximized()")));
        EXPECT_EQ(client.terminate(), 0);
        ASSERT_EQ(placeStored(), QStringLiteral("1500 3000 12000 9000 2")) << run;
    }
}

class OnSway : public OnWayland<Sway> {
protected:
    void open() {
        client = &session.start({album});
        ASSERT_TRUE(session.waitForFocus(albumTitle));
        ASSERT_TRUE(client->waitFor(QStringLiteral("wl_keyboard@")));
        // Keys pressed before the slides are there would be lost.
        ASSERT_TRUE(desktop::waitFor([this] { return shows(colours[0]) && shows(colours[2]); }));
    }
    bool shows(const QColor& colour) const {
        constexpr int grid = 4;  // pixels; a thumbnail is many times as large
        const QImage screen = session.screenshot();
        for (int y = 0; y < screen.height(); y += grid) {
            for (int x = 0; x < screen.width(); x += grid) {
                if (isLike(screen.pixelColor(x, y), colour)) {
                    return true;
                }
            }
        }
        return false;
    }
    bool press(const char* name) {
        return session.key({QStringLiteral("-k"), QString::fromLatin1(name)});
    }
    bool pressWithAlt(const char* name) {
        return session.key({QStringLiteral("-M"), QStringLiteral("alt"), QStringLiteral("-k"),
                            QString::fromLatin1(name), QStringLiteral("-m"),
                            QStringLiteral("alt")});
    }
    int popups() {
        return static_cast<int>(client->protocol().filter(QStringLiteral(".get_popup(")).size());
    }
    /// A menu is open when its popup is there.
    bool menu(const char* top, const char* entry) {
        const int before = popups();
        return pressWithAlt(top) && desktop::waitFor([&] { return popups() > before; }) &&
               press(entry);
    }
    bool isFullScreen() const {
        return session.focused().value(QStringLiteral("fullscreen_mode")).toInt() == 1;
    }
    bool waitForColour(const QColor& colour) {
        return desktop::waitFor(
            [&] { return isLike(session.screenshot().pixelColor(640, 480), colour); });
    }

    Client* client = nullptr;
};

TEST_F(OnSway, ShowFillsTheScreenAndEscapeEndsIt) {
    open();
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(press("F5"));
        ASSERT_TRUE(session.waitForFocus(programTitle));
        ASSERT_TRUE(desktop::waitFor([this] { return isFullScreen(); }));
        ASSERT_TRUE(waitForColour(colours[0]));
        ASSERT_TRUE(press("Right"));
        ASSERT_TRUE(waitForColour(colours[1]));
        // The ground of the show, not the compositor's, is at the edge.
        const QColor corner = session.screenshot().pixelColor(1279, 0);
        EXPECT_GT(corner.red(), 200);
        EXPECT_LT(corner.green(), 20);
        ASSERT_TRUE(press("Escape"));
        ASSERT_TRUE(session.waitForFocus(albumTitle));
        EXPECT_FALSE(isFullScreen());
    }
    EXPECT_EQ(client->terminate(), 0);
}

TEST_F(OnSway, ShowCanBeEndedByTheDesktop) {
    open();
    ASSERT_TRUE(press("F5"));
    ASSERT_TRUE(session.waitForFocus(programTitle));
    ASSERT_TRUE(waitForColour(colours[0]));
    ASSERT_TRUE(session.tell(QStringLiteral("kill")));
    ASSERT_TRUE(session.waitForFocus(albumTitle));
    EXPECT_EQ(client->terminate(), 0);
}

TEST_F(OnSway, DialogsStandOverTheWindow) {
    open();
    ASSERT_TRUE(menu("s", "t"));
    ASSERT_TRUE(session.waitForFocus(settingsTitle));
    EXPECT_TRUE(client->waitFor(QStringLiteral(".set_parent(xdg_toplevel@")));
    ASSERT_TRUE(press("Escape"));
    ASSERT_TRUE(session.waitForFocus(albumTitle));
    ASSERT_TRUE(menu("h", "a"));
    ASSERT_TRUE(session.waitForFocus(QStringLiteral("About")));
    ASSERT_TRUE(press("Escape"));
    ASSERT_TRUE(session.waitForFocus(albumTitle));
    EXPECT_EQ(client->terminate(), 0);
}

TEST_F(OnSway, ClosingAsks) {
    open();
    ASSERT_TRUE(menu("d", "c"));
    ASSERT_TRUE(desktop::waitFor([this] { return !shows(colours[0]); }));
    for (const bool byKey : {true, false}) {
        ASSERT_TRUE(byKey ? pressWithAlt("F4") : session.tell(QStringLiteral("kill")));
        ASSERT_TRUE(session.waitForFocus(QStringLiteral("Help")));
        ASSERT_TRUE(press("Escape"));
        ASSERT_TRUE(session.waitForFocus(albumTitle));
        EXPECT_TRUE(client->program().runs());
    }
    ASSERT_TRUE(pressWithAlt("F4"));
    ASSERT_TRUE(session.waitForFocus(QStringLiteral("Help")));
    // The buttons are Yes, No and Cancel, and the first has the keyboard.
    ASSERT_TRUE(press("Tab"));
    ASSERT_TRUE(press("space"));
    EXPECT_EQ(client->program().waitForExit(), 0)
        << session.focused().value(QStringLiteral("name")).toString().toStdString();
    QFile file(album);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("3|Our note\r\n"));
}

// An endless exchange over a place that the desktop does not give would go on for ever.
TEST_F(OnSway, ComesToRest) {
    open();
    ASSERT_TRUE(session.tell(QStringLiteral("move position 0 0")));
    ASSERT_TRUE(session.tell(QStringLiteral("resize set 900 700")));
    ASSERT_TRUE(desktop::waitFor([this] {
        return session.focused()
                   .value(QStringLiteral("window_rect"))
                   .toObject()
                   .value(QStringLiteral("width")) == 900;
    }));
    ASSERT_TRUE(client->waitFor(QStringLiteral(".configure(900, 700")));
    qsizetype before = -1;
    EXPECT_TRUE(desktop::waitFor([&] {
        // A whole photograph lies between two looks.
        session.screenshot();
        return std::exchange(before, client->protocol().size()) == client->protocol().size();
    }));
    EXPECT_EQ(client->terminate(), 0);
    EXPECT_EQ(stored("Width"), QStringLiteral("13500"));
    EXPECT_EQ(stored("Height"), QStringLiteral("10500"));
    EXPECT_EQ(stored("Left"), std::nullopt);
}

}  // namespace
}  // namespace velorama::wayland

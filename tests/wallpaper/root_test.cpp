#include "wallpaper_world.h"

#include <xcb/xcb.h>

namespace velorama::test {
namespace {

class BareServer : public WallpaperWorld {
protected:
    desktop::ScreenOptions options() const override {
        return {.width = 320, .height = 240, .depth = 24, .dpi = 96, .windowManager = false};
    }
    QString rootProperty(const char* name) const {
        const auto output =
            screen->run(QStringLiteral("xprop"), {QStringLiteral("-root"), QLatin1String(name)});
        return QString::fromUtf8(output.value_or(QByteArray())).section(u'#', 1).trimmed();
    }
    bool hasPixmap(uint32_t pixmap) const {
        const QByteArray display =
            screen->environment().value(QStringLiteral("DISPLAY")).toLatin1();
        xcb_connection_t* c = xcb_connect(display.constData(), nullptr);
        auto* reply = xcb_get_geometry_reply(c, xcb_get_geometry(c, pixmap), nullptr);
        const bool found = reply != nullptr;
        free(reply);
        xcb_disconnect(c);
        return found;
    }
};

TEST_F(BareServer, rootWindowShowsThePictureAfterTheConnectionIsGone) {
    ASSERT_TRUE(setRootBackground(session(), file));
    EXPECT_TRUE(shows(Qt::red));
    const QImage photograph = screen->screenshot();
    EXPECT_EQ(photograph.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(photograph.pixelColor(319, 239), QColor(Qt::red));
    EXPECT_EQ(rootProperty("_XROOTPMAP_ID"), rootProperty("ESETROOT_PMAP_ID"));
}

TEST_F(BareServer, sameNameShowsTheNewPictureAndFreesTheOld) {
    ASSERT_TRUE(setRootBackground(session(), file));
    const uint32_t before = rootProperty("_XROOTPMAP_ID").toUInt(nullptr, 16);
    EXPECT_TRUE(hasPixmap(before));
    writePicture(file, Qt::blue);
    ASSERT_TRUE(setRootBackground(session(), file));
    EXPECT_TRUE(shows(Qt::blue));
    const uint32_t after = rootProperty("_XROOTPMAP_ID").toUInt(nullptr, 16);
    EXPECT_TRUE(hasPixmap(after));
    EXPECT_TRUE(before == after || !hasPixmap(before));
}

TEST_F(BareServer, pictureThatCannotBeReadChangesNothing) {
    ASSERT_TRUE(setRootBackground(session(), file));
    QFile broken(file);
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("broken");
    broken.close();
    EXPECT_FALSE(setRootBackground(session(), file));
    EXPECT_TRUE(shows(Qt::red));
}

TEST_F(BareServer, eachMonitorIsFilledFromTheMiddle) {
    // Red at the left, green in the middle half, blue at the right.
    QImage striped(400, 100, QImage::Format_RGB32);
    striped.fill(Qt::green);
    for (int y = 0; y < 100; ++y) {
        for (int x = 0; x < 100; ++x) {
            striped.setPixelColor(x, y, Qt::red);
            striped.setPixelColor(399 - x, y, Qt::blue);
        }
    }
    ASSERT_TRUE(striped.save(file, "BMP"));
    ASSERT_TRUE(setRootBackground(session(), file));
    // As high as the screen the picture is 960 wide; the middle 320 are seen.
    ASSERT_TRUE(shows(Qt::green, QPoint(0, 0)));
    ASSERT_TRUE(shows(Qt::green, QPoint(319, 239)));
    // A monitor over each half of the height: 320 x 120 shows the middle 267 of 400 columns.
    // The first takes the server's one output, which would be a monitor of its own otherwise.
    for (const char* monitor : {"A 320/100x120/50+0+0 screen", "B 320/100x120/50+0+120 none"}) {
        const QString text = QLatin1String(monitor);
        ASSERT_TRUE(screen->run(QStringLiteral("xrandr"),
                                {QStringLiteral("--setmonitor"), text.section(u' ', 0, 0),
                                 text.section(u' ', 1, 1), text.section(u' ', 2)}));
    }
    ASSERT_TRUE(setRootBackground(session(), file));
    for (const int y : {5, 115, 125, 235}) {
        ASSERT_TRUE(shows(Qt::red, QPoint(5, y))) << y;
        ASSERT_TRUE(shows(Qt::green, QPoint(160, y))) << y;
        ASSERT_TRUE(shows(Qt::blue, QPoint(314, y))) << y;
    }
}

TEST_F(BareServer, rootWindowOfAWaylandSessionIsLeftAlone) {
    EXPECT_FALSE(setRootBackground(session({QStringLiteral("WAYLAND_DISPLAY=wayland-0")}), file));
    EXPECT_FALSE(setRootBackground(session({QStringLiteral("XDG_SESSION_TYPE=wayland")}), file));
    EXPECT_EQ(rootProperty("_XROOTPMAP_ID"), QString());
}

TEST_F(BareServer, oddNamesAreShown) {
    for (const QString& name : oddNames()) {
        writePicture(file, Qt::black);
        const QString odd = screen->dataFolder() + u'/' + name + QStringLiteral("/w.bmp");
        writePicture(odd, Qt::yellow);
        EXPECT_TRUE(setBackground(session(), odd)) << name.toStdString();
        ASSERT_TRUE(shows(Qt::yellow));
        ASSERT_TRUE(setBackground(session(), file));
        ASSERT_TRUE(shows(Qt::black));
    }
}

class SmallDepth : public BareServer {
protected:
    desktop::ScreenOptions options() const override {
        return {.width = 320, .height = 240, .depth = 16, .dpi = 96, .windowManager = false};
    }
};

TEST_F(SmallDepth, sixteenBitsAreShownToo) {
    writePicture(file, QColor(255, 0, 255));
    ASSERT_TRUE(setRootBackground(session(), file));
    EXPECT_EQ(screen->screenshot().pixelColor(160, 120), QColor(255, 0, 255));
}

}  // namespace
}  // namespace velorama::test

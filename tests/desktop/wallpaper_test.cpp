#include "desktop/pictures_page.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

#include <cstdlib>

namespace velorama::desktop {
namespace {

/// No desktop but a window manager: the picture goes on the root window.
class DesktopWallpaper : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_TRUE(QDir().mkpath(folder));
        for (const auto& [name, colour] :
             {std::pair("a red one.bmp", Qt::red), std::pair("b.bmp", Qt::blue)}) {
            QImage picture(300, 200, QImage::Format_RGB32);
            picture.fill(colour);
            ASSERT_TRUE(picture.save(folder + u'/' + QLatin1String(name), "BMP"));
        }
        setFilesLocation(store, folder);
        page.emplace(session, session.start());
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(page->waitForThumbnails(2));
    }
    /// Beside the window.
    bool screenShows(QColor colour) const {
        return waitFor([&] {
            const QImage screen = session.glance();
            return screen.pixelColor(2, 2) == colour && screen.pixelColor(1277, 957) == colour;
        });
    }

    DesktopSession session;
    QString folder = session.home() + QStringLiteral("/it's 100% #1");
    Store store{session};
    std::optional<PicturesPage> page;
};

TEST_F(DesktopWallpaper, KeyShowsTheCurrentPictureBehindTheWindow) {
    session.key(QStringLiteral("F4"));
    EXPECT_TRUE(screenShows(Qt::red));
    const QImage saved(session.dataFolder() + QStringLiteral("/velorama/Velorama Wallpaper.bmp"));
    EXPECT_EQ(saved.size(), QSize(300, 200));
}

TEST_F(DesktopWallpaper, PopupShowsTheNextAndTheEndOfTheProgramLeavesIt) {
    session.key(QStringLiteral("F4"));
    EXPECT_TRUE(screenShows(Qt::red));
    const std::vector<QPoint> thumbnails = page->thumbnails();
    ASSERT_EQ(thumbnails.size(), 2U);
    session.click(page->window(), thumbnails[1], 3);
    ASSERT_TRUE(page->waitForPopup());
    session.key(QStringLiteral("w"));
    EXPECT_TRUE(screenShows(Qt::blue));
    session.key(QStringLiteral("alt+F4"));
    EXPECT_EQ(page->program().waitForExit(), 0);
    EXPECT_TRUE(screenShows(Qt::blue));
    EXPECT_EQ(session.screenshot().pixelColor(640, 480), QColor(Qt::blue));
}

TEST_F(DesktopWallpaper, ACallShowsAPictureBesideAWindowThatRuns) {
    Program& call =
        session.start({QStringLiteral("--wallpaper"), folder + QStringLiteral("/a red one.bmp")});
    EXPECT_EQ(call.waitForExit(), 0);
    EXPECT_TRUE(screenShows(Qt::red));
    EXPECT_EQ(page->close(), 0);
    EXPECT_TRUE(screenShows(Qt::red)) << "the end of the window takes it away";
}

// Larger than the toolkit reads unless it is told to, and no picture of another kind before it.
TEST(LargeDesktopWallpaper, PhotographOf36MillionPixelsIsShown) {
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const Store store(session);
    const QString folder = session.home() + QStringLiteral("/large");
    ASSERT_TRUE(QDir().mkpath(folder));
    QImage picture(7200, 5000, QImage::Format_RGB32);
    picture.fill(QColor(0, 120, 200));
    ASSERT_TRUE(picture.save(folder + QStringLiteral("/a.jpg"), "JPG"));
    setFilesLocation(store, folder);
    const PicturesPage page(session, session.start());
    ASSERT_NE(page.window(), 0U);
    ASSERT_TRUE(page.waitForThumbnails(1));
    session.key(QStringLiteral("F4"));
    EXPECT_TRUE(waitFor([&] {
        const QColor shown = session.glance().pixelColor(2, 2);
        return std::abs(shown.green() - 120) <= 2 && std::abs(shown.blue() - 200) <= 2;
    }));
    EXPECT_EQ(page.close(), 0);
}

}  // namespace
}  // namespace velorama::desktop

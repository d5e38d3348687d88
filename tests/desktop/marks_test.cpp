// What the lists tell beside pictures and names: counts, marks and tooltips.

#include "desktop/accessible_tree.h"
#include "desktop/album_files.h"
#include "desktop/albums_page.h"
#include "desktop/pictures_page.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

void save(const QString& folder, const QString& name) {
    QImage picture(60, 40, QImage::Format_RGB32);
    picture.fill(Qt::darkCyan);
    EXPECT_TRUE(QDir().mkpath(folder));
    const bool isBroken = name.startsWith(QLatin1String("broken"));
    QFile file(folder + u'/' + name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    if (isBroken) {
        file.write("no picture");
    } else {
        EXPECT_TRUE(picture.save(&file, name.endsWith(QLatin1String("png")) ? "PNG" : "JPG"));
    }
}

class Marks : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_TRUE(tree.isUp()) << "at-spi2-core is not installed";
        for (const char* name : {"a.jpg", "b.jpg", "<b> & c.jpg", "v1.2.jpg", "e.jpg", "f.png"}) {
            save(folder, QLatin1String(name));
        }
    }
    void open(const QString& shown) {
        setFilesLocation(store, shown);
        page.emplace(session, session.start({}, tree.environment()));
        ASSERT_NE(page->window(), 0U);
    }
    bool tells(const QString& name) const {
        return waitFor([&] { return tree.names().contains(name); });
    }
    bool describes(const QString& name, const QStringList& wanted) const {
        return waitFor([&] { return tree.descriptions(name) == wanted; });
    }
    /// The name is there, and nothing is told of it.
    bool isPlain(const QString& name) const { return tells(name) && describes(name, {}); }
    /// The tooltip of a place in the window; 0 if none comes.
    WindowId tip(const QPoint& place) const {
        session.moveMouse(page->window(), place - QPoint(3, 3));
        session.moveMouse(page->window(), place);
        if (!page->waitForPopup()) {
            return 0;
        }
        for (const WindowId each : page->shownWindows()) {
            if (each != page->window()) {
                return each;
            }
        }
        return 0;
    }

    DesktopSession session;
    Store store{session};
    AccessibleTree tree{session};
    const QString folder = session.home() + QStringLiteral("/Pictures & more");
    std::optional<PicturesPage> page;
};

TEST_F(Marks, CountLineAndTicksFollowTheHand) {
    open(folder);
    ASSERT_TRUE(page->waitForThumbnails(5));
    EXPECT_TRUE(tells(QStringLiteral("5 pictures, 1 other not shown")));
    const std::vector<QPoint> pictures = page->thumbnails();
    session.click(page->window(), pictures[0]);
    session.key(QStringLiteral("shift+Right"));
    session.key(QStringLiteral("shift+Right"));
    EXPECT_TRUE(tells(QStringLiteral("3 of 5 selected, 1 other not shown")));
    EXPECT_TRUE(isPlain(QStringLiteral("a.jpg")));
    session.key(QStringLiteral("Insert"));
    EXPECT_TRUE(describes(QStringLiteral("a.jpg"), {QStringLiteral("in the show")}));
    EXPECT_TRUE(describes(QStringLiteral("b.jpg"), {QStringLiteral("in the show")}));
    EXPECT_TRUE(isPlain(QStringLiteral("e.jpg")));
    page->press(RemoveAll);
    EXPECT_TRUE(isPlain(QStringLiteral("a.jpg")));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(Marks, PointingAtAPictureShowsAGrowingTip) {
    open(folder);
    ASSERT_TRUE(page->waitForThumbnails(5));
    const std::vector<QPoint> pictures = page->thumbnails();
    const WindowId found = tip(pictures[0]);
    ASSERT_NE(found, 0U);
    // Three lines, of which two come from the disk.
    EXPECT_TRUE(waitFor([&] { return session.geometry(found).height() > 45; }));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(Marks, SlidesWhoseFilesAreGoneOrBrokenSaySo) {
    constexpr int cellWidth = 106;  // pixels, of a slide
    save(folder, QStringLiteral("broken.jpg"));
    save(folder, QStringLiteral("gone.jpg"));
    const QString album = session.home() + QStringLiteral("/show.vlr");
    ASSERT_TRUE(putBytes(
        album, albumText(QStringLiteral("3"),
                         {folder + QStringLiteral("/a.jpg"), folder + QStringLiteral("/broken.jpg"),
                          folder + QStringLiteral("/gone.jpg")})));
    setFilesLocation(store, session.home());
    page.emplace(session, session.start({album}, tree.environment()));
    ASSERT_NE(page->window(), 0U);
    EXPECT_TRUE(describes(QStringLiteral("broken.jpg"), {QStringLiteral("cannot be read")}));
    EXPECT_TRUE(isPlain(QStringLiteral("gone.jpg")));
    ASSERT_TRUE(QFile::remove(folder + QStringLiteral("/gone.jpg")));
    const QPoint third = page->firstSlide() + QPoint(2 * cellWidth, 0);
    EXPECT_NE(tip(third), 0U);
    EXPECT_TRUE(describes(QStringLiteral("gone.jpg"), {QStringLiteral("file not found")}));
    EXPECT_EQ(page->close(), 0);
}

TEST_F(Marks, AnAlbumThatGoesWhileTheProgramRunsIsTold) {
    const QString there = makeAlbum(session, QStringLiteral("there.vlr"));
    const QString gone = makeAlbum(session, QStringLiteral("gone.vlr"));
    setAlbums(store, {there, gone});
    page.emplace(session, session.start({}, tree.environment()));
    ASSERT_NE(page->window(), 0U);
    ASSERT_TRUE(page->turnTo(SlideshowsPage));
    EXPECT_TRUE(isPlain(QStringLiteral("gone.vlr")));
    ASSERT_TRUE(page->turnTo(FoldersPage));
    QFile::remove(gone);
    ASSERT_TRUE(page->turnTo(SlideshowsPage));
    EXPECT_TRUE(describes(QStringLiteral("gone.vlr"), {QStringLiteral("file not found")}));
    EXPECT_TRUE(isPlain(QStringLiteral("there.vlr")));
    EXPECT_EQ(page->close(), 0);
}

}  // namespace
}  // namespace velorama::desktop

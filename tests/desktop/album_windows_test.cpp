#include "desktop/albums_page.h"
#include "desktop/photographs.h"
#include "desktop/show_screen.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velorama::desktop {
namespace {

constexpr double kEqual = 34;  // decibels
constexpr double kAlike = 25;
constexpr int kSlidePitch = 106;  // pixels from slide to slide in the bar

// An album that Windows wrote, in other letter cases than the disk has here.
class AlbumFromWindows : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        ASSERT_TRUE(putPhotograph(kOrdinary, files.at(0)))
            << "plasma-workspace-wallpapers is not installed";
        ASSERT_TRUE(putPhotograph(kOther, files.at(1)));
        ASSERT_TRUE(putBytes(album, albumText(QStringLiteral("2|Our note"), paths)));
        ASSERT_TRUE(putBytes(session.configFolder() + QStringLiteral("/velorama/drives"),
                             QByteArrayLiteral("# the old disk\nC: ") + disk.toUtf8() + '\n'));
        ASSERT_TRUE(setPace(store, QStringLiteral("3600"), QStringLiteral("1")));
        page.emplace(session, session.start({album}));
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(page->waitForTitle(QStringLiteral("Velorama - ") + album));
    }

    // How like the photograph the likest part of a place in the slide bar is, in decibels.
    double likeness(int slide, const QString& file) const {
        const QPoint middle = page->firstSlide() + QPoint(slide * kSlidePitch, 0);
        const QImage seen = page->look({middle - QPoint(50, 50), QSize(100, 110)});
        // The slide bar cuts an edge off the picture that fits a cell of 90 pixels.
        const QImage small = QImage(file)
                                 .scaled(90, 90, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                                 .copy(6, 6, 78, 44);
        double best = 0;
        for (int y = 0; y + small.height() <= seen.height(); ++y) {
            for (int x = 0; x + small.width() <= seen.width(); ++x) {
                best = std::max(best, psnr(seen.copy({{x, y}, small.size()}), small));
            }
        }
        return best;
    }

    bool waitForPicture(const QString& file) const {
        const ShowScreen look({1280, 960});
        const QImage reference = fittedReference(file, look.picture.size());
        return waitFor([&] { return psnr(session.glance(look.picture), reference) >= kEqual; });
    }

    DesktopSession session;
    Store store{session};
    QString disk = session.home() + QStringLiteral("/old disk");
    QStringList files = {disk + QStringLiteral("/Pictures/a.jpg"),
                         disk + QStringLiteral("/Pictures/Summer/B.jpg")};
    QStringList paths = {QStringLiteral("C:\\Pictures\\A.JPG"),
                         QStringLiteral("c:\\PICTURES\\summer\\b.jpg")};
    QString album = session.home() + QStringLiteral("/From Windows.vlr");
    std::optional<AlbumsPage> page;
};

TEST_F(AlbumFromWindows, ShowsItsPicturesAndKeepsItsPaths) {
    for (int slide = 0; slide < 2; ++slide) {
        EXPECT_TRUE(waitFor([&] { return likeness(slide, files.at(slide)) >= kAlike; }))
            << "slide " << slide << ": " << likeness(slide, files.at(slide));
        EXPECT_LT(likeness(slide, files.at(1 - slide)), kAlike) << "slide " << slide;
    }

    ASSERT_NE(page->startShow(), 0U);
    EXPECT_TRUE(waitForPicture(files.at(0)));
    session.key(QStringLiteral("Right"));
    EXPECT_TRUE(waitForPicture(files.at(1)));
    session.key(QStringLiteral("Escape"));
    ASSERT_TRUE(page->waitForNoDialog());

    // Only a changed album is saved: a slide moves, and in the second round moves back.
    for (const QStringList& order : {QStringList{paths.at(1), paths.at(0)}, paths}) {
        page->moveFirstSlide(order == paths ? 2 : 1);
        ASSERT_TRUE(waitFor([&] { return page->isModified(); }));
        session.key(QStringLiteral("ctrl+s"));
        const QByteArray wanted = albumText(QStringLiteral("2|Our note "), order);
        EXPECT_TRUE(waitFor([&] { return bytesOf(album) == wanted; })) << bytesOf(album).data();
        ASSERT_TRUE(waitFor([&] { return !page->isModified(); }));
    }
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(storedSlides(store), paths);
}

}  // namespace
}  // namespace velorama::desktop

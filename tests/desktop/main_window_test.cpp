#include "desktop/albums_page.h"
#include "desktop/photographs.h"
#include "desktop/pictures_page.h"

#include <QDir>

#include <gtest/gtest.h>

#include <cmath>

namespace velorama::desktop {
namespace {

constexpr int twipsPerPixel = 15;

TEST(MainWindow, ComesUpAndClosesWithAltF4) {
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    Program& program = session.start();
    const WindowId window = session.waitForWindow(QStringLiteral("Velorama"), program.pid());
    ASSERT_NE(window, 0U);
    ASSERT_TRUE(session.activate(window));

    session.key(QStringLiteral("alt+F4"));

    EXPECT_EQ(program.waitForExit(), 0);
}

TEST(MainWindow, SplitterLeftOfItsLimitSnapsBack) {
    DesktopSession session;
    ASSERT_TRUE(session.isUp());
    const Store store(session);
    const PicturesPage page(session, session.start());
    ASSERT_NE(page.window(), 0U);
    const auto shown = [&] { return page.look(page.onPage(2000, 200, 3000, 20)); };
    const QImage before = shown();
    // The drag goes no further than 2700, and from there the layout's own limit takes it back.
    session.drag(page.window(),
                 {page.splitter(3585), page.splitter(2745), page.splitter(2715), {1, 150}});
    EXPECT_TRUE(waitFor([&] { return shown() != before; }));
    EXPECT_EQ(page.close(), 0);
    EXPECT_EQ(store.setting(QStringLiteral("frmTOOLSSETTINGS\\Items"),
                            QStringLiteral("Splitter Bar Left")),
              QStringLiteral("2775"));
}

/// The window with something to move through on every page.
class Pages : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(session.isUp());
        for (const char* name : {"/folders/one", "/folders/two"}) {
            folders.append(session.home() + QLatin1String(name));
            ASSERT_TRUE(QDir().mkpath(folders.back()));
            albums.append(folders.back() + QStringLiteral(".vlr"));
            ASSERT_TRUE(putBytes(albums.back(), albumText(QStringLiteral("0"), {})));
        }
        const QString slide = session.home() + QStringLiteral("/slide.jpg");
        ASSERT_TRUE(putPhotograph(kOrdinary, slide))
            << "plasma-workspace-wallpapers is not installed";
        ASSERT_TRUE(putBytes(albums.back(), albumText(QStringLiteral("1"), {slide})));
        ASSERT_TRUE(store.setSetting(QStringLiteral("mfrmPRGMAIN\\View"),
                                     QStringLiteral("Slideshow"), albums.back()));
        // Written anew in its clean form when the tree goes there, which is the end of the start.
        ASSERT_TRUE(setFilesLocation(store, folders.front() + QLatin1Char('/')));
        ASSERT_TRUE(setAlbums(store, albums));
        for (const char* row : {"0", "1"}) {
            store.setSetting(
                QStringLiteral("mfrmPRGMAINAUD\\Details"),
                QStringLiteral("lstMUSIC") + QLatin1String(row),
                session.home() + QLatin1Char('/') + QLatin1String(row) + QStringLiteral(".mp3"));
        }
        store.setSetting(QStringLiteral("mfrmPRGMAINAUD\\Items Total"),
                         QStringLiteral("lstMUSICList Total"), QStringLiteral("2"));
        page.emplace(session, session.start());
        ASSERT_NE(page->window(), 0U);
        ASSERT_TRUE(waitFor([&] { return filesLocation(store) == folders.front(); }));
    }

    void turn(const char* key, Page wanted) {
        session.key(QLatin1String(key));
        ASSERT_TRUE(waitFor([&] { return page->shownPage() == wanted; })) << wanted;
    }
    int dark(const QRect& place) const {
        const QImage image = page->look(place);
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += qGray(image.pixel(x, y)) < 100;
            }
        }
        return count;
    }
    // The upper edge of a button's focus ring, which is in the colour of what is selected; -1 for
    // none.
    int ringTop(const QRect& place) const {
        constexpr int longest = 60;
        const QImage image = page->look(place);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0, run = 0; x < image.width(); ++x) {
                const QRgb pixel = image.pixel(x, y);
                run = qBlue(pixel) > qRed(pixel) + 40 ? run + 1 : 0;
                if (run > longest) {
                    return y;
                }
            }
        }
        return -1;
    }

    DesktopSession session;
    Store store{session};
    QStringList folders;
    QStringList albums;
    std::optional<AlbumsPage> page;
};

TEST_F(Pages, KeysGoRoundAndLandWhereTheyAreOfUse) {
    const auto row = [&] { return page->selectedRow().top(); };
    ASSERT_TRUE(waitFor([&] { return row() > 0; }));
    const int last = row();
    session.key(QStringLiteral("Up"));
    EXPECT_TRUE(waitFor([&] { return row() < last; })) << "no focus in the album list";

    ASSERT_NO_FATAL_FAILURE(turn("ctrl+Tab", FoldersPage));
    session.key(QStringLiteral("Down"));
    EXPECT_TRUE(waitFor([&] { return filesLocation(store) == folders.back(); }))
        << "no focus in the folder tree";

    ASSERT_NO_FATAL_FAILURE(turn("ctrl+Tab", MusicPage));
    const QRect tracks = page->onPage(700, 120, 5000, 2000);
    const QImage before = page->look(tracks);
    session.key(QStringLiteral("Down"));
    EXPECT_TRUE(waitFor([&] { return page->look(tracks) != before; }))
        << "no focus in the music list";

    ASSERT_NO_FATAL_FAILURE(turn("ctrl+Tab", WebAlbumPage));
    const QRect title = page->onPage(1500, 165, 1500, 240);
    // Part of a frame or caption may lie in the place.
    const int empty = dark(title);
    session.type(QStringLiteral("MMMMMM"));
    EXPECT_TRUE(waitFor([&] { return dark(title) > empty + 60; })) << "no focus in the title";

    ASSERT_NO_FATAL_FAILURE(turn("ctrl+Tab", HelpPage));
    const QRect buttons = page->onPage(0, 30, 10800, 1400);
    ASSERT_TRUE(waitFor([&] { return ringTop(buttons) >= 0; })) << "no focus on Help";
    const int help = ringTop(buttons);
    session.key(QStringLiteral("Tab"));
    EXPECT_TRUE(waitFor([&] { return ringTop(buttons) > help; }));

    ASSERT_NO_FATAL_FAILURE(turn("ctrl+Tab", SlideshowsPage));
    session.key(QStringLiteral("Down"));
    EXPECT_TRUE(waitFor([&] { return row() == last; })) << "no focus in the album list";

    for (const Page wanted : {HelpPage, WebAlbumPage, MusicPage, FoldersPage, SlideshowsPage}) {
        ASSERT_NO_FATAL_FAILURE(turn("ctrl+shift+Tab", wanted));
    }
    ASSERT_NO_FATAL_FAILURE(turn("ctrl+shift+Tab", HelpPage));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(store.setting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX")),
              QStringLiteral("5"));

    // Only the first three pages come back.
    const MainWindow again(session, session.start());
    EXPECT_TRUE(waitFor([&] { return again.shownPage() == SlideshowsPage; }));
    EXPECT_EQ(again.close(), 0);
}

TEST_F(Pages, ATabIsClicked) {
    // On the caption of the third tab.
    session.click(page->window(), {170, page->surfaceTop() + 5 + 12});
    EXPECT_TRUE(waitFor([&] { return page->shownPage() == MusicPage; }));
    EXPECT_EQ(page->close(), 0);
}

QRgb plain(QRgb colour) {
    return colour & 0xFFFFFF;
}

// From the pixels alone: where the colours of the window change.
class Measured {
public:
    explicit Measured(const QImage& image) : m_image(image) {}

    int down(int x, int y, int step = 1) const {
        const QRgb ground = plain(m_image.pixel(x, y));
        while (m_image.valid(x, y) && plain(m_image.pixel(x, y)) == ground) {
            y += step;
        }
        return y;
    }
    int along(int x, int y, int step = 1) const {
        const QRgb ground = plain(m_image.pixel(x, y));
        while (m_image.valid(x, y) && plain(m_image.pixel(x, y)) == ground) {
            x += step;
        }
        return x;
    }

private:
    QImage m_image;
};

class FrameOfSize : public Pages, public testing::WithParamInterface<QSize> {};

// Everything in twips: the window's inner size decides.
TEST_P(FrameOfSize, StandsWhereItsTwipsSay) {
    const QSize wanted = GetParam();
    session.resize(page->window(), wanted);
    ASSERT_TRUE(waitFor([&] { return page->geometry().size() == wanted; }));
    const auto px = [](int twips) { return static_cast<int>(std::lround(twips / 15.0)); };
    const int right = wanted.width() - 1;
    const auto measure = [&] { return Measured(page->look({QPoint(), wanted})); };
    // Until the window is painted in its new size.
    int surface = 0;
    const int W = wanted.width() * twipsPerPixel;
    int H = 0;
    const auto py = [&](int twips) { return surface + px(twips); };
    ASSERT_TRUE(waitFor([&] {
        surface = page->shownPage() == SlideshowsPage ? page->surfaceTop() : 0;
        H = (wanted.height() - surface) * twipsPerPixel;
        return surface > 0 && measure().down(2, surface + 2) == py(H - 3435);
    })) << "no band under a surface at "
        << surface;
    const Measured now = measure();

    // The band fades out towards the toolbar.
    EXPECT_EQ(now.down(2, py(H - 3100), -1), py(H - 3435) + px(255) - 1);

    // The button that starts the show, painted one pixel within its edges.
    ASSERT_TRUE(waitFor([&] { return page->isOn(Play); }));
    const Measured toolbar = measure();
    const QRect play(px(W - 45 - 1200), py(H - 3180 + 45), px(1200), px(450));
    EXPECT_EQ(toolbar.along(right, play.center().y(), -1), play.right() - 1);
    EXPECT_EQ(toolbar.along(play.left() - 5, play.center().y()), play.left() + 1);
    EXPECT_EQ(toolbar.down(play.left() + 8, play.top() - 2), play.top() + 1);
    EXPECT_EQ(toolbar.down(play.left() + 8, play.bottom() + 2, -1), play.bottom() - 1);

    // The frame of the pages.
    const int inside = py(75 + 300) + 40;
    EXPECT_EQ(now.along(1, inside), px(60));
    EXPECT_EQ(now.along(right, inside, -1), px(W - 60) - 1);
    EXPECT_EQ(now.down(right - 30, surface + 10), py(75 + 300));

    // The slide bar's ground, from its lower and upper lines.
    const int column = px(W) - 60;
    EXPECT_EQ(now.down(column, wanted.height() - 1, -1), py(H - 2500) + px(2380) - 1);
    EXPECT_EQ(now.down(column, py(H - 2700)), py(H - 2500));
    const int middle = py(H - 1300);
    EXPECT_EQ(now.along(1, middle), px(90));
    EXPECT_EQ(now.along(right, middle, -1), px(90 + W - 300) - 1);

    // The album list, on its page.
    const int frameWidth = W - 150;
    const int frameHeight = H - 3400 - 450;
    const int row = py(405 + frameHeight - 500) - 20;
    EXPECT_EQ(now.along(px(75 + 1650) - 5, row), px(75 + 1650));
    EXPECT_EQ(now.along(px(75 + frameWidth - 75) + 3, row, -1), px(75 + frameWidth - 75) - 1);
    EXPECT_EQ(now.down(px(75 + 1650) + 30, py(405 + frameHeight - 500) + 4, -1),
              py(405 + 90) + px(frameHeight - 90 - 500) - 1);
    EXPECT_EQ(page->close(), 0);
}

INSTANTIATE_TEST_SUITE_P(Sizes, FrameOfSize,
                         testing::Values(QSize(500, 400), QSize(736, 499), QSize(611, 560),
                                         QSize(1001, 777), QSize(1213, 640), QSize(1270, 930)),
                         [](const auto& size) { return std::to_string(size.param.width()); });

}  // namespace
}  // namespace velorama::desktop

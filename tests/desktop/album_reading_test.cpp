#include "desktop/albums_page.h"
#include "desktop/pictures_page.h"

#include <gtest/gtest.h>

namespace velorama::desktop {
namespace {

QByteArray linesOfMissingFiles(int count) {
    QByteArray text = QByteArray::number(count) + "\r\n";
    for (int number = 1; number <= count; ++number) {
        text += "/nowhere/" + QByteArray::number(number) + ".jpg\r\n";
    }
    return text;
}

class AlbumReading : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(session.isUp()); }

    void open(const QByteArray& text) {
        bytes = text;
        ASSERT_TRUE(putBytes(album, bytes));
        page.emplace(session, session.start({album}));
        ASSERT_NE(page->window(), 0U);
    }

    // The title names the album once it is read.
    bool isRead() const { return page->title() != QStringLiteral("Velorama"); }
    // A tab by the place of its caption, from the window's left edge. The hourglass would cover it.
    void clickTab(int x) const { session.click(page->window(), {x, page->surfaceTop() + 16}); }
    bool waitForPage(Page wanted) const {
        return waitFor([&] { return page->shownPage() == wanted; });
    }
    int slides() const { return storedItems(store).value_or(QString()).toInt(); }

    static constexpr int picturesTab = 115;
    static constexpr int musicTab = 172;

    DesktopSession session;
    Store store{session};
    QString album = session.home() + QStringLiteral("/lost.vlr");
    QByteArray bytes;
    std::optional<MainWindow> page;
};

// So many lines that the hands below are done long before the last of them.
TEST_F(AlbumReading, AnswersClicksAndClosesInItsMidst) {
    constexpr int lines = 400000;
    ASSERT_NO_FATAL_FAILURE(open(linesOfMissingFiles(lines)));
    EXPECT_TRUE(waitForPage(SlideshowsPage));
    const int top = page->surfaceTop();
    const auto strip = [&] { return page->look({0, top + 5, 330, 18}); };
    const QImage slideshows = strip();
    const auto turn = [&](int x) {
        const QImage before = strip();
        session.click(page->window(), {x, top + 16});
        // The hourglass would cover the tab.
        session.moveMouse(page->window(), {2, page->geometry().height() - 2});
        return waitFor([&] { return strip() != before; });
    };
    EXPECT_TRUE(turn(picturesTab));
    EXPECT_TRUE(turn(musicTab));
    EXPECT_TRUE(turn(picturesTab));
    EXPECT_NE(strip(), slideshows);
    ASSERT_FALSE(isRead()) << "the reading has ended already";
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(bytesOf(album), bytes);
    // Two lines of missing files are one slide.
    EXPECT_GT(slides(), 0);
    EXPECT_LT(slides(), lines / 2);
    EXPECT_EQ(storedSlide(store, 1), QStringLiteral("/nowhere/1.jpg, /nowhere/2.jpg,"
                                                    "/nowhere/2.jpg"));
    EXPECT_EQ(store.setting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("TABIDX")),
              QString::number(FoldersPage));
}

struct Odd {
    const char* name;
    QByteArray text;
    int slides;
};

// Not the text, which would be told whole.
void PrintTo(const Odd& odd, std::ostream* out) {
    *out << odd.name;
}

class OddAlbumReading : public AlbumReading, public testing::WithParamInterface<Odd> {};

TEST_P(OddAlbumReading, IsReadToItsEndByALiveWindow) {
    ASSERT_NO_FATAL_FAILURE(open(GetParam().text));
    EXPECT_TRUE(waitForPage(SlideshowsPage));
    clickTab(picturesTab);
    EXPECT_TRUE(waitForPage(FoldersPage));
    ASSERT_TRUE(page->waitForTitle(QStringLiteral("Velorama - ") + album));
    clickTab(musicTab);
    EXPECT_TRUE(waitForPage(MusicPage));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(bytesOf(album), GetParam().text);
    EXPECT_EQ(slides(), GetParam().slides);
}

TEST_P(OddAlbumReading, ClosesAtOnce) {
    ASSERT_NO_FATAL_FAILURE(open(GetParam().text));
    EXPECT_EQ(page->close(), 0);
    EXPECT_EQ(bytesOf(album), GetParam().text);
    EXPECT_LE(slides(), GetParam().slides);
}

INSTANTIATE_TEST_SUITE_P(Albums, OddAlbumReading,
                         testing::Values(Odd{"MissingFiles", linesOfMissingFiles(20000), 10000},
                                         Odd{"OneLine",
                                             "1\r\n" + QByteArray(10000000, 'a') + "\r\n", 1}),
                         [](const auto& odd) { return std::string(odd.param.name); });

}  // namespace
}  // namespace velorama::desktop

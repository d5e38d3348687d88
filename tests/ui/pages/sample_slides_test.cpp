#include "ui/pages/sample_slides.h"
#include "support/waiting.h"
#include "ui/pages/web_album_world.h"

#include <atomic>

namespace velorama {
namespace {

using test::comesTrue;

class PaintCount : public QObject {
public:
    explicit PaintCount(QObject& watched) { watched.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

/// The page with slides of its own.
class SampleSlidesTest : public test::WithWebAlbumPage {
protected:
    SampleSlidesTest() {
        page->resize(1000, 300);
        page->layOut();
    }
    static QSize shapeOf(const QString& path) {
        return path.contains(QLatin1String("high")) ? QSize(2, 3) : QSize(3, 2);
    }
    void add(const QString& key) { list.Add(list.Count() + 1, key, key + u".jpg", 0); }
    void addMany(int count) {
        for (int i = 1; i <= count; ++i) {
            add(QStringLiteral("p%1").arg(i));
        }
    }
    void watch() {
        // A list out of sight tells of its changes when it is shown.
        list.show();
        slides = std::make_unique<SampleSlides>(list, *page, [this](const QString& path, int side) {
            ++loads;
            return QImage(shapeOf(path).scaled(side, side, Qt::KeepAspectRatio),
                          QImage::Format_RGB32);
        });
        page->hide();
        page->show();
    }
    template <typename Part>
    Part& part(const QString& name) {
        return *page->findChild<Part*>(name);
    }
    SamplePicture& thumbnail(int number) {
        return part<SamplePicture>(QStringLiteral("picTHUMB%1").arg(number));
    }
    QString caption(int number) {
        return part<Label>(QStringLiteral("lbltxtMAINCOL%1").arg(number)).Caption();
    }
    int shownThumbnails() {
        int shown = 0;
        for (int i = 0; i < 12; ++i) {
            shown += thumbnail(i).isVisible() ? 1 : 0;
        }
        return shown;
    }
    bool areLoaded(int count) {
        return comesTrue([this, count] {
            for (int i = 0; i < count; ++i) {
                if (thumbnail(i).image().isNull()) {
                    return false;
                }
            }
            return part<SamplePicture>(QStringLiteral("picPHOTO")).image().width() > 500;
        });
    }

    ListView list;
    std::atomic<int> loads = 0;
    std::unique_ptr<SampleSlides> slides;
};

TEST_F(SampleSlidesTest, TheFirstTwelveStandOnTheIndexPageAndTheFirstOnItsOwn) {
    addMany(14);
    watch();
    ASSERT_TRUE(areLoaded(12));
    EXPECT_EQ(shownThumbnails(), 12);
    EXPECT_EQ(caption(0), QStringLiteral("p1.jpg"));
    EXPECT_EQ(caption(11), QStringLiteral("p12.jpg"));
    EXPECT_EQ(samples().lbltxtSLIDECOL->Caption(), QStringLiteral("p1.jpg"));
    EXPECT_EQ(part<Label>(QStringLiteral("lblPAGESCOL")).Caption(), QStringLiteral("1 2"));
}

TEST_F(SampleSlidesTest, AChangeOfTheSlidesShowsAtOnce) {
    addMany(2);
    watch();
    ASSERT_TRUE(areLoaded(2));
    list.Remove(1);
    EXPECT_TRUE(comesTrue([this] { return caption(0) == QStringLiteral("p2.jpg"); }));
    EXPECT_EQ(shownThumbnails(), 1);
    list.item(1)->setText(QStringLiteral("Named"));
    EXPECT_TRUE(comesTrue([this] { return caption(0) == QStringLiteral("Named"); }));
}

TEST_F(SampleSlidesTest, NothingIsLoadedForAPageOutOfSight) {
    addMany(2);
    watch();
    ASSERT_TRUE(areLoaded(2));
    page->hide();
    const int before = loads;
    add(QStringLiteral("high"));
    EXPECT_FALSE(QTest::qWaitFor([this, before] { return loads != before; }, 50));
    EXPECT_EQ(shownThumbnails(), 0);
    page->show();
    EXPECT_TRUE(comesTrue([this] { return shownThumbnails() == 3; }));
    EXPECT_TRUE(comesTrue([this] { return !thumbnail(2).image().isNull(); }));
    EXPECT_LT(thumbnail(2).width(), thumbnail(2).height());
}

TEST_F(SampleSlidesTest, WithoutSlidesSomethingStandsForThem) {
    watch();
    EXPECT_EQ(shownThumbnails(), 6);
    EXPECT_EQ(caption(5), QStringLiteral("Photo"));
    EXPECT_EQ(samples().lblTTLMAINCOL->Caption(), QStringLiteral("Title"));
    EXPECT_EQ(loads, 0);
}

TEST_F(SampleSlidesTest, TheTitleShowsAsItIsTyped) {
    QTest::keyClicks(page->txtTITLE, QStringLiteral("<b>Trip"));
    EXPECT_EQ(samples().lblTTLMAINCOL->Caption(), QStringLiteral("<b>Trip"));
    EXPECT_TRUE(page->txtTITLE->toolTip().contains(QStringLiteral("&lt;b&gt;Trip")));
}

TEST_F(SampleSlidesTest, OfManyPageNumbersThoseAtTheEndsStandThere) {
    const auto numbersOf = [this](int count) {
        SampleAlbum album;
        album.count = count;
        page->setSampleSlides(album);
        return part<Label>(QStringLiteral("lblPAGESCOL")).Caption();
    };
    EXPECT_EQ(numbersOf(0).toStdString(), "1");
    EXPECT_EQ(numbersOf(12).toStdString(), "1");
    EXPECT_TRUE(numbersOf(80 * 12).contains(QLatin1String(" 40 41 ")));
    EXPECT_EQ(numbersOf(80 * 12).count(u' '), 79);
    const QString many = numbersOf(100000);
    EXPECT_TRUE(many.startsWith(QLatin1String("1 2 3 "))) << many.toStdString();
    EXPECT_TRUE(many.contains(QStringLiteral(" 40 \u2026 8295 "))) << many.toStdString();
    EXPECT_TRUE(many.endsWith(QLatin1String(" 8333 8334"))) << many.toStdString();
    EXPECT_EQ(many.count(u' '), 80);
}

// Whole pictures would be scaled anew at each letter.
TEST_F(SampleSlidesTest, ATypedTitleLeavesThePicturesAsTheyArePainted) {
    addMany(2);
    watch();
    ASSERT_TRUE(areLoaded(2));
    page->grab();
    QApplication::processEvents();
    PaintCount paints(thumbnail(0));
    QTest::keyClicks(page->txtTITLE, QStringLiteral("Trip"));
    QApplication::processEvents();
    EXPECT_EQ(paints.count, 0);
    EXPECT_EQ(samples().lblTTLMAINCOL->Caption(), QStringLiteral("Trip"));
}

TEST_F(SampleSlidesTest, PicturesHaveTheSizesOfTheAlbumToScale) {
    addMany(4);
    watch();
    ASSERT_TRUE(areLoaded(4));
    const double scale = samples().picWAMAIN->width() / 560.0;
    ASSERT_LT(scale, 0.9);
    const SamplePicture& photo = part<SamplePicture>(QStringLiteral("picPHOTO"));
    EXPECT_NEAR(thumbnail(0).width(), 95 * scale, 1);
    EXPECT_NEAR(photo.width(), 500 * scale, 1);
    page->udnTHUMBNAIL->setText(QStringLiteral("150"));
    page->udnPHOTO->setText(QStringLiteral("300"));
    EXPECT_NEAR(thumbnail(0).width(), 150 * scale, 1);
    EXPECT_NEAR(photo.width(), 300 * scale, 1);
    EXPECT_NEAR(samples().shpTTLMAINCOL->x(), 19 * scale, 1);
    EXPECT_EQ(samples().shpBARMAINCOL->y(), samples().shpTTLMAINCOL->geometry().bottom() + 1);
}

TEST_F(SampleSlidesTest, SizesOutOfAllBoundsAreBorne) {
    addMany(3);
    add(QStringLiteral("high"));
    watch();
    ASSERT_TRUE(areLoaded(4));
    for (const char* size : {"0", "5", "-30", "2147483647", "none"}) {
        page->udnTHUMBNAIL->setText(QLatin1String(size));
        page->udnPHOTO->setText(QLatin1String(size));
        EXPECT_GE(thumbnail(3).width(), 0) << size;
        page->grab();
    }
    // A style with a negative length counts for nothing in a browser.
    page->udnTHUMBNAIL->setText(QStringLiteral("10"));
    EXPECT_NEAR(thumbnail(3).height(), 71 * samples().picWAMAIN->width() / 560.0, 1);
}

TEST_F(SampleSlidesTest, TheSamplesFillTheRoomBesideTheSettings) {
    page->resize(1000, 250);
    page->layOut();
    const int before = samples().picWAMAIN->width();
    page->resize(1400, 250);
    page->layOut();
    EXPECT_EQ(samples().picWAMAIN->width(), before + 200);
    // Where the settings can stand in one column there is still more.
    page->resize(1400, 600);
    page->layOut();
    EXPECT_GT(samples().picWAMAIN->width(), before + 250);
    const QPoint end = samples().picWASLIDE->mapTo(
        page.get(), QPoint(samples().picWASLIDE->width(), samples().picWASLIDE->height()));
    EXPECT_GT(end.x(), 1400 - 20);
    EXPECT_GT(end.y(), page->cbtnVIEWWEBALB->y() - 20);
}

TEST_F(SampleSlidesTest, TheSettingsBesideThemStayTogether) {
    for (const QSize& size : {QSize(1400, 600), QSize(1400, 900)}) {
        page->resize(size);
        page->makeRoom();
        page->layOut();
        QApplication::processEvents();
        const int rows = page->udnTHUMBNAIL->geometry().bottom() - page->txtTITLE->y();
        EXPECT_LT(rows, 13 * (page->cboFONTS->height() + 3)) << size.height();
        EXPECT_EQ(page->txtTITLE->x(), page->cboFONTS->x());
    }
}

TEST_F(SampleSlidesTest, TheFolderStandsInTheTooltipOfView) {
    page->setAlbumFolder(QStringLiteral("/home/ann/<b>/Trip/"));
    EXPECT_TRUE(page->cbtnVIEWWEBALB->toolTip().contains(QStringLiteral("/&lt;b&gt;/Trip/")));
    EXPECT_EQ(page->cbtnVIEWWEBALB->accessibleDescription(),
              QStringLiteral("Open the web album in the browser /home/ann/<b>/Trip/"));
}

}  // namespace
}  // namespace velorama

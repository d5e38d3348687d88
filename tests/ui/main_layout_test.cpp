#include "ui/window_world.h"

#include <QScreen>

namespace velorama {
namespace {

/// Without the tests of the design's size.
class SmallScreenWindow : public test::WithWindow {
public:
    using test::WithWindow::start;
    using test::WithWindow::window;

private:
    void TestBody() override {}
};

class MainLayoutTest : public test::WithWindow {
protected:
    MainLayoutTest() { start(); }

    void layOut(int width, int height) {
        surface().resize(width, height);
        window->Form_Resize();
        W = static_cast<float>(width) * 15;
        H = static_cast<float>(height) * 15;
        pageWidth = W - 2 * Left(*pages().slideshows);
        pageHeight = H - 3400 - 450;
    }

    // All in twips.
    float W = 0;
    float H = 0;
    float pageWidth = 0;
    float pageHeight = 0;
};

struct SizeCase {
    int width;
    int height;
    friend void PrintTo(const SizeCase& size, std::ostream* out) {
        *out << size.width << " x " << size.height;
    }
};

/// The window's inner surface in logical pixels; the first is that of the smallest window.
class LayoutRules : public MainLayoutTest, public testing::WithParamInterface<SizeCase> {
protected:
    LayoutRules() { layOut(GetParam().width, GetParam().height); }
};

INSTANTIATE_TEST_SUITE_P(Sizes, LayoutRules,
                         testing::Values(SizeCase{500, 378}, SizeCase{640, 460}, SizeCase{736, 480},
                                         SizeCase{1280, 760}, SizeCase{1920, 1030},
                                         SizeCase{3840, 2100}));

TEST_P(LayoutRules, PagesTakeTheHeightThatBandAndBarLeave) {
    EXPECT_EQ(Height(*pages().tabPAGES), H - 3400);
    EXPECT_EQ(Width(*pages().tabPAGES), W - 2 * Left(*pages().tabPAGES));
    for (const QWidget* page : pages().all()) {
        EXPECT_EQ(Width(*page), W - 2 * Left(*page)) << page->objectName().toStdString();
        EXPECT_EQ(Height(*page), H - 3400 - 450) << page->objectName().toStdString();
    }
}

TEST_P(LayoutRules, BandAndToolbarFollowThePages) {
    EXPECT_EQ(Top(*slideControls().picSELBAR), Top(*pages().tabPAGES) + H - 3400 - 110);
    EXPECT_EQ(Width(*slideControls().picSELBAR), W - 2 * Left(*slideControls().picSELBAR));
    EXPECT_EQ(Width(*slideControls().prgBARSLIDES), W - 2 * Left(*slideControls().prgBARSLIDES));
    EXPECT_EQ(Top(*slideBar().picbarCONTROLS),
              Top(*slideControls().picSELBAR) + Height(*slideControls().picSELBAR));
    EXPECT_EQ(Width(*slideBar().picbarCONTROLS), W);
    const cbtn& start = *slideBar().cbtnCONTROLS[6];
    const cbtn& settings = *slideBar().cbtnCONTROLS[8];
    EXPECT_EQ(Left(start), W - Width(start) - 45);
    EXPECT_EQ(Left(settings), Left(start) - 120 - Width(settings));
}

TEST_P(LayoutRules, TheSlideBarStandsAboveTheLowerEdge) {
    EXPECT_EQ(Top(*slideControls().lvwSLIDEBAR),
              Top(*slideBar().picbarCONTROLS) + Height(*slideBar().picbarCONTROLS) + 180);
    EXPECT_EQ(Left(*slideControls().lvwSLIDEBAR), 120);
    EXPECT_EQ(Width(*slideControls().lvwSLIDEBAR), W - 240);
    EXPECT_EQ(Left(*slideBar().shpSLIDEBAR), 90);
    EXPECT_EQ(Height(*slideBar().shpSLIDEBAR), 2380);
    EXPECT_EQ(Top(*slideBar().shpSLIDEBAR), H - 2500);
    EXPECT_EQ(Width(*slideBar().shpSLIDEBAR), W - 180 - 120);
}

TEST_P(LayoutRules, PicturesPage) {
    EXPECT_EQ(Height(*foundControls().ftvFOLDER), pageHeight - 180 - 60);
    EXPECT_EQ(Height(*pages().pictures->picVBAR), pageHeight - Top(*pages().pictures->picVBAR));
    EXPECT_EQ(Height(*foundControls().lvwFOUND), pageHeight - Top(*foundControls().lvwFOUND) - 500);
    const float bar = Left(*pages().pictures->picVBAR);
    EXPECT_EQ(bar, 3585);
    EXPECT_EQ(Width(*foundControls().ftvFOLDER), bar - 45 - Left(*foundControls().ftvFOLDER));
    EXPECT_EQ(Left(*foundControls().lvwFOUND), bar + 120);
    EXPECT_EQ(Width(*foundControls().lvwFOUND), W - bar - 550);
    const cbtn& preview = *pages().pictures->cbtnBROWSEBTNS[0];
    const cbtn& wallpaper = *pages().pictures->cbtnBROWSEBTNS[1];
    const float right = Left(*pages().tabPAGES) + Width(*pages().tabPAGES);
    EXPECT_EQ(Left(wallpaper), right - Width(wallpaper) - 90);
    EXPECT_EQ(Left(preview), right - Width(wallpaper) - 90 - Width(preview) - 90);
    EXPECT_EQ(Top(preview), pageHeight - 400);
    EXPECT_EQ(Top(wallpaper), pageHeight - 400);
}

TEST_P(LayoutRules, SlideshowsPage) {
    ReportView& albums = *albumControls().lvwALBUMS;
    EXPECT_EQ(Width(albums), pageWidth - Left(albums) - 75);
    EXPECT_EQ(Height(albums), pageHeight - Top(albums) - 500);
    EXPECT_EQ(albums.ColumnWidth(1), Width(albums) - 900 - albums.ColumnWidth(2));
    EXPECT_EQ(Left(*albumControls().btnView), pageWidth - 90 - Width(*albumControls().btnView));
    EXPECT_EQ(Left(*albumControls().btnREMOVE),
              Left(*albumControls().btnView) - 90 - Width(*albumControls().btnREMOVE));
    EXPECT_EQ(Left(*albumControls().btnADD),
              Left(*albumControls().btnREMOVE) - 90 - Width(*albumControls().btnADD));
    for (const cbtn* button :
         {albumControls().btnView, albumControls().btnREMOVE, albumControls().btnADD}) {
        EXPECT_EQ(Top(*button), pageHeight - 400) << button->objectName().toStdString();
    }
}

TEST_P(LayoutRules, MusicPage) {
    EXPECT_EQ(Width(*music().lstMUSIC), pageWidth - Left(*music().lstMUSIC) - 75);
    EXPECT_EQ(Height(*music().lstMUSIC), pageHeight - Top(*music().lstMUSIC) - 500);
    const cbtn& stop = *music().cbtnAUDIO[4];
    const cbtn& pause = *music().cbtnAUDIO[3];
    const cbtn& play = *music().cbtnAUDIO[2];
    EXPECT_EQ(Left(stop), pageWidth - 90 - Width(stop));
    EXPECT_EQ(Left(pause), Left(stop) - 90 - Width(pause));
    EXPECT_EQ(Left(play), Left(pause) - 90 - Width(play));
    for (const cbtn* button : {&stop, &pause, &play}) {
        EXPECT_EQ(Top(*button), pageHeight - 400) << button->objectName().toStdString();
    }
    EXPECT_EQ(Width(*music().prgPLAY), Left(play) - Left(*music().prgPLAY) - 240);
    EXPECT_EQ(Top(*music().prgPLAY), Top(play) + 90);
}

TEST_P(LayoutRules, WebAlbumPage) {
    const cbtn& view = *pages().webAlbum->cbtnVIEWWEBALB;
    const cbtn& create = *pages().webAlbum->cbtnWEBALBUM;
    const float margin = 90;
    EXPECT_EQ(Left(view), pageWidth - Width(view) - margin);
    EXPECT_EQ(Left(create), Left(view) - Width(create) - 90);
    EXPECT_EQ(Top(view), pageHeight - 400);
    EXPECT_EQ(Top(create), pageHeight - 400);
}

TEST_F(MainLayoutTest, DescriptionsTakeMoreRoomInLargerLettersUntilTheyAreDragged) {
    ReportView& albums = *albumControls().lvwALBUMS;
    layOut(1280, 760);
    const float usual = albums.ColumnWidth(2);
    QFont large = pages().slideshows->font();
    large.setPointSizeF(24);
    pages().slideshows->setFont(large);
    layOut(1280, 760);
    EXPECT_GT(albums.ColumnWidth(2), 1.5F * usual);
    albums.setColumnWidth(2, 3000);
    layOut(1270, 760);
    EXPECT_EQ(albums.ColumnWidth(2), 3000);
}

TEST_F(MainLayoutTest, TheMusicButtonsShowTheirCaptions) {
    layOut(736, 480);
    QList<cbtn*> buttons(music().cbtnAUDIO.begin(), music().cbtnAUDIO.end());
    for (const cbtn* button : buttons + QList<cbtn*>{music().Command1, music().Command2}) {
        const std::string name = button->objectName().toStdString();
        EXPECT_FALSE(button->text().isEmpty()) << name;
        EXPECT_FALSE(button->toolTip().isEmpty()) << name;
        const int caption = button->fontMetrics().horizontalAdvance(button->text());
        EXPECT_GE(button->width(), button->iconSize().width() + caption) << name;
    }
}

TEST_F(MainLayoutTest, TheMusicListKeepsItsRoomBesideLargeLetters) {
    QFont large = pages().music->font();
    large.setPointSizeF(24);
    pages().music->setFont(large);
    layOut(500, 378);
    EXPECT_GT(Width(*music().lstMUSIC), 0.7F * pageWidth);
    layOut(1280, 760);
    const cbtn& remove = *music().cbtnAUDIO[5];
    EXPECT_GT(remove.width(), remove.fontMetrics().horizontalAdvance(remove.text()));
}

TEST_F(MainLayoutTest, TheSeparatorEndsAtAHeightOfItsOwn) {
    const auto* area = qobject_cast<Surface*>(&surface());
    surface().resize(800, 600);
    window->Form_Resize();
    const QPointF first(0, (600 * 15 - 2500 - 400) / 15.0);
    const QPointF second((800 * 15 + 15) / 15.0, 3700 / 15.0);
    EXPECT_EQ(area->separator(), QLineF(first, second));
    surface().resize(1600, 1200);
    window->Form_Resize();
    EXPECT_EQ(area->separator().p2().y(), 3700 / 15.0);
}

// A height that would go negative is left as it is, and what follows is still done.
TEST_F(MainLayoutTest, InATinyWindowTheFailingStepsAreSkipped) {
    layOut(736, 480);
    const float tabs = Height(*pages().tabPAGES);
    const float page = tabs - 450;
    layOut(300, 150);
    EXPECT_EQ(Height(*pages().tabPAGES), tabs);
    EXPECT_EQ(Height(*pages().help), page);
    EXPECT_EQ(Width(*pages().help), 4500 - 2 * Left(*pages().help));
    EXPECT_EQ(Top(*slideControls().picSELBAR), Top(*pages().tabPAGES) + tabs - 110);
    EXPECT_EQ(Top(*slideBar().shpSLIDEBAR), 2250 - 2500);
    EXPECT_EQ(Width(*slideBar().shpSLIDEBAR), 4200);
    const float column = albumControls().lvwALBUMS->ColumnWidth(1);
    layOut(200, 150);
    EXPECT_EQ(albumControls().lvwALBUMS->ColumnWidth(1), column);
    EXPECT_EQ(Left(*albumControls().btnView),
              3000 - 2 * Left(*pages().slideshows) - 90 - Width(*albumControls().btnView));
}

TEST_F(MainLayoutTest, TheSmallestWindowIs500By400AndShowsEveryPageWhole) {
    EXPECT_EQ(window->minimumSize(), QSize(500, 400));
    window->resize(500, 400);
    QApplication::processEvents();
    for (QWidget* page : pages().all()) {
        for (const QWidget* control :
             page->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (control->isVisibleTo(page)) {
                EXPECT_TRUE(page->rect().contains(control->geometry()))
                    << control->objectName().toStdString();
            }
        }
    }
}

TEST(SmallScreen, TheFirstWindowIsNoLargerThanTheScreen) {
    if (QGuiApplication::primaryScreen()->size() != QSize(700, 450)) {
        GTEST_SKIP() << "for a screen of 1400 x 900 at the scale 2";
    }
    SmallScreenWindow world;
    world.start();
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    // The place is that of the frame, which the desktop adds above.
    const QSize framed = world.window->size() + QSize(2, 37);
    EXPECT_TRUE(screen.contains(QRect(world.window->pos(), framed)));
}

TEST_F(MainLayoutTest, ComingBackToTheFrontLaysOutAnew) {
    layOut(736, 480);
    setWidth(*pages().tabPAGES, 3000);
    QEvent activated(QEvent::ActivationChange);
    ASSERT_TRUE(window->isActiveWindow());
    QApplication::sendEvent(window.get(), &activated);
    EXPECT_EQ(Width(*pages().tabPAGES), 11040 - 2 * Left(*pages().tabPAGES));
}

}  // namespace
}  // namespace velorama

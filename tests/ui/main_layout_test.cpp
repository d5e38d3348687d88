#include "ui/window_world.h"

namespace velorama {
namespace {

class MainLayoutTest : public test::WithWindow {
protected:
    MainLayoutTest() { start(); }

    void layOut(int width, int height) {
        controls().surface.resize(width, height);
        window->Form_Resize();
        W = static_cast<float>(width) * 15;
        H = static_cast<float>(height) * 15;
        pageWidth = W - 2 * Left(*controls().picframSLIDEHSOW);
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
    MainControls& c = controls();
    EXPECT_EQ(Height(*c.tabPAGES), H - 3400);
    EXPECT_EQ(Width(*c.tabPAGES), W - 2 * Left(*c.tabPAGES));
    for (const QWidget* page : c.pages()) {
        EXPECT_EQ(Width(*page), W - 2 * Left(*page)) << page->objectName().toStdString();
        EXPECT_EQ(Height(*page), H - 3400 - 450) << page->objectName().toStdString();
    }
}

TEST_P(LayoutRules, BandAndToolbarFollowThePages) {
    MainControls& c = controls();
    EXPECT_EQ(Top(*c.picSELBAR), Top(*c.tabPAGES) + H - 3400 - 110);
    EXPECT_EQ(Width(*c.picSELBAR), W - 2 * Left(*c.picSELBAR));
    EXPECT_EQ(Width(*c.prgBARSLIDES), W - 2 * Left(*c.prgBARSLIDES));
    EXPECT_EQ(Top(*c.picbarCONTROLS), Top(*c.picSELBAR) + Height(*c.picSELBAR));
    EXPECT_EQ(Width(*c.picbarCONTROLS), W);
    const cbtn& start = *c.cbtnCONTROLS[6];
    const cbtn& settings = *c.cbtnCONTROLS[8];
    EXPECT_EQ(Left(start), W - Width(start) - 45);
    EXPECT_EQ(Left(settings), Left(start) - 120 - Width(settings));
}

TEST_P(LayoutRules, TheSlideBarStandsAboveTheLowerEdge) {
    MainControls& c = controls();
    EXPECT_EQ(Top(*c.lvwSLIDEBAR), Top(*c.picbarCONTROLS) + Height(*c.picbarCONTROLS) + 180);
    EXPECT_EQ(Left(*c.lvwSLIDEBAR), 120);
    EXPECT_EQ(Width(*c.lvwSLIDEBAR), W - 240);
    EXPECT_EQ(Left(*c.shpSLIDEBAR), 90);
    EXPECT_EQ(Height(*c.shpSLIDEBAR), 2380);
    EXPECT_EQ(Top(*c.shpSLIDEBAR), H - 2500);
    EXPECT_EQ(Width(*c.shpSLIDEBAR), W - 180 - 120);
}

TEST_P(LayoutRules, PicturesPage) {
    MainControls& c = controls();
    EXPECT_EQ(Height(*c.ftvFOLDER), pageHeight - 180 - 60);
    EXPECT_EQ(Height(*c.picVBAR), pageHeight - Top(*c.picVBAR));
    EXPECT_EQ(Height(*c.lvwFOUND), pageHeight - Top(*c.lvwFOUND) - 500);
    const float bar = Left(*c.picVBAR);
    EXPECT_EQ(bar, 3585);
    EXPECT_EQ(Width(*c.ftvFOLDER), bar - 45 - Left(*c.ftvFOLDER));
    EXPECT_EQ(Left(*c.lvwFOUND), bar + 120);
    EXPECT_EQ(Width(*c.lvwFOUND), W - bar - 550);
    const cbtn& preview = *c.cbtnBROWSEBTNS[0];
    const cbtn& wallpaper = *c.cbtnBROWSEBTNS[1];
    const float right = Left(*c.tabPAGES) + Width(*c.tabPAGES);
    EXPECT_EQ(Left(wallpaper), right - Width(wallpaper) - 90);
    EXPECT_EQ(Left(preview), right - Width(wallpaper) - 90 - Width(preview) - 90);
    EXPECT_EQ(Top(preview), pageHeight - 400);
    EXPECT_EQ(Top(wallpaper), pageHeight - 400);
}

TEST_P(LayoutRules, SlideshowsPage) {
    MainControls& c = controls();
    ReportView& albums = *c.lvwALBUMS;
    EXPECT_EQ(Width(albums), pageWidth - Left(albums) - 75);
    EXPECT_EQ(Height(albums), pageHeight - Top(albums) - 500);
    EXPECT_EQ(albums.ColumnWidth(1), Width(albums) - 900 - albums.ColumnWidth(2));
    EXPECT_EQ(Left(*c.btnView), pageWidth - 90 - Width(*c.btnView));
    EXPECT_EQ(Left(*c.btnREMOVE), Left(*c.btnView) - 90 - Width(*c.btnREMOVE));
    EXPECT_EQ(Left(*c.btnADD), Left(*c.btnREMOVE) - 90 - Width(*c.btnADD));
    for (const cbtn* button : {c.btnView, c.btnREMOVE, c.btnADD}) {
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
    const cbtn& view = *window->webAlbumPage().cbtnVIEWWEBALB;
    const cbtn& create = *window->webAlbumPage().cbtnWEBALBUM;
    const float margin = 90;
    EXPECT_EQ(Left(view), pageWidth - Width(view) - margin);
    EXPECT_EQ(Left(create), Left(view) - Width(create) - 90);
    EXPECT_EQ(Top(view), pageHeight - 400);
    EXPECT_EQ(Top(create), pageHeight - 400);
}

TEST_F(MainLayoutTest, TheSeparatorEndsAtAHeightOfItsOwn) {
    MainLayout layout(controls(), window->webAlbumPage());
    controls().surface.resize(800, 600);
    layout.Form_Resize();
    const QPointF first(0, (600 * 15 - 2500 - 400) / 15.0);
    const QPointF second((800 * 15 + 15) / 15.0, 3700 / 15.0);
    EXPECT_EQ(layout.separator(), QLineF(first, second));
    controls().surface.resize(1600, 1200);
    layout.Form_Resize();
    EXPECT_EQ(layout.separator().p2().y(), 3700 / 15.0);
}

// A height that would go negative is left as it is, and what follows is still done.
TEST_F(MainLayoutTest, InATinyWindowTheFailingStepsAreSkipped) {
    layOut(736, 480);
    MainControls& c = controls();
    const float tabs = Height(*c.tabPAGES);
    const float page = tabs - 450;
    layOut(300, 150);
    EXPECT_EQ(Height(*c.tabPAGES), tabs);
    EXPECT_EQ(Height(*c.picframHELP), page);
    EXPECT_EQ(Width(*c.picframHELP), 4500 - 2 * Left(*c.picframHELP));
    EXPECT_EQ(Top(*c.picSELBAR), Top(*c.tabPAGES) + tabs - 110);
    EXPECT_EQ(Top(*c.shpSLIDEBAR), 2250 - 2500);
    EXPECT_EQ(Width(*c.shpSLIDEBAR), 4200);
    const float column = c.lvwALBUMS->ColumnWidth(1);
    layOut(200, 150);
    EXPECT_EQ(c.lvwALBUMS->ColumnWidth(1), column);
    EXPECT_EQ(Left(*c.btnView), 3000 - 2 * Left(*c.picframSLIDEHSOW) - 90 - Width(*c.btnView));
}

TEST_F(MainLayoutTest, TheSmallestWindowIs500By400AndShowsEveryPageWhole) {
    EXPECT_EQ(window->minimumSize(), QSize(500, 400));
    window->resize(500, 400);
    QApplication::processEvents();
    for (QWidget* page : controls().pages()) {
        for (const QWidget* control :
             page->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (control->isVisibleTo(page)) {
                EXPECT_TRUE(page->rect().contains(control->geometry()))
                    << control->objectName().toStdString();
            }
        }
    }
}

TEST_F(MainLayoutTest, ComingBackToTheFrontLaysOutAnew) {
    layOut(736, 480);
    setWidth(*controls().tabPAGES, 3000);
    QEvent activated(QEvent::ActivationChange);
    ASSERT_TRUE(window->isActiveWindow());
    QApplication::sendEvent(window.get(), &activated);
    EXPECT_EQ(Width(*controls().tabPAGES), 11040 - 2 * Left(*controls().tabPAGES));
}

}  // namespace
}  // namespace velorama

#include "ui/main_layout.h"

#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "core/show_colours.h"
#include "platform/numbers.h"

namespace velorama {
namespace {

constexpr Colour buttonFace = systemColour(15);
constexpr Colour highlight = systemColour(13);
constexpr Colour highlight3D = systemColour(20);
constexpr int activeCaption = 2;
constexpr float leastCountWidth = 1200;

float whole(float twips) {
    return static_cast<float>(roundHalfEven(static_cast<double>(twips)));
}

/// Buttons from the right, 90 apart and as far from the edge.
void placeRow(std::initializer_list<cbtn*> buttons, float right, float top) {
    for (cbtn* button : buttons) {
        setLeft(*button, right - 90 - Width(*button));
        setTop(*button, top);
        right = Left(*button);
    }
}

}  // namespace

MainLayout::MainLayout(MainControls& controls, WebAlbumPage& webAlbum)
    : c_(controls), web_(webAlbum) {}

void MainLayout::Form_Resize() {
    layOutFrames();
    VBarLayout();
    tintBand();
    tintSlideBar();
    placeSlideBar();
    layOutToolbar();
    layOutSlideshows();
    layOutMusic();
    layOutPictures();
    layOutWebAlbum();
}

void MainLayout::layOutFrames() {
    const float W = Width(c_.surface);
    const float H = Height(c_.surface);
    setHeight(*c_.tabPAGES, H - 3400);
    setWidth(*c_.prgBARSLIDES, W - 2 * Left(*c_.prgBARSLIDES));
    for (QWidget* page : c_.pages()) {
        setWidth(*page, W - 2 * Left(*page));
        setHeight(*page, Height(*c_.tabPAGES) - 450);
    }
    setHeight(*c_.ftvFOLDER, Height(*c_.picframSLIDEHSOW) - 180 - 60);
    setTop(*c_.picSELBAR, Top(*c_.tabPAGES) + Height(*c_.tabPAGES) - 110);
    setTop(*c_.picbarCONTROLS, Top(*c_.picSELBAR) + Height(*c_.picSELBAR));
    setTop(*c_.lvwSLIDEBAR, Top(*c_.picbarCONTROLS) + Height(*c_.picbarCONTROLS) + 180);
    setWidth(*c_.picbarCONTROLS, W);
    setHeight(*c_.picVBAR, Height(*c_.picframSLIDEHSOW) - Top(*c_.picVBAR));
}

void MainLayout::layOutToolbar() {
    cbtn& start = *c_.cbtnCONTROLS[6];
    cbtn& settings = *c_.cbtnCONTROLS[8];
    setLeft(start, Width(c_.surface) - Width(start) - 45);
    setLeft(settings, Left(start) - 120 - Width(settings));
}

void MainLayout::layOutSlideshows() {
    const float width = Width(*c_.picframSLIDEHSOW);
    const float height = Height(*c_.picframSLIDEHSOW);
    ReportView& albums = *c_.lvwALBUMS;
    setWidth(albums, width - Left(albums) - 75);
    setHeight(albums, height - Top(albums) - 500);
    albums.setColumnWidth(1, Width(albums) - 900 - albums.ColumnWidth(2));
    placeRow({c_.btnView, c_.btnREMOVE, c_.btnADD}, width, height - 400);
}

void MainLayout::layOutMusic() {
    const float width = Width(*c_.picframMUSICLIST);
    const float height = Height(*c_.picframMUSICLIST);
    setWidth(*c_.music.lstMUSIC, width - Left(*c_.music.lstMUSIC) - 75);
    setHeight(*c_.music.lstMUSIC, height - Top(*c_.music.lstMUSIC) - 500);
    placeRow({c_.music.cbtnAUDIO[4], c_.music.cbtnAUDIO[3], c_.music.cbtnAUDIO[2]}, width,
             height - 400);
    setWidth(*c_.music.prgPLAY, Left(*c_.music.cbtnAUDIO[2]) - Left(*c_.music.prgPLAY) - 240);
    setTop(*c_.music.prgPLAY, Top(*c_.music.cbtnAUDIO[2]) + 90);
}

void MainLayout::layOutPictures() {
    const float height = Height(*c_.picframPICTURES);
    setHeight(*c_.lvwFOUND, height - Top(*c_.lvwFOUND) - 500);
    for (QWidget* below :
         {static_cast<QWidget*>(c_.cbtnBROWSEBTNS[0]), static_cast<QWidget*>(c_.cbtnBROWSEBTNS[1]),
          static_cast<QWidget*>(c_.lblFOUNDCOUNT)}) {
        setTop(*below, height - 400);
    }
}

void MainLayout::layOutWebAlbum() {
    const float width = Width(*c_.picframWEBALBM);
    const float height = Height(*c_.picframWEBALBM);
    placeRow({web_.cbtnVIEWWEBALB, web_.cbtnWEBALBUM}, width, height - 400);
    web_.layOut(width, height - 500);
}

void MainLayout::VBarLayout() {
    const float W = Width(c_.surface);
    float left = whole(Left(*c_.picVBAR));
    if (left < 2775) {
        left = 2775;
        setLeft(*c_.picVBAR, left);
    }
    if (W != 0 && W - 1000 < left) {
        left = W - 1000;
        setLeft(*c_.picVBAR, left);
    }
    if (left < 45) {
        return;
    }
    setWidth(*c_.ftvFOLDER, left - 45 - Left(*c_.ftvFOLDER));
    setWidth(*c_.tabPAGES, W - 2 * Left(*c_.tabPAGES));
    setLeft(*c_.lvwSLIDEBAR, 120);
    setLeft(*c_.lvwFOUND, left + 120);
    setWidth(*c_.lvwFOUND, W - Left(*c_.picVBAR) - 550);
    setWidth(*c_.picSELBAR, W - 2 * Left(*c_.picSELBAR));
    setWidth(*c_.lvwSLIDEBAR, W - 2 * Left(*c_.lvwSLIDEBAR));
    c_.lvwSLIDEBAR->viewport()->update();
    c_.lvwFOUND->setVisible(true);
    cbtn& preview = *c_.cbtnBROWSEBTNS[0];
    cbtn& wallpaper = *c_.cbtnBROWSEBTNS[1];
    const float right = Left(*c_.tabPAGES) + Width(*c_.tabPAGES);
    setLeft(wallpaper, right - Width(wallpaper) - 90);
    setLeft(preview, right - Width(wallpaper) - 90 - Width(preview) - 90);
    setLeft(*c_.lblFOUNDCOUNT, Left(*c_.lvwFOUND));
    const float room = Left(preview) - Left(*c_.lblFOUNDCOUNT) - 120;
    setWidth(*c_.lblFOUNDCOUNT, room);
    // Cut down to an ellipsis it says nothing.
    c_.lblFOUNDCOUNT->setVisible(room >= leastCountWidth);
}

void MainLayout::tintBand() {
    const Colour light = gColrStyle->funcCOLORVALEDIT(GetSysColor(15), 42, true);
    const Colour band = ColorMix(light, highlight, 90);
    c_.picSELBAR->setBackColor(toRgb(band));
    GradientPaint(c_.picSELBAR->Image(), 90, buttonFace, band);
    c_.picSELBAR->update();
}

void MainLayout::tintSlideBar() {
    const Colour caption = GetSysColor(activeCaption);
    const Colour light = gColrStyle->funcCOLORVALEDIT(caption, 32, false);
    const Colour fill = ColorMix(ColorMix(light, white, 80), systemColour(activeCaption), 70);
    c_.shpSLIDEBAR->setFillColor(toRgb(fill));
    QPalette ground = c_.lvwSLIDEBAR->palette();
    ground.setColor(QPalette::Base, QColor(toRgb(fill)));
    c_.lvwSLIDEBAR->setPalette(ground);
}

void MainLayout::placeSlideBar() {
    const float W = Width(c_.surface);
    const float H = Height(c_.surface);
    setLeft(*c_.shpSLIDEBAR, 90);
    setHeight(*c_.shpSLIDEBAR, 2380);
    setTop(*c_.shpSLIDEBAR, H - 2500);
    setWidth(*c_.shpSLIDEBAR, W - 180 - 120);
    const QPointF first(0, static_cast<double>(Top(*c_.shpSLIDEBAR) - 400));
    const QPointF second(static_cast<double>(W + 15), 3700);
    constexpr auto scale = static_cast<double>(twipsPerLogicalPixel);
    separator_ = QLineF(first / scale, second / scale);
}

void MainLayout::dragSplitter(int button, float x) {
    const float target = Left(*c_.picVBAR) + x;
    if (button == 1 && target >= 2700) {
        setLeft(*c_.picVBAR, whole(target));
    }
}

void MainLayout::moveSplitter(float step) {
    dragSplitter(1, step);
    VBarLayout();
}

void MainLayout::applyPageColour() {
    const QColor page = QColor(toRgb(highlight3D));
    for (QWidget* frame : c_.pages()) {
        QPalette ground = frame->palette();
        ground.setColor(QPalette::Window, page);
        frame->setPalette(ground);
    }
    c_.picVBAR->setBackColor(page);
}

}  // namespace velorama

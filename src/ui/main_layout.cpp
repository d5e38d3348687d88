#include "ui/main_layout.h"

#include "controls/twips.h"
#include "core/globals.h"
#include "core/show_colours.h"
#include "platform/numbers.h"

namespace velorama {
namespace {

constexpr Colour white = 0xFFFFFF;
constexpr Colour buttonFace = systemColour(15);
constexpr Colour highlight = systemColour(13);
constexpr Colour highlight3D = systemColour(20);
constexpr int activeCaption = 2;

float whole(float twips) {
    return static_cast<float>(roundHalfEven(static_cast<double>(twips)));
}

}  // namespace

MainLayout::MainLayout(MainControls& controls) : c_(controls) {}

void MainLayout::Form_Resize() {
    const float W = Width(c_.surface);
    const float H = Height(c_.surface);
    setHeight(*c_.tabPAGES, H - 3400);
    setWidth(*c_.prgBARSLIDES, W - 2 * Left(*c_.prgBARSLIDES));
    for (QWidget* page : {c_.picframPICTURES, c_.picframMUSICLIST}) {
        setWidth(*page, W - 2 * Left(*page));
        setHeight(*page, Height(*c_.tabPAGES) - 450);
    }
    setHeight(*c_.ftvFOLDER, Height(*c_.picframPICTURES) - 180 - 60);
    setTop(*c_.picSELBAR, Top(*c_.tabPAGES) + Height(*c_.tabPAGES) - 110);
    setTop(*c_.picbarCONTROLS, Top(*c_.picSELBAR) + Height(*c_.picSELBAR));
    setTop(*c_.lvwSLIDEBAR, Top(*c_.picbarCONTROLS) + Height(*c_.picbarCONTROLS) + 180);
    setWidth(*c_.picbarCONTROLS, W);
    setHeight(*c_.picVBAR, Height(*c_.picframPICTURES) - Top(*c_.picVBAR));
    VBarLayout();
    tintBand();
    tintSlideBar();
    placeSlideBar();
    QWidget& start = *c_.cbtnCONTROLS[6];
    setLeft(start, W - Width(start) - 45);
    layOutMusic();
    setHeight(*c_.lvwFOUND, Height(*c_.picframPICTURES) - Top(*c_.lvwFOUND) - 500);
    setTop(*c_.lblFOUNDCOUNT, Height(*c_.picframPICTURES) - 400);
}

void MainLayout::layOutMusic() {
    const float width = Width(*c_.picframMUSICLIST);
    const float height = Height(*c_.picframMUSICLIST);
    setWidth(*c_.lstMUSIC, width - Left(*c_.lstMUSIC) - 75);
    setHeight(*c_.lstMUSIC, height - Top(*c_.lstMUSIC) - 500);
    float right = width;
    for (const std::size_t index : {4, 3, 2}) {
        cbtn& button = *c_.cbtnAUDIO.at(index);
        setLeft(button, right - 90 - Width(button));
        setTop(button, height - 400);
        right = Left(button);
    }
    setWidth(*c_.prgPLAY, right - Left(*c_.prgPLAY) - 240);
    setTop(*c_.prgPLAY, Top(*c_.cbtnAUDIO[2]) + 90);
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
    setLeft(*c_.lblFOUNDCOUNT, Left(*c_.lvwFOUND));
    setWidth(*c_.lblFOUNDCOUNT, Width(*c_.lvwFOUND));
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
    for (QWidget* frame : {c_.picframPICTURES, c_.picframMUSICLIST}) {
        QPalette ground = frame->palette();
        ground.setColor(QPalette::Window, page);
        frame->setPalette(ground);
    }
    c_.picVBAR->setBackColor(page);
}

}  // namespace velorama

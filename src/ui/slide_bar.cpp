#include "ui/slide_bar.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/caption_room.h"
#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "core/show_colours.h"
#include "player/show_timing.h"
#include "ui/pages/page.h"
#include "ui/parts/show_length.h"

namespace velorama {
namespace {

constexpr Colour buttonFace = systemColour(15);
constexpr Colour highlight = systemColour(13);
constexpr int activeCaption = 2;
constexpr int rim = 8;  // logical pixels
constexpr float lengthGap = 180;

struct Design {
    std::size_t index;
    const char* symbol;
    const char* caption;
    const char* tooltip;
    Command Commands::*command;
};

constexpr std::array<Design, 8> toolbarButtons = {{
    {0, "add", "Add", "Add selected found photos", &Commands::add},
    {1, "add-all", "Add All", "Add all found photos", &Commands::addAll},
    {2, "remove", "Remove", "Remove selected photos", &Commands::remove},
    {3, "remove-all", "Remove All", "Remove all photos", &Commands::removeAll},
    {4, "move-back", "", "move photo backwards", &Commands::moveBack},
    {5, "move-forward", "", "move photo forwards", &Commands::moveForward},
    {8, "settings", "", "Change Slideshow settings", &Commands::settings},
    {6, "play", "Play", "Play Slideshow [F5]", &Commands::start},
}};

// Twips. The buttons at the left stand in pairs.
constexpr float toolbarLeft = 120;
constexpr float pairGap = 45;
constexpr float gapBetweenPairs = 255;
constexpr float buttonTop = 45;
constexpr float buttonWidth = 540;
constexpr float buttonHeight = 450;
constexpr float playWidth = 1200;
// The number of slides needs this much beside captions.
constexpr float leastLengthWidth = 1200;

}  // namespace

SlideBar::SlideBar(QWidget& surface, Commands& commands)
    : QObject(&surface),
      shpSLIDEBAR(make<SlideBarShape>("shpSLIDEBAR", &surface)),
      slides(surface),
      picbarCONTROLS(make<QWidget>("picbarCONTROLS", &surface)),
      lblSLIDECOUNT(make<Label>("lblSLIDECOUNT", picbarCONTROLS)) {
    // The list reaches further right than the rounded ground it stands on; its contents do not.
    slides.lvwSLIDEBAR->setRightRim(rim);
    place(*picbarCONTROLS, 0, 4020, 11040, 540);
    picbarCONTROLS->setAutoFillBackground(true);
    makeToolbar(commands);
    makeEmptyState(commands);
    // Told once when a batch has ended, however many slides it had.
    connect(slides.lvwSLIDEBAR->model(), &QAbstractItemModel::modelReset, this,
            &SlideBar::showLength);
    connect(slides.prgBARSLIDES, &ProgressBar::Moved, this, &SlideBar::showStatus);
}

void SlideBar::makeEmptyState(Commands& commands) {
    EmptyState& empty = slides.lvwSLIDEBAR->emptyState();
    btnADDALL_ = empty.addButton("btnADDALLFOUND", "add-all", "Add All",
                                 "Add all pictures of the folder to the show");
    commands.addAll.addButton(*btnADDALL_);
    btnCHOOSE_ = empty.addButton("btnCHOOSEPICTURES", "picture", "Choose Pictures",
                                 "Go to the page Pictures");
    commands.choosePictures.addButton(*btnCHOOSE_);
    setPicturesShown(false);
}

void SlideBar::setPicturesShown(bool areShown) {
    EmptyState& empty = slides.lvwSLIDEBAR->emptyState();
    empty.setText(areShown ? QStringLiteral("Add pictures from above to make a show.")
                           : QStringLiteral("The slides of a show stand here."));
    empty.setButton(areShown ? btnADDALL_ : btnCHOOSE_);
}

void SlideBar::makeToolbar(Commands& commands) {
    for (const Design& design : toolbarButtons) {
        cbtn* button =
            makeButton(picbarCONTROLS, QStringLiteral("cbtnCONTROLS%1").arg(design.index),
                       design.symbol, design.tooltip, design.caption);
        placeDesign(*button, 0, buttonTop, design.index == 6 ? playWidth : buttonWidth,
                    buttonHeight);
        (commands.*design.command).addButton(*button);
        connect(button, &cbtn::clicked, this, &SlideBar::Pressed);
        cbtnCONTROLS.at(design.index) = button;
    }
    cbtnCONTROLS[6]->setPrimary(true);
}

float SlideBar::placeFromLeft(bool withCaptions) {
    float left = toolbarLeft;
    for (std::size_t index = 0; index < 6; ++index) {
        cbtn& button = *cbtnCONTROLS[index];
        button.setCompact(!withCaptions);
        giveRoom(button, buttonHeight);
        setLeft(button, left);
        left += Width(button) + (index % 2 == 0 ? pairGap : gapBetweenPairs);
    }
    return left - gapBetweenPairs;
}

void SlideBar::hangBelow(float tabsBottom, float surfaceWidth) {
    setWidth(*slides.prgBARSLIDES, surfaceWidth - 2 * Left(*slides.prgBARSLIDES));
    setTop(*slides.picSELBAR, tabsBottom - 110);
    setTop(*picbarCONTROLS, Top(*slides.picSELBAR) + Height(*slides.picSELBAR));
    setTop(*slides.lvwSLIDEBAR, Top(*picbarCONTROLS) + Height(*picbarCONTROLS) + 180);
    setWidth(*picbarCONTROLS, surfaceWidth);
}

void SlideBar::stretch(float surfaceWidth) {
    setLeft(*slides.lvwSLIDEBAR, 120);
    setWidth(*slides.picSELBAR, surfaceWidth - 2 * Left(*slides.picSELBAR));
    setWidth(*slides.lvwSLIDEBAR, surfaceWidth - 2 * Left(*slides.lvwSLIDEBAR));
    slides.lvwSLIDEBAR->viewport()->update();
}

void SlideBar::tint() {
    tintBand();
    tintToolbar();
    tintSlides();
}

void SlideBar::tintToolbar() {
    for (cbtn* button : cbtnCONTROLS) {
        if (button != nullptr) {
            QPalette paper = button->palette();
            paper.setColor(QPalette::Window, Page::pageColour());
            button->setPalette(paper);
        }
    }
}

void SlideBar::tintBand() {
    PictureBox& box = *slides.picSELBAR;
    const Colour light = gColrStyle->funcCOLORVALEDIT(GetSysColor(15), 42, true);
    const Colour band = ColorMix(light, highlight, 90);
    box.setBackColor(toRgb(band));
    GradientPaint(box.Image(), 90, buttonFace, band);
    box.update();
}

void SlideBar::tintSlides() {
    const Colour caption = GetSysColor(activeCaption);
    const Colour light = gColrStyle->funcCOLORVALEDIT(caption, 32, false);
    const Colour fill = ColorMix(ColorMix(light, white, 80), systemColour(activeCaption), 70);
    shpSLIDEBAR->setFillColor(toRgb(fill));
    QPalette ground = slides.lvwSLIDEBAR->palette();
    ground.setColor(QPalette::Base, QColor(toRgb(fill)));
    slides.lvwSLIDEBAR->setPalette(ground);
}

void SlideBar::layOut(float surfaceWidth, float surfaceHeight) {
    place(*shpSLIDEBAR, 90, surfaceHeight - 2500, surfaceWidth - 180 - 120, 2380);
    cbtn& start = *cbtnCONTROLS[6];
    cbtn& settings = *cbtnCONTROLS[8];
    giveRoom(start, buttonHeight);
    setLeft(start, surfaceWidth - Width(start) - 45);
    setLeft(settings, Left(start) - 120 - Width(settings));
    if (placeFromLeft(true) + 2 * lengthGap + leastLengthWidth > Left(settings)) {
        placeFromLeft(false);
    }
    showLength();
}

void SlideBar::showLength() {
    const int count = slides.lvwSLIDEBAR->Count();
    const cbtn& before = *cbtnCONTROLS[5];
    const float left = Left(before) + Width(before) + lengthGap;
    place(*lblSLIDECOUNT, left, Top(before), Left(*cbtnCONTROLS[8]) - lengthGap - left,
          Height(before));
    length_ = {showLengthText(count, slideInterval()), slidesText(count)};
    showStatus();
}

// What is being done, as long as something is; its end may be far off.
void SlideBar::showStatus() {
    const QString work = slides.prgBARSLIDES->Told();
    const QString leaving = slides.prgBARSLIDES->Leaving();
    const QString whole = leaving.isEmpty() ? work : QString(work + QStringLiteral(". ") + leaving);
    const Status status = work.isEmpty() ? length_ : Status{whole, work};
    const bool fits = lblSLIDECOUNT->fits(status.whole);
    lblSLIDECOUNT->setCaption(fits ? status.whole : status.brief);
    lblSLIDECOUNT->setAccessibleDescription(work.isEmpty() ? QString() : leaving);
}

QLineF SlideBar::separator(float surfaceWidth) const {
    const QPointF first(0, static_cast<double>(Top(*shpSLIDEBAR) - 400));
    const QPointF second(static_cast<double>(surfaceWidth + 15), 3700);
    constexpr auto scale = static_cast<double>(twipsPerLogicalPixel);
    return QLineF(first / scale, second / scale);
}

QList<QWidget*> SlideBar::tabOrder() const {
    return {cbtnCONTROLS[0],    cbtnCONTROLS[1], cbtnCONTROLS[2], cbtnCONTROLS[3],
            cbtnCONTROLS[4],    cbtnCONTROLS[5], cbtnCONTROLS[8], cbtnCONTROLS[6],
            slides.lvwSLIDEBAR, btnADDALL_,      btnCHOOSE_};
}

}  // namespace velorama

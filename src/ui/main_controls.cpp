#include "ui/main_controls.h"

#include "controls/twips.h"

#include <QCoreApplication>

namespace velorama {
namespace {

// Design places in twips. What the window's size decides is set by MainLayout.
constexpr float pageLeft = 165;
constexpr float bandHeight = 255;
constexpr float toolbarHeight = 540;
constexpr int slideBarRim = 8;  // logical pixels

struct ToolbarButton {
    const char* symbol;
    const char* tooltip;
    float left;
};

constexpr std::array<ToolbarButton, 7> toolbarButtons = {{
    {"add", "Add selected found photos", 120},
    {"add-all", "Add all found photos", 705},
    {"remove", "Remove selected photos", 1500},
    {"remove-all", "Remove all photos", 2085},
    {"move-back", "move photo backwards", 2880},
    {"move-forward", "move photo forwards", 3465},
    {"play", "Play Slideshow [F5]", 0},
}};

struct MusicButton {
    const char* symbol;
    const char* tooltip;
    float left;
    float top;
};

// Those that work on the list stand in a column beside it, those that play in a row below.
constexpr std::array<MusicButton, 6> musicButtons = {{
    {"plus", "Add music files", 100, 90},
    {"minus", "Remove the selected track", 100, 480},
    {"play", "Play", 9150, 2950},
    {"pause", "Pause or go on", 9660, 2950},
    {"stop", "Stop", 10170, 2950},
    {"clear", "Remove all tracks", 100, 870},
}};

template <typename Control>
Control* make(const char* name, QWidget* parent) {
    auto* control = new Control(parent);
    control->setObjectName(QLatin1String(name));
    return control;
}

cbtn* makeButton(QWidget* parent, const QString& name, const char* symbol, const char* tooltip) {
    auto* button = new cbtn(parent);
    button->setObjectName(name);
    button->setSymbol(QLatin1String(symbol));
    button->setToolTip(QLatin1String(tooltip));
    button->setAccessibleName(QLatin1String(tooltip));
    // The mouse leaves the keyboard where it is: in the list that the button works on.
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

}  // namespace

MainControls::MainControls(QWidget& form)
    : surface(form),
      tabPAGES(make<tab>("tabPAGES", &form)),
      picframPICTURES(make<QWidget>("picframPICTURES", &form)) {
    place(*tabPAGES, 60, 75, 10920, 3800);
    place(*picframPICTURES, pageLeft, 405, 10710, 3350);
    picframPICTURES->setAutoFillBackground(true);
    tabPAGES->setActiveTabs(QStringLiteral("Pictures,Music"));
    tabPAGES->setActiveTab(1);
    makePicturesPage();
    makeMusicPage();
    shpSLIDEBAR = make<SlideBarShape>("shpSLIDEBAR", &form);
    picSELBAR = make<PictureBox>("picSELBAR", &form);
    place(*picSELBAR, 0, 3765, 11040, bandHeight);
    prgBARSLIDES = make<ProgressBar>("prgBARSLIDES", picSELBAR);
    place(*prgBARSLIDES, 120, 60, 10800, 135);
    prgBARSLIDES->hide();
    makeToolbar();
    makeSlideBar();
    describe();
}

void MainControls::makePicturesPage() {
    ftvFOLDER = make<FolderTree>("ftvFOLDER", picframPICTURES);
    place(*ftvFOLDER, 100, 90, 3440, 3110);
    picVBAR = make<SplitterBar>("picVBAR", picframPICTURES);
    place(*picVBAR, 3585, 90, 75, 3260);
    picVBAR->setCursor(Qt::SplitHCursor);
    lvwFOUND = make<ListView>("lvwFOUND", picframPICTURES);
    place(*lvwFOUND, 3705, 90, 6905, 2760);
    lvwFOUND->setIcons(&imlFOUNDICONS);
    lvwFOUND->setArrangement(ListView::Arrangement::Wrapped);
    lvwFOUND->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lblFOUNDCOUNT = make<Label>("lblFOUNDCOUNT", picframPICTURES);
    place(*lblFOUNDCOUNT, 3705, 2950, 3600, 255);
}

void MainControls::makeMusicPage() {
    picframMUSICLIST = make<QWidget>("picframMUSICLIST", &surface);
    place(*picframMUSICLIST, pageLeft, 405, 10710, 3350);
    picframMUSICLIST->setAutoFillBackground(true);
    picframMUSICLIST->hide();
    for (std::size_t index = 0; index < musicButtons.size(); ++index) {
        const MusicButton& design = musicButtons.at(index);
        cbtnAUDIO.at(index) = makeButton(picframMUSICLIST, QStringLiteral("cbtnAUDIO%1").arg(index),
                                         design.symbol, design.tooltip);
        place(*cbtnAUDIO.at(index), design.left, design.top, 450, 345);
    }
    Command1 = makeButton(picframMUSICLIST, QStringLiteral("Command1"), "up", "Move up");
    place(*Command1, 100, 1350, 450, 345);
    Command2 = makeButton(picframMUSICLIST, QStringLiteral("Command2"), "down", "Move down");
    place(*Command2, 100, 1740, 450, 345);
    lstMUSIC = make<ListBox>("lstMUSIC", picframMUSICLIST);
    place(*lstMUSIC, 645, 90, 9990, 2760);
    prgPLAY = make<ProgressBar>("prgPLAY", picframMUSICLIST);
    place(*prgPLAY, 645, 3040, 8200, 150);
    prgPLAY->hide();
    lblM1 = make<Label>("lblM1", picframMUSICLIST);
    lblM2 = make<Label>("lblM2", picframMUSICLIST);
    lblFile = make<Label>("lblFile", picframMUSICLIST);
    for (QWidget* store : {lblM1, lblM2, lblFile}) {
        store->hide();
    }
}

void MainControls::makeToolbar() {
    picbarCONTROLS = make<QWidget>("picbarCONTROLS", &surface);
    place(*picbarCONTROLS, 0, 4020, 11040, toolbarHeight);
    picbarCONTROLS->setAutoFillBackground(true);
    for (std::size_t index = 0; index < toolbarButtons.size(); ++index) {
        const ToolbarButton& design = toolbarButtons.at(index);
        cbtn* button = makeButton(picbarCONTROLS, QStringLiteral("cbtnCONTROLS%1").arg(index),
                                  design.symbol, design.tooltip);
        place(*button, design.left, 45, 540, 450);
        cbtnCONTROLS.at(index) = button;
    }
    cbtnCONTROLS[6]->setPrimary(true);
    setWidth(*cbtnCONTROLS[6], 900);
}

void MainControls::makeSlideBar() {
    lvwSLIDEBAR = make<ListView>("lvwSLIDEBAR", &surface);
    place(*lvwSLIDEBAR, 120, 4740, 10800, 2280);
    imlTHUMBNAILS.setImageSize(QSize(90, 90));
    lvwSLIDEBAR->setIcons(&imlTHUMBNAILS);
    lvwSLIDEBAR->setArrangement(ListView::Arrangement::Strip);
    lvwSLIDEBAR->setFrameShape(QFrame::NoFrame);
    // The list reaches further right than the rounded ground it stands on; its contents do not.
    lvwSLIDEBAR->setRightRim(slideBarRim);
}

void MainControls::describe() {
    lvwFOUND->setEmptyText(QCoreApplication::translate(
        "MainControls",
        "No pictures in this folder.\nChoose a folder of photographs on the left."));
    lvwSLIDEBAR->setEmptyText(
        QCoreApplication::translate("MainControls", "Add pictures from above to make a show."));
    lstMUSIC->setEmptyText(QCoreApplication::translate(
        "MainControls", "Add MP3, WAV or MIDI files, or drop them here."));
    lstMUSIC->setAccessibleName(QStringLiteral("Music"));
    prgPLAY->setAccessibleName(QStringLiteral("Progress of the track"));
    ftvFOLDER->setAccessibleName(QStringLiteral("Folders"));
    lvwFOUND->setAccessibleName(QStringLiteral("Pictures Found"));
    lvwSLIDEBAR->setAccessibleName(QStringLiteral("Slideshow List"));
    picVBAR->setAccessibleName(QStringLiteral("Divider between folders and pictures"));
    prgBARSLIDES->setAccessibleName(QStringLiteral("Progress"));
}

}  // namespace velorama

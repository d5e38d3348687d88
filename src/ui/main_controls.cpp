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

template <typename Control>
Control* make(const char* name, QWidget* parent) {
    auto* control = new Control(parent);
    control->setObjectName(QLatin1String(name));
    return control;
}

}  // namespace

MainControls::MainControls(QWidget& form)
    : surface(form),
      tabPAGES(make<tab>("tabPAGES", &form)),
      picframPICTURES(make<QWidget>("picframPICTURES", &form)) {
    place(*tabPAGES, 60, 75, 10920, 3800);
    place(*picframPICTURES, pageLeft, 405, 10710, 3350);
    picframPICTURES->setAutoFillBackground(true);
    tabPAGES->setActiveTabs(QStringLiteral("Pictures"));
    tabPAGES->setActiveTab(1);
    makePicturesPage();
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

void MainControls::makeToolbar() {
    picbarCONTROLS = make<QWidget>("picbarCONTROLS", &surface);
    place(*picbarCONTROLS, 0, 4020, 11040, toolbarHeight);
    picbarCONTROLS->setAutoFillBackground(true);
    for (std::size_t index = 0; index < toolbarButtons.size(); ++index) {
        const ToolbarButton& design = toolbarButtons.at(index);
        auto* button = new cbtn(picbarCONTROLS);
        button->setObjectName(QStringLiteral("cbtnCONTROLS%1").arg(index));
        button->setSymbol(QLatin1String(design.symbol));
        button->setToolTip(QLatin1String(design.tooltip));
        button->setAccessibleName(QLatin1String(design.tooltip));
        // The mouse leaves the keyboard where it is: in the list that the button works on.
        button->setFocusPolicy(Qt::TabFocus);
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
    ftvFOLDER->setAccessibleName(QStringLiteral("Folders"));
    lvwFOUND->setAccessibleName(QStringLiteral("Pictures Found"));
    lvwSLIDEBAR->setAccessibleName(QStringLiteral("Slideshow List"));
    picVBAR->setAccessibleName(QStringLiteral("Divider between folders and pictures"));
    prgBARSLIDES->setAccessibleName(QStringLiteral("Progress"));
}

}  // namespace velorama

#include "ui/main_controls.h"

#include "controls/buttons/control_making.h"
#include "controls/buttons/icon.h"
#include "controls/geometry/twips.h"

#include <QCoreApplication>

namespace velorama {
namespace {

// Design places in twips. What the window's size decides is set by MainLayout.
constexpr float pageLeft = 75;
constexpr float bandHeight = 255;
constexpr float toolbarHeight = 540;
constexpr int slideBarRim = 8;  // logical pixels
// Buttons that stand below one another fit into the pages of the smallest window.
constexpr float columnTop = 60;
constexpr float columnPitch = 345;
constexpr float rowHeight = 330;

struct ToolbarButton {
    std::size_t index;
    const char* symbol;
    const char* tooltip;
    float left;
};

constexpr std::array<ToolbarButton, 8> toolbarButtons = {{
    {0, "add", "Add selected found photos", 120},
    {1, "add-all", "Add all found photos", 705},
    {2, "remove", "Remove selected photos", 1500},
    {3, "remove-all", "Remove all photos", 2085},
    {4, "move-back", "move photo backwards", 2880},
    {5, "move-forward", "move photo forwards", 3465},
    {8, "settings", "Change Slideshow settings", 0},
    {6, "play", "Play Slideshow [F5]", 0},
}};

struct CaptionedButton {
    const char* symbol;
    const char* caption;
    const char* tooltip;
};

constexpr std::array<CaptionedButton, 4> slidesButtons = {{
    {"new", "New", "Create a new Slideshow Album"},
    {"open", "Open", "Open Existing Slideshow Album"},
    {"save", "Save", "Save Slideshow Album"},
    {"save-as", "Save As", "Save Slideshow Album with new name"},
}};

constexpr std::array<CaptionedButton, 2> browseButtons = {{
    {"preview", "Preview", "Preview selected photo"},
    {"wallpaper", "Wallpaper", "Set the selected photo as your wallpaper"},
}};

void scaleFont(QWidget& widget, qreal factor, bool bold) {
    QFont font = widget.font();
    font.setPointSizeF(font.pointSizeF() * factor);
    font.setBold(bold);
    widget.setFont(font);
}

}  // namespace

MainControls::MainControls(QWidget& form)
    : surface(form),
      tabPAGES(make<tab>("tabPAGES", &form)),
      picframMUSICLIST(makePage("picframMUSICLIST")),
      music(*picframMUSICLIST) {
    place(*tabPAGES, 60, 75, 10920, 3800);
    tabPAGES->setActiveTabs(QStringLiteral("Slideshows,Pictures,Music,WebAlbum,Help"));
    makeSlideshowsPage();
    makePicturesPage();
    picframWEBALBM = makePage("picframWEBALBM");
    makeHelpPage();
    makeBand();
    makeToolbar();
    makeSlideBar();
    makeStores();
    describe();
}

QWidget* MainControls::makePage(const char* name) {
    auto* page = make<QWidget>(name, &surface);
    place(*page, pageLeft, 405, 10890, 3350);
    page->setAutoFillBackground(true);
    page->hide();
    return page;
}

void MainControls::makeSlideshowsPage() {
    picframSLIDEHSOW = makePage("picframSLIDEHSOW");
    for (std::size_t index = 0; index < slidesButtons.size(); ++index) {
        const CaptionedButton& design = slidesButtons.at(index);
        cbtn* button = makeButton(picframSLIDEHSOW, QStringLiteral("cbtnSLIDES%1").arg(index),
                                  design.symbol, design.tooltip, design.caption);
        place(*button, 105, columnTop + 30 + 390 * static_cast<float>(index), 1440, 345);
        button->setLeading(true);
        cbtnSLIDES.at(index) = button;
    }
    lvwALBUMS = make<ReportView>("lvwALBUMS", picframSLIDEHSOW);
    place(*lvwALBUMS, 1650, 90, 9165, 2760);
    lvwALBUMS->setColumns({QStringLiteral("Slideshow"), QStringLiteral("Description")});
    lvwALBUMS->setColumnWidth(2, 2900);
    lvwALBUMS->setSmallIcon(symbolIcon(QStringLiteral("album")));
    const auto button = [this](const char* name, const char* tooltip, const char* caption) {
        cbtn* made = makeButton(picframSLIDEHSOW, QLatin1String(name), "", tooltip, caption);
        place(*made, 0, 2950, 1080, rowHeight);
        return made;
    };
    btnADD = button("btnADD", "Put an album on the list", "Add...");
    btnREMOVE = button("btnREMOVE", "Take the album off the list; its file stays", "Remove");
    btnView = button("btnView", "Open the selected album", "Open");
}

void MainControls::makePicturesPage() {
    picframPICTURES = makePage("picframPICTURES");
    ftvFOLDER = make<FolderTree>("ftvFOLDER", picframPICTURES);
    place(*ftvFOLDER, 105, 90, 3440, 3110);
    picVBAR = make<SplitterBar>("picVBAR", picframPICTURES);
    place(*picVBAR, 3585, 90, 75, 3260);
    picVBAR->setCursor(Qt::SplitHCursor);
    lvwFOUND = make<ListView>("lvwFOUND", picframPICTURES);
    place(*lvwFOUND, 3705, 90, 6905, 2760);
    lvwFOUND->setIcons(&imlFOUNDICONS);
    lvwFOUND->setArrangement(ListView::Arrangement::Wrapped);
    lvwFOUND->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lblFOUNDCOUNT = make<Label>("lblFOUNDCOUNT", picframPICTURES);
    place(*lblFOUNDCOUNT, 3705, 2950, 3600, rowHeight);
    for (std::size_t index = 0; index < browseButtons.size(); ++index) {
        const CaptionedButton& design = browseButtons.at(index);
        cbtnBROWSEBTNS.at(index) =
            makeButton(picframPICTURES, QStringLiteral("cbtnBROWSEBTNS%1").arg(index),
                       design.symbol, design.tooltip, design.caption);
        place(*cbtnBROWSEBTNS.at(index), 0, 2950, 1440, rowHeight);
    }
}

void MainControls::makeHelpPage() {
    picframHELP = makePage("picframHELP");
    imgICON = make<QLabel>("imgICON", picframHELP);
    place(*imgICON, 240, 150, 960, 960);
    const auto line = [this](const char* name, float top, float height) {
        auto* label = make<QLabel>(name, picframHELP);
        place(*label, 1440, top, 3390, height);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        return label;
    };
    lblMAINTITLE = line("lblMAINTITLE", 120, 480);
    scaleFont(*lblMAINTITLE, 1.8, true);
    lblVERSION = line("lblVERSION", 615, 255);
    lblCOPYRIGHT = line("lblCOPYRIGHT", 885, 255);
    float top = columnTop;
    const auto button = [this, &top](const char* name, const char* symbol, const char* tooltip,
                                     const char* caption) {
        cbtn* made = makeButton(picframHELP, QLatin1String(name), symbol, tooltip, caption);
        // Within the page of the smallest window.
        place(*made, 4860, top, 2400, rowHeight);
        made->setLeading(true);
        top += columnPitch;
        return made;
    };
    cbtnHELP = button("cbtnHELP", "help", "Help Center Online [F1]", "Help Center");
    cbtnUPDATES = button("cbtnUPDATES", "update", "See whether there is a newer version",
                         "Check for Updates");
    cbtnWEBSITE = button("cbtnWEBSITE", "web", "Open the website in the browser", "Visit Website");
    cbtnSUPPORT = button("cbtnSUPPORT", "support", "Open the support page in the browser",
                         "Customer Support");
    cbtnABOUT = button("cbtnABOUT", "about", "About this program", "About");
}

void MainControls::makeBand() {
    shpSLIDEBAR = make<SlideBarShape>("shpSLIDEBAR", &surface);
    picSELBAR = make<PictureBox>("picSELBAR", &surface);
    place(*picSELBAR, 0, 3765, 11040, bandHeight);
    prgBARSLIDES = make<ProgressBar>("prgBARSLIDES", picSELBAR);
    place(*prgBARSLIDES, 120, 60, 10800, 135);
    prgBARSLIDES->hide();
}

void MainControls::makeToolbar() {
    picbarCONTROLS = make<QWidget>("picbarCONTROLS", &surface);
    place(*picbarCONTROLS, 0, 4020, 11040, toolbarHeight);
    picbarCONTROLS->setAutoFillBackground(true);
    for (const ToolbarButton& design : toolbarButtons) {
        cbtn* button =
            makeButton(picbarCONTROLS, QStringLiteral("cbtnCONTROLS%1").arg(design.index),
                       design.symbol, design.tooltip);
        place(*button, design.left, 45, 540, 450);
        cbtnCONTROLS.at(design.index) = button;
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

void MainControls::makeStores() {
    picWALLPAPER = make<PictureBox>("picWALLPAPER", &surface);
    picPREVIEW = make<PictureBox>("picPREVIEW", &surface);
    for (PictureBox* box : {picWALLPAPER, picPREVIEW}) {
        place(*box, 0, 0, 1350, 1350);
        box->hide();
    }
}

void MainControls::describe() {
    const auto text = [](const char* source) {
        return QCoreApplication::translate("MainControls", source);
    };
    lvwALBUMS->setEmptyText(
        text("The albums you open and save are kept here.\nTo begin, add photographs on the page "
             "Pictures, then save them as an album."));
    lvwFOUND->setEmptyText(
        text("No pictures in this folder.\nChoose a folder of photographs on the left."));
    lvwSLIDEBAR->setEmptyText(text("Add pictures from above to make a show."));
    const std::pair<QWidget*, const char*> names[] = {
        {tabPAGES, "Pages"},
        {lvwALBUMS, "Slideshow Albums"},
        {ftvFOLDER, "Folders"},
        {lvwFOUND, "Pictures Found"},
        {lvwSLIDEBAR, "Slideshow List"},
        {picVBAR, "Divider between folders and pictures"},
        {prgBARSLIDES, "Progress"},
    };
    for (const auto& [control, name] : names) {
        control->setAccessibleName(QLatin1String(name));
    }
}

}  // namespace velorama

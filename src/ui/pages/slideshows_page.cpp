#include "ui/pages/slideshows_page.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/caption_room.h"
#include "controls/geometry/twips.h"

namespace velorama {
namespace {

// Twips.
constexpr float columnLeft = 105;
constexpr float columnTop = 90;
constexpr float columnGap = 45;
constexpr float buttonWidth = 1440;
constexpr float buttonHeight = 345;

struct Design {
    const char* symbol;
    const char* caption;
    const char* tooltip;
    Command Commands::*command;
};

constexpr std::array<Design, 4> slidesButtons = {{
    {"new", "New", "Create a new Slideshow Album", &Commands::newAlbum},
    {"open", "Open", "Open Existing Slideshow Album", &Commands::open},
    {"save", "Save", "Save Slideshow Album", &Commands::save},
    {"save-as", "Save As", "Save Slideshow Album with new name", &Commands::saveAs},
}};

/// Room for a short sentence of any font, as long as the names keep the larger half.
float descriptionWidth(const ReportView& list) {
    constexpr float design = 2900;
    constexpr int letters = 28;
    const float wanted = toTwips(letters * list.fontMetrics().averageCharWidth());
    return std::max(design, std::min(wanted, (Width(list) - 900) / 2));
}

}  // namespace

SlideshowsPage::SlideshowsPage(QWidget& surface, Commands& commands)
    : Page("picframSLIDEHSOW", surface) {
    for (std::size_t index = 0; index < slidesButtons.size(); ++index) {
        const Design& design = slidesButtons.at(index);
        cbtn* button = makeButton(this, QStringLiteral("cbtnSLIDES%1").arg(index), design.symbol,
                                  design.tooltip, design.caption);
        placeDesign(*button, columnLeft, columnTop, buttonWidth, buttonHeight);
        button->setLeading(true);
        (commands.*design.command).addButton(*button);
        cbtnSLIDES.at(index) = button;
    }
    givenWidth_ = albums.lvwALBUMS->ColumnWidth(2);
    btnCHOOSE_ = albums.lvwALBUMS->emptyState().addButton(
        "btnCHOOSEFORALBUM", "picture", "Choose Pictures", "Go to the page Pictures");
    commands.choosePictures.addButton(*btnCHOOSE_);
}

void SlideshowsPage::makeRoom() {
    for (cbtn* button : {albums.btnADD, albums.btnREMOVE, albums.btnView}) {
        giveRoom(*button, mostFootHeight);
    }
    placeRow({albums.btnView, albums.btnREMOVE, albums.btnADD});
    const QList<QWidget*> column(cbtnSLIDES.begin(), cbtnSLIDES.end());
    const float foot = Height(*this) - Top(*albums.lvwALBUMS);
    float right = giveRoomInColumn(column, columnGap, foot);
    // Beside a short row at the foot there is room down to the edge.
    if (right > Left(*albums.btnADD)) {
        right = giveRoomInColumn(column, columnGap, Top(*albums.btnADD) - columnGap);
    }
    setLeft(*albums.lvwALBUMS, right + columnLeft);
}

void SlideshowsPage::layOut() {
    ReportView& list = *albums.lvwALBUMS;
    setWidth(list, Width(*this) - Left(list) - 75);
    setHeight(list, Height(*this) - Top(list) - belowList);
    if (list.ColumnWidth(2) == givenWidth_) {
        list.setColumnWidth(2, descriptionWidth(list));
        givenWidth_ = list.ColumnWidth(2);
    }
    list.setColumnWidth(1, Width(list) - 900 - list.ColumnWidth(2));
    placeRow({albums.btnView, albums.btnREMOVE, albums.btnADD});
}

QList<QWidget*> SlideshowsPage::tabOrder() const {
    return {cbtnSLIDES[0], cbtnSLIDES[1], cbtnSLIDES[2],    cbtnSLIDES[3], albums.lvwALBUMS,
            btnCHOOSE_,    albums.btnADD, albums.btnREMOVE, albums.btnView};
}

}  // namespace velorama

#include "ui/pages/pictures_page.h"

#include "browse/found_counts.h"
#include "controls/buttons/control_making.h"
#include "controls/geometry/caption_room.h"
#include "controls/geometry/twips.h"
#include "controls/input/keys.h"
#include "core/globals.h"
#include "platform/numbers.h"

namespace velorama {
namespace {

// Twips.
constexpr float leastCountWidth = 1200;
constexpr float splitterKeyStep = 150;

const QString toolSettings = QStringLiteral("\\frmTOOLSSETTINGS\\Items");
const QString splitterName = QStringLiteral("Splitter Bar Left");

float whole(float twips) {
    return static_cast<float>(roundHalfEven(static_cast<double>(twips)));
}

}  // namespace

PicturesPage::PicturesPage(QWidget& surface, Commands& commands)
    : Page("picframPICTURES", surface),
      picVBAR(make<SplitterBar>("picVBAR", this)),
      lblFOUNDCOUNT(make<Label>("lblFOUNDCOUNT", this)) {
    place(*picVBAR, 3585, 90, 75, 3260);
    picVBAR->setCursor(Qt::SplitHCursor);
    picVBAR->setAccessibleName(QStringLiteral("Divider between folders and pictures"));
    placeDesign(*lblFOUNDCOUNT, 3705, 2950, 3600, 330);
    makeButtons(commands);
    btnSAMPLES_ = found.lvwFOUND->emptyState().addButton("btnSAMPLES", "picture", "Show Samples",
                                                         "Go to the folder of sample pictures");
    commands.showSamples.addButton(*btnSAMPLES_);
    connectSplitter();
    connect(found.lvwFOUND, &ListView::SelectionChanged, this, &PicturesPage::showCount);
}

void PicturesPage::makeButtons(Commands& commands) {
    cbtnBROWSEBTNS = {makeButton(this, QStringLiteral("cbtnBROWSEBTNS0"), "preview",
                                 "Preview selected photo", "Preview"),
                      makeButton(this, QStringLiteral("cbtnBROWSEBTNS1"), "wallpaper",
                                 "Set the selected photo as your wallpaper", "Wallpaper")};
    for (cbtn* button : cbtnBROWSEBTNS) {
        placeDesign(*button, 0, 2950, 1440, 330);
    }
    commands.preview.addButton(*cbtnBROWSEBTNS[0]);
    commands.wallpaper.addButton(*cbtnBROWSEBTNS[1]);
}

void PicturesPage::connectSplitter() {
    connect(picVBAR, &PictureBox::MouseMove, this, [this](int button, float x, float) {
        if (button == 1) {
            moveSplitter(x);
        }
    });
    connect(picVBAR, &PictureBox::MouseUp, this, &PicturesPage::SplitterMoved);
    connect(picVBAR, &PictureBox::KeyDown, this, [this](int code, int shift) {
        if (code == KeyLeft || code == KeyRight) {
            moveSplitter(code == KeyLeft ? -splitterKeyStep : splitterKeyStep);
            emit SplitterMoved();
        }
        emit KeyDown(code, shift);
    });
}

void PicturesPage::moveSplitter(float step) {
    const float target = Left(*picVBAR) + step;
    if (target >= 2700) {
        setLeft(*picVBAR, whole(target));
    }
}

void PicturesPage::restoreSplitter() {
    const QString stored = loadSetting(toolSettings, splitterName, QStringLiteral("3585"));
    if (const auto left = decimalNumber(stored)) {
        setLeft(*picVBAR, static_cast<float>(*left));
    }
}

void PicturesPage::saveSplitter() const {
    saveSetting(toolSettings, splitterName, singleText(Left(*picVBAR)));
}

void PicturesPage::stretch() {
    setHeight(*found.ftvFOLDER, Height(*this) - 180 - 60);
    setHeight(*picVBAR, Height(*this) - Top(*picVBAR));
}

void PicturesPage::makeRoom() {
    giveRoom(*lblFOUNDCOUNT, mostFootHeight);
}

bool PicturesPage::holdSplitter(float surfaceWidth) {
    float left = whole(Left(*picVBAR));
    if (left < 2775) {
        left = 2775;
        setLeft(*picVBAR, left);
    }
    if (surfaceWidth != 0 && surfaceWidth - 1000 < left) {
        left = surfaceWidth - 1000;
        setLeft(*picVBAR, left);
    }
    return left >= 45;
}

void PicturesPage::placeBySplitter(float surfaceWidth, float right) {
    const float left = whole(Left(*picVBAR));
    setWidth(*found.ftvFOLDER, left - 45 - Left(*found.ftvFOLDER));
    setLeft(*found.lvwFOUND, left + 120);
    setWidth(*found.lvwFOUND, surfaceWidth - Left(*picVBAR) - 550);
    found.lvwFOUND->setVisible(true);
    const auto [preview, wallpaper] = cbtnBROWSEBTNS;
    giveRowRoom({wallpaper, preview}, Left(*found.lvwFOUND));
    setLeft(*wallpaper, right - Width(*wallpaper) - 90);
    setLeft(*preview, right - Width(*wallpaper) - 90 - Width(*preview) - 90);
    setLeft(*lblFOUNDCOUNT, Left(*found.lvwFOUND));
    const float room = Left(*preview) - Left(*lblFOUNDCOUNT) - 120;
    setWidth(*lblFOUNDCOUNT, room);
    // Cut down to an ellipsis it says nothing.
    lblFOUNDCOUNT->setVisible(room >= leastCountWidth);
}

void PicturesPage::layOut() {
    setHeight(*found.lvwFOUND, Height(*this) - Top(*found.lvwFOUND) - belowList);
    for (QWidget* below :
         std::initializer_list<QWidget*>{cbtnBROWSEBTNS[0], cbtnBROWSEBTNS[1], lblFOUNDCOUNT}) {
        setTop(*below, Height(*this) - footHeight);
    }
}

QList<QWidget*> PicturesPage::tabOrder() const {
    return {found.ftvFOLDER, picVBAR,           found.lvwFOUND,
            btnSAMPLES_,     cbtnBROWSEBTNS[0], cbtnBROWSEBTNS[1]};
}

void PicturesPage::tint() {
    Page::tint();
    picVBAR->setBackColor(pageColour());
}

void PicturesPage::showCount() {
    const QString nothing = nothingFound(found.flbFOUND->OtherCount());
    const bool isEmpty = found.flbFOUND->ListCount() == 0;
    found.lvwFOUND->setEmptyText(nothing);
    found.lvwFOUND->setAccessibleDescription(isEmpty ? nothing : QString());
    lblFOUNDCOUNT->setCaption(foundCount(found));
}

}  // namespace velorama

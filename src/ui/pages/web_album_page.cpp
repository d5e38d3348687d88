#include "ui/pages/web_album_page.h"

#include "controls/buttons/colour_button.h"
#include "controls/buttons/control_making.h"
#include "controls/geometry/caption_room.h"
#include "controls/geometry/twips.h"
#include "controls/input/one_line.h"
#include "controls/input/wheel_guard.h"
#include "webalbum/web_album_settings.h"

#include <QStyle>

namespace velorama {
namespace {

// Logical pixels.
constexpr int Gap = 10;
constexpr int RowGap = 3;

ChoiceBox* combo(const char* name, const QStringList& entries, const QString& design,
                 QWidget* parent) {
    auto* made = make<ChoiceBox>(name, parent);
    made->addItems(entries);
    made->setCurrentText(design);
    guardFromWheel(*made);
    return made;
}

const QLabel* addPair(QGridLayout& grid, int row, const char* caption, QWidget* control) {
    auto* label = new QLabel(QLatin1String(caption), control->parentWidget());
    label->setBuddy(control);
    grid.addWidget(label, row, 0);
    // A text may be as long as the column is wide; other fields have the width of what they hold.
    const bool grows = qobject_cast<QLineEdit*>(control) != nullptr;
    grid.addWidget(control, row, 1, grows ? Qt::Alignment() : Qt::AlignLeft);
    return label;
}

QGridLayout* columnOfRows() {
    auto* grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(RowGap);
    grid->setHorizontalSpacing(8);
    return grid;
}

}  // namespace

WebAlbumPage::WebAlbumPage(QWidget& surface, Commands& commands, CommonDialog& cdlDIALOG)
    : Page("picframWEBALBM", surface),
      scroll_(new ScrolledContent(this)),
      content_(&scroll_->content()) {
    makeControls(cdlDIALOG);
    connectSamples();
    makeNoSlides(commands);
    commands.createWebAlbum.addButton(*cbtnWEBALBUM);
    commands.viewWebAlbum.addButton(*cbtnVIEWWEBALB);
    settings_ = settings();
    row_ = new QHBoxLayout(content_);
    row_->setContentsMargins(7, 6, 7, 0);
    row_->setSpacing(Gap);
    row_->addLayout(settings_);
    row_->setAlignment(settings_, Qt::AlignTop);
    row_->addLayout(panes());
    row_->addStretch(1);
    WebAlbumSampleUpdate();
}

void WebAlbumPage::makeControls(CommonDialog& cdlDIALOG) {
    txtTITLE = make<QLineEdit>("txtTITLE", content_);
    keepOneLine(*txtTITLE);
    txtTITLE->setToolTip(QStringLiteral("Title of the pages and name of their folder"));
    makeColours(cdlDIALOG);
    makeFonts();
    udnPHOTO = make<updown>("udnPHOTO", content_);
    const WebAlbumValues design = webAlbumDesign();
    udnPHOTO->design(webAlbumPhotoSizes.least, webAlbumPhotoSizes.most, 5, design.udnPHOTO);
    udnTHUMBNAIL = make<updown>("udnTHUMBNAIL", content_);
    udnTHUMBNAIL->design(webAlbumThumbnailSizes.least, webAlbumThumbnailSizes.most, 5,
                         design.udnTHUMBNAIL);
    cbtnWEBALBUM = makeButton(this, QStringLiteral("cbtnWEBALBUM"), "web",
                              "Write the slides out as a web album", "Create WebAlbum");
    cbtnVIEWWEBALB = makeButton(this, QStringLiteral("cbtnVIEWWEBALB"), "preview",
                                "Open the web album in the browser", "View WebAlbum");
    placeDesign(*cbtnWEBALBUM, 0, 2950, 2250, 330);
    placeDesign(*cbtnVIEWWEBALB, 0, 2950, 2100, 330);
    samples_ = std::make_unique<WebAlbumSamples>(content_);
}

void WebAlbumPage::makeNoSlides(Commands& commands) {
    lblNOSLIDES_ = make<Label>("lblNOSLIDES", this);
    lblNOSLIDES_->setCaption(QStringLiteral("A web album needs slides."));
    btnCHOOSE_ = makeButton(this, QStringLiteral("btnCHOOSEFORWEB"), "picture",
                            "Go to the page Pictures", "Choose Pictures");
    commands.choosePictures.addButton(*btnCHOOSE_);
    placeDesign(*btnCHOOSE_, 105, 2950, 1440, 330);
    placeDesign(*lblNOSLIDES_, 105, 2950, 1440, 330);
}

void WebAlbumPage::setHasSlides(bool hasSlides) {
    hasSlides_ = hasSlides;
    placeNoSlides();
}

// At the left of the row at the foot: the words where there is room for them, too.
void WebAlbumPage::placeNoSlides() {
    giveRoom(*btnCHOOSE_, mostFootHeight);
    giveRoom(*lblNOSLIDES_, mostFootHeight);
    setWidth(*lblNOSLIDES_,
             toTwips(lblNOSLIDES_->fontMetrics().horizontalAdvance(lblNOSLIDES_->Caption()) + 2));
    const float left = Left(*btnCHOOSE_);
    const float middle = left + Width(*btnCHOOSE_) + 120;
    const float end = Left(*cbtnWEBALBUM) - 120;
    setTop(*btnCHOOSE_, Top(*cbtnWEBALBUM));
    setTop(*lblNOSLIDES_, Top(*cbtnWEBALBUM));
    setLeft(*lblNOSLIDES_, middle);
    btnCHOOSE_->setVisible(!hasSlides_ && middle <= end);
    lblNOSLIDES_->setVisible(!hasSlides_ && middle + Width(*lblNOSLIDES_) <= end);
}

void WebAlbumPage::makeColours(CommonDialog& cdlDIALOG) {
    const auto colour = [&](const ColourField::Names& names, Colour first) {
        auto* field = new ColourField(names, cdlDIALOG, content_);
        field->setBackColor(first);
        connect(field, &ColourField::Chosen, this, &WebAlbumPage::WebAlbumSampleUpdate);
        return field;
    };
    const WebAlbumValues design = webAlbumDesign();
    picBACKGROUND = colour({"picBACKGROUND", "cddGRADSHDW", "btnBACK", "darBACK", "Page color"},
                           design.picBACKGROUND);
    picTEXTCOLOR = colour({"picTEXTCOLOR", "cddGRAD", "btnTEXT", "darTEXT", "Text color"},
                          design.picTEXTCOLOR);
    picBARCOL = colour({"picBARCOL", "cddBARCOLOR", "btnBARCOLOR", "darBARCOLOR", "Control bar"},
                       design.picBARCOL);
    picTITLEBARCOL =
        colour({"picTITLEBARCOL", "cddTITLEBAR", "btnTITLEBAR", "darTITLEBAR", "Title bar"},
               design.picTITLEBARCOL);
    picTITLEBARTEXTCOL = colour({"picTITLEBARTEXTCOL", "cddTITLEBARTEXT", "btnTITLEBARTEXT",
                                 "darTITLEBARTEXT", "Title bar text"},
                                design.picTITLEBARTEXTCOL);
}

void WebAlbumPage::makeFonts() {
    const WebAlbumValues design = webAlbumDesign();
    const QStringList sizes = webAlbumFontSizes();
    cboFONTS = combo("cboFONTS", webAlbumFonts(), design.cboFONTS, content_);
    cboFONTSIZE = combo("cboFONTSIZE", sizes, design.cboFONTSIZE, content_);
    cboFONTSBAR = combo("cboFONTSBAR", webAlbumBarFonts(), design.cboFONTSBAR, content_);
    cboFONTSSIZEBAR = combo("cboFONTSSIZEBAR", sizes, design.cboFONTSSIZEBAR, content_);
    for (const ChoiceBox* list : {cboFONTS, cboFONTSBAR}) {
        connect(list, &QComboBox::activated, this, &WebAlbumPage::WebAlbumSampleUpdate);
    }
}

QLayout* WebAlbumPage::columnOf(std::initializer_list<Field> fields) {
    QGridLayout* grid = columnOfRows();
    int row = 0;
    for (const auto& [caption, control] : fields) {
        captions_.append(addPair(*grid, row++, caption, control));
        fields_.append(control);
    }
    columns_.append(grid);
    return grid;
}

QBoxLayout* WebAlbumPage::settings() {
    auto* columns = new QHBoxLayout;
    columns->setSpacing(Gap);
    columns->addLayout(columnOf({{"Pa&ge Title:", txtTITLE},
                                 {"&Page Color:", picBACKGROUND->button()},
                                 {"&Text Color:", picTEXTCOLOR->button()},
                                 {"Control &Bar:", picBARCOL->button()},
                                 {"T&itle Bar:", picTITLEBARCOL->button()},
                                 {"Tit&le Bar Text:", picTITLEBARTEXTCOL->button()}}));
    columns->addLayout(columnOf({{"Text &Font:", cboFONTS},
                                 {"Text Font Siz&e:", cboFONTSIZE},
                                 {"Bar F&ont:", cboFONTSBAR},
                                 {"B&ar Font Size:", cboFONTSSIZEBAR},
                                 {"Photo Si&ze:", udnPHOTO},
                                 {"Thumb&nail Size:", udnTHUMBNAIL}}));
    return columns;
}

void WebAlbumPage::makeRoom() {
    giveRowRoom({cbtnVIEWWEBALB, cbtnWEBALBUM}, 0);
    // Rows that stand side by side are of one height.
    int height = 0;
    for (const QWidget* field : std::as_const(fields_)) {
        height = std::max(height, field->sizeHint().height());
    }
    for (QGridLayout* column : std::as_const(columns_)) {
        for (int row = 0; row < column->rowCount(); ++row) {
            column->setRowMinimumHeight(row, height);
        }
    }
}

// Captions one below the other are of one width; beside one another they take what they need.
void WebAlbumPage::alignCaptions(bool areAligned) {
    int width = 0;
    for (const QLabel* caption : std::as_const(captions_)) {
        width = std::max(width, caption->sizeHint().width());
    }
    for (QGridLayout* column : std::as_const(columns_)) {
        column->setColumnMinimumWidth(0, areAligned ? width : 0);
    }
    scroll_->refresh();
}

void WebAlbumPage::layOut() {
    placeRow({cbtnVIEWWEBALB, cbtnWEBALBUM});
    placeNoSlides();
    scroll_->setGeometry(0, 0, toPixels(Width(*this)), toPixels(Height(*this) - belowList));
    arrangeBeside();
    // In one column the settings leave more to the samples, or have room for their longest texts.
    if (row_->direction() == QBoxLayout::LeftToRight) {
        scroll_->stackIfHigh(*settings_);
    } else if (content_->sizeHint().width() > scroll_->width() - scrollBar()) {
        settings_->setDirection(QBoxLayout::TopToBottom);
        scroll_->refresh();
    }
    alignCaptions(settings_->direction() == QBoxLayout::TopToBottom);
    growSamples();
}

// Fields that show less of their texts make the samples wider, as long as all stand side by side.
void WebAlbumPage::arrangeBeside() {
    constexpr int mostLines = 7;
    for (int lines = mostLines; lines >= leastLines; --lines) {
        leastWidth_ = leastPane(lines);
        samples_->setPaneSize(QSize(leastWidth_, leastPane(leastLines)));
        alignCaptions(false);
        scroll_->arrange({row_, settings_});
        if (row_->direction() == QBoxLayout::LeftToRight) {
            return;
        }
    }
}

void WebAlbumPage::tint() {
    Page::tint();
    for (const ColourField* field :
         {picBACKGROUND, picTEXTCOLOR, picBARCOL, picTITLEBARCOL, picTITLEBARTEXTCOL}) {
        QPalette paper = field->button()->palette();
        paper.setColor(QPalette::Button, pageColour());
        field->button()->setPalette(paper);
    }
}

QList<QWidget*> WebAlbumPage::tabOrder() const {
    return fields_ + QList<QWidget*>{btnCHOOSE_, cbtnWEBALBUM, cbtnVIEWWEBALB};
}

}  // namespace velorama

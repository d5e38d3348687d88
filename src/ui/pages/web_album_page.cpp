#include "ui/pages/web_album_page.h"

#include "controls/buttons/colour_button.h"
#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"
#include "controls/input/one_line.h"
#include "controls/input/wheel_guard.h"
#include "core/globals.h"
#include "platform/numbers.h"

#include <QGridLayout>
#include <QLabel>

namespace velorama {
namespace {

const QString webAlbumSettings = QStringLiteral("\\mfrmPRGMAIN\\webalbum");

// Defaults of the design, 0x00BBGGRR.
constexpr Colour designBackground = 16708836;
constexpr Colour designText = 4194304;
constexpr Colour designBar = 16761024;
constexpr Colour designTitleBar = 16744576;
constexpr Colour designTitleBarText = 16777215;

const QString arial = QStringLiteral("Arial, Helvetica, Sans-Serif");
const QString georgia = QStringLiteral("Georgia, \"Times New Roman\", Times, Serif");

/// The two lists differ in one letter.
QStringList fontEntries(const QString& geneva) {
    return {arial,
            QStringLiteral("Verdana, Arial, Helvetica, Sans-Serif"),
            QStringLiteral("Courier New, Courier, Monospace"),
            QStringLiteral("Tahoma, Sans-Serif"),
            QStringLiteral("\"Times New Roman\", Times, Serif"),
            geneva,
            georgia};
}

const QStringList sizeEntries = {QStringLiteral("1 (8 pt)"),  QStringLiteral("2 (10 pt)"),
                                 QStringLiteral("3 (12 pt)"), QStringLiteral("4 (14 pt)"),
                                 QStringLiteral("5 (18 pt)"), QStringLiteral("6 (24 pt)"),
                                 QStringLiteral("7 (36 pt)")};

QComboBox* combo(const char* name, const QStringList& entries, const QString& design,
                 QWidget* parent) {
    auto* made = make<QComboBox>(name, parent);
    made->addItems(entries);
    made->setCurrentText(design);
    made->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    made->setMinimumContentsLength(9);
    guardFromWheel(*made);
    return made;
}

/// The name of a font of the samples; nothing where the entry has no comma.
std::optional<QString> sampleFont(const QString& entry) {
    const qsizetype comma = entry.indexOf(QLatin1Char(','));
    if (comma < 0) {
        return std::nullopt;
    }
    const QString name = entry.left(comma).remove(QLatin1Char('"'));
    return name == QLatin1String("Geneva") ? QStringLiteral("Arial") : name;
}

void setFamily(QWidget& widget, const QString& family) {
    QFont font = widget.font();
    font.setFamilies({family});
    widget.setFont(font);
}

using Field = std::pair<const char*, QWidget*>;

void addPair(QGridLayout& grid, int row, int column, const char* caption, QWidget* control) {
    auto* label = new QLabel(QLatin1String(caption), control->parentWidget());
    label->setBuddy(control);
    grid.addWidget(label, row, column);
    grid.addWidget(control, row, column + 1);
}

QGridLayout* columnOfRows() {
    auto* grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(3);
    grid->setHorizontalSpacing(8);
    return grid;
}

}  // namespace

WebAlbumPage::WebAlbumPage(QWidget& surface, Commands& commands, CommonDialog& cdlDIALOG)
    : Page("picframWEBALBM", surface),
      scroll_(new QScrollArea(this)),
      content_(new QWidget(scroll_)) {
    makeControls(cdlDIALOG);
    commands.createWebAlbum.addButton(*cbtnWEBALBUM);
    commands.viewWebAlbum.addButton(*cbtnVIEWWEBALB);
    auto* row = new QHBoxLayout(content_);
    row->setContentsMargins(7, 6, 7, 0);
    row->setSpacing(10);
    row->addLayout(settings());
    row->addLayout(panes());
    row->addStretch();
    scroll_->setWidget(content_);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setFocusPolicy(Qt::NoFocus);
    // The page's own colour shows through.
    scroll_->viewport()->setAutoFillBackground(false);
    content_->setAutoFillBackground(false);
    WebAlbumSampleUpdate();
}

void WebAlbumPage::makeControls(CommonDialog& cdlDIALOG) {
    txtTITLE = make<QLineEdit>("txtTITLE", content_);
    keepOneLine(*txtTITLE);
    txtTITLE->setToolTip(QStringLiteral("Title of the pages and name of their folder"));
    makeColours(cdlDIALOG);
    makeFonts();
    udnPHOTO = make<updown>("udnPHOTO", content_);
    udnPHOTO->design(100, 3000, 5, QStringLiteral("500"));
    udnTHUMBNAIL = make<updown>("udnTHUMBNAIL", content_);
    udnTHUMBNAIL->design(10, 2000, 5, QStringLiteral("95"));
    cbtnWEBALBUM = makeButton(this, QStringLiteral("cbtnWEBALBUM"), "web",
                              "Write the slides out as a web album", "Create WebAlbum");
    cbtnVIEWWEBALB = makeButton(this, QStringLiteral("cbtnVIEWWEBALB"), "preview",
                                "Open the web album in the browser", "View WebAlbum");
    place(*cbtnWEBALBUM, 0, 2950, 2250, 330);
    place(*cbtnVIEWWEBALB, 0, 2950, 2100, 330);
    samples_ = std::make_unique<WebAlbumSamples>(content_);
}

void WebAlbumPage::makeColours(CommonDialog& cdlDIALOG) {
    const auto colour = [&](const ColourField::Names& names, Colour design) {
        auto* field = new ColourField(names, cdlDIALOG, content_);
        field->setBackColor(design);
        connect(field, &ColourField::Chosen, this, &WebAlbumPage::WebAlbumSampleUpdate);
        return field;
    };
    picBACKGROUND = colour({"picBACKGROUND", "cddGRADSHDW", "btnBACK", "darBACK", "Page color"},
                           designBackground);
    picTEXTCOLOR =
        colour({"picTEXTCOLOR", "cddGRAD", "btnTEXT", "darTEXT", "Text color"}, designText);
    picBARCOL = colour({"picBARCOL", "cddBARCOLOR", "btnBARCOLOR", "darBARCOLOR", "Control bar"},
                       designBar);
    picTITLEBARCOL =
        colour({"picTITLEBARCOL", "cddTITLEBAR", "btnTITLEBAR", "darTITLEBAR", "Title bar"},
               designTitleBar);
    picTITLEBARTEXTCOL = colour({"picTITLEBARTEXTCOL", "cddTITLEBARTEXT", "btnTITLEBARTEXT",
                                 "darTITLEBARTEXT", "Title bar text"},
                                designTitleBarText);
}

void WebAlbumPage::makeFonts() {
    cboFONTS =
        combo("cboFONTS", fontEntries(QStringLiteral("Geneva, Arial, Helvetica, Sans-Serif")),
              arial, content_);
    cboFONTSIZE = combo("cboFONTSIZE", sizeEntries, QStringLiteral("3 (12 pt)"), content_);
    cboFONTSBAR =
        combo("cboFONTSBAR", fontEntries(QStringLiteral("Geneva, Arial, Helvetica, sans-serif")),
              georgia, content_);
    cboFONTSSIZEBAR = combo("cboFONTSSIZEBAR", sizeEntries, QStringLiteral("6 (24 pt)"), content_);
    for (const QComboBox* list : {cboFONTS, cboFONTSBAR}) {
        connect(list, &QComboBox::activated, this, &WebAlbumPage::WebAlbumSampleUpdate);
    }
}

QLayout* WebAlbumPage::settings() {
    QGridLayout* grid = columnOfRows();
    const auto add = [&](int column, std::initializer_list<Field> fields) {
        int row = 0;
        for (const auto& [caption, control] : fields) {
            addPair(*grid, row++, column, caption, control);
            fields_.append(control);
        }
    };
    add(0, {{"Pa&ge Title:", txtTITLE},
            {"&Page Color:", picBACKGROUND->button()},
            {"&Text Color:", picTEXTCOLOR->button()},
            {"Control &Bar:", picBARCOL->button()},
            {"T&itle Bar:", picTITLEBARCOL->button()},
            {"Tit&le Bar Text:", picTITLEBARTEXTCOL->button()}});
    add(3, {{"Text &Font:", cboFONTS},
            {"Text Font Siz&e:", cboFONTSIZE},
            {"Bar F&ont:", cboFONTSBAR},
            {"B&ar Font Size:", cboFONTSSIZEBAR},
            {"Photo Si&ze:", udnPHOTO},
            {"Thumb&nail Size:", udnTHUMBNAIL}});
    grid->setColumnMinimumWidth(1, 100);
    grid->setColumnMinimumWidth(2, 2);
    grid->setRowStretch(grid->rowCount(), 1);
    return grid;
}

QLayout* WebAlbumPage::panes() {
    QGridLayout* grid = columnOfRows();
    const auto pane = [&](int column, PictureBox* box) {
        grid->addWidget(new QLabel(box->accessibleName(), content_), 0, column);
        grid->addWidget(box, 1, column);
    };
    pane(0, samples_->picWAMAIN);
    pane(1, samples_->picWASLIDE);
    grid->setRowStretch(2, 1);
    return grid;
}

void WebAlbumPage::load() {
    const auto colour = [](const char* name, ColourField* field) {
        const QString stored =
            loadSetting(webAlbumSettings, QLatin1String(name), decimalText(field->BackColor()));
        field->setBackColor(wholeNumber(stored).value_or(field->BackColor()));
    };
    const auto entry = [](const char* name, QComboBox* list) {
        list->setCurrentText(
            loadSetting(webAlbumSettings, QLatin1String(name), list->currentText()));
    };
    const auto size = [](const char* name, updown* field) {
        const QString design = field->Text();
        field->setText(loadSetting(webAlbumSettings, QLatin1String(name), design));
        if (!field->hasNumber()) {
            field->setText(design);
        }
    };
    colour("BackColor", picBACKGROUND);
    colour("TextColor", picTEXTCOLOR);
    entry("Fonts", cboFONTS);
    entry("FontsSize", cboFONTSIZE);
    colour("TitleBarColor", picTITLEBARCOL);
    colour("BarColor", picBARCOL);
    colour("TitleBarTextColor", picTITLEBARTEXTCOL);
    entry("FontsBar", cboFONTSBAR);
    entry("FontsSizeBar", cboFONTSSIZEBAR);
    size("PhotoSize", udnPHOTO);
    size("ThumbnailSize", udnTHUMBNAIL);
    WebAlbumSampleUpdate();
}

void WebAlbumPage::save() const {
    const std::pair<const char*, QString> values[] = {
        {"BackColor", decimalText(picBACKGROUND->BackColor())},
        {"TextColor", decimalText(picTEXTCOLOR->BackColor())},
        {"Fonts", cboFONTS->currentText()},
        {"FontsSize", cboFONTSIZE->currentText()},
        {"BarColor", decimalText(picBARCOL->BackColor())},
        {"TitleBarColor", decimalText(picTITLEBARCOL->BackColor())},
        {"TitleBarTextColor", decimalText(picTITLEBARTEXTCOL->BackColor())},
        {"FontsBar", cboFONTSBAR->currentText()},
        {"FontsSizeBar", cboFONTSSIZEBAR->currentText()},
        {"PhotoSize", udnPHOTO->Text()},
        {"ThumbnailSize", udnTHUMBNAIL->Text()},
    };
    for (const auto& [name, value] : values) {
        saveSetting(webAlbumSettings, QLatin1String(name), value);
    }
}

WebAlbumValues WebAlbumPage::values() const {
    return {.txtTITLE = txtTITLE->text(),
            .picBACKGROUND = picBACKGROUND->BackColor(),
            .picTEXTCOLOR = picTEXTCOLOR->BackColor(),
            .picBARCOL = picBARCOL->BackColor(),
            .picTITLEBARCOL = picTITLEBARCOL->BackColor(),
            .picTITLEBARTEXTCOL = picTITLEBARTEXTCOL->BackColor(),
            .cboFONTS = cboFONTS->currentText(),
            .cboFONTSIZE = cboFONTSIZE->currentText(),
            .cboFONTSBAR = cboFONTSBAR->currentText(),
            .cboFONTSSIZEBAR = cboFONTSSIZEBAR->currentText(),
            .udnPHOTO = udnPHOTO->Text(),
            .udnTHUMBNAIL = udnTHUMBNAIL->Text()};
}

void WebAlbumPage::WebAlbumSampleUpdate() {
    WebAlbumSamples& s = *samples_;
    const QColor bar = shownColour(picBARCOL->BackColor());
    s.shpSLIDEBARCOL->setFillColor(bar);
    s.shpBARMAINCOL->setFillColor(bar);
    const QColor page = shownColour(picBACKGROUND->BackColor());
    s.picWASLIDE->setBackColor(page);
    s.picWAMAIN->setBackColor(page);
    const QColor text = shownColour(picTEXTCOLOR->BackColor());
    const std::optional<QString> family = sampleFont(cboFONTS->currentText());
    std::vector<Label*> captions(s.lbltxtMAINCOL.begin(), s.lbltxtMAINCOL.end());
    captions.push_back(s.lbltxtSLIDECOL);
    for (Label* label : captions) {
        label->setForeColor(text);
        if (family) {
            setFamily(*label, *family);
        }
    }
    if (const auto barFamily = sampleFont(cboFONTSBAR->currentText())) {
        setFamily(*s.lblTTLMAINCOL, *barFamily);
    }
    s.lblTTLMAINCOL->setForeColor(shownColour(picTITLEBARTEXTCOL->BackColor()));
    s.shpTTLMAINCOL->setFillColor(shownColour(picTITLEBARCOL->BackColor()));
}

void WebAlbumPage::layOut() {
    placeRow({cbtnVIEWWEBALB, cbtnWEBALBUM});
    scroll_->setGeometry(0, 0, toPixels(Width(*this)), toPixels(Height(*this) - belowList));
}

QList<QWidget*> WebAlbumPage::tabOrder() const {
    return fields_ + QList<QWidget*>{cbtnWEBALBUM, cbtnVIEWWEBALB};
}

}  // namespace velorama

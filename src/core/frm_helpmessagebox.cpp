#include "core/frm_helpmessagebox.h"

#include "controls/boxes/label.h"
#include "controls/buttons/control_making.h"
#include "controls/buttons/symbol_picture.h"
#include "controls/geometry/window_place.h"
#include "controls/input/keys.h"
#include "core/globals.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>

namespace velorama {
namespace {

constexpr int Margin = 18;
constexpr int Gap = 8;
constexpr int IconSize = 36;
constexpr int TextColumns = 46;

constexpr int DescriptionPoints = 12;
constexpr int FileNamePoints = 9;
constexpr int HelpTextPoints = 8;

// Upper case only: a lower-case letter is no answer.
enum Character : int { CharC = 67, CharN = 78, CharO = 79, CharY = 89 };

QFont sized(QFont font, int points) {
    font.setPointSize(points);
    return font;
}

int characterCode(const QKeyEvent& event) {
    if (event.text().isEmpty()) {
        return event.key() == Qt::Key_Escape ? static_cast<int>(KeyEscape) : 0;
    }
    return event.text().at(0).unicode();
}

}  // namespace

frmHELPMESSAGEBOX::frmHELPMESSAGEBOX(clsSTATUS& status, QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint),
      status_(status) {
    setObjectName(QStringLiteral("frmHELPMESSAGEBOX"));
    setWindowTitle(QStringLiteral("Help"));
    setWindowModality(Qt::ApplicationModal);

    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    // The size follows the texts.
    rows->setSizeConstraint(QLayout::SetFixedSize);
    rows->addWidget(makeWindow());
    sepbarFOOTER = make<QFrame>("sepbarFOOTER", this);
    sepbarFOOTER->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    rows->addWidget(sepbarFOOTER);
    rows->addWidget(makeFooter());
}

// The owner may take the form along while it is up: no button was pressed then.
frmHELPMESSAGEBOX::~frmHELPMESSAGEBOX() {
    unload();
}

QWidget* frmHELPMESSAGEBOX::makeWindow() {
    picframWINDOW = make<QWidget>("picframWINDOW", this);
    picframWINDOW->setBackgroundRole(QPalette::Base);
    picframWINDOW->setForegroundRole(QPalette::Text);
    picframWINDOW->setAutoFillBackground(true);

    imgINFOICON = make<SymbolPicture>("imgINFOICON", picframWINDOW);
    imgINFOICON->setFixedSize(IconSize, IconSize);
    imgINFOICON->setSymbol(QStringLiteral("information"));
    lblDESCRIPTION = makeLines("lblDESCRIPTION", DescriptionPoints);
    lblFILENAME = make<Label>("lblFILENAME", picframWINDOW);
    lblFILENAME->setFont(sized(font(), FileNamePoints));
    lblFILENAME->setForegroundRole(QPalette::Text);
    lblFILENAME->setFixedHeight(lblFILENAME->fontMetrics().height());
    lblHELPTEXT = makeLines("lblHELPTEXT", HelpTextPoints);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(Gap);
    texts->addWidget(lblDESCRIPTION);
    texts->addWidget(lblFILENAME);
    texts->addWidget(lblHELPTEXT);
    const int column = TextColumns * lblDESCRIPTION->fontMetrics().averageCharWidth();
    for (QWidget* text : {static_cast<QWidget*>(lblDESCRIPTION), static_cast<QWidget*>(lblFILENAME),
                          static_cast<QWidget*>(lblHELPTEXT)}) {
        text->setFixedWidth(qMin(column, screen()->availableSize().width() / 2));
    }
    auto* columns = new QHBoxLayout(picframWINDOW);
    columns->setContentsMargins(Margin, Margin, Margin, Margin);
    columns->setSpacing(Margin);
    columns->addWidget(imgINFOICON, 0, Qt::AlignTop);
    columns->addLayout(texts);
    return picframWINDOW;
}

QLabel* frmHELPMESSAGEBOX::makeLines(const char* name, int pointSize) {
    QLabel* label = makeText(picframWINDOW, name);
    label->setFont(sized(font(), pointSize));
    label->setForegroundRole(QPalette::Text);
    label->setWordWrap(true);
    return label;
}

QWidget* frmHELPMESSAGEBOX::makeFooter() {
    auto* footer = new QWidget(this);
    auto* bars = new QHBoxLayout(footer);
    bars->setContentsMargins(Margin, Gap + 2, Margin, Gap + 2);
    bars->addStretch();

    const QString yes = QStringLiteral("&Yes");
    const QString no = QStringLiteral("&No ");
    cframBTNBARO = makeBar("cframBTNBARO");
    addButton(cframBTNBARO, "btnOK", QStringLiteral("&Close "), &frmHELPMESSAGEBOX::btnOK_Click);
    cframBTNBARYN = makeBar("cframBTNBARYN");
    addButton(cframBTNBARYN, "btnYES", yes, &frmHELPMESSAGEBOX::btnYES_Click);
    addButton(cframBTNBARYN, "btnNO", no, &frmHELPMESSAGEBOX::btnNO_Click);
    cframBTNBARYNC = makeBar("cframBTNBARYNC");
    addButton(cframBTNBARYNC, "btnYES", yes, &frmHELPMESSAGEBOX::btnYES_Click);
    addButton(cframBTNBARYNC, "btnNO", no, &frmHELPMESSAGEBOX::btnNO_Click);
    addButton(cframBTNBARYNC, "btnCANCEL", QStringLiteral("Cancel "),
              &frmHELPMESSAGEBOX::btnCANCEL_Click);
    for (QWidget* bar : {cframBTNBARO, cframBTNBARYN, cframBTNBARYNC}) {
        bars->addWidget(bar);
    }
    return footer;
}

QWidget* frmHELPMESSAGEBOX::makeBar(const char* name) {
    auto* bar = make<QWidget>(name, this);
    auto* buttons = new QHBoxLayout(bar);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->setSpacing(Gap);
    bar->hide();
    return bar;
}

void frmHELPMESSAGEBOX::addButton(QWidget* bar, const char* name, const QString& caption,
                                  Handler handler) {
    QPushButton* button = makeDialogButton(bar, name, caption);
    bar->layout()->addWidget(button);
    connect(button, &QPushButton::clicked, this, handler);
}

void frmHELPMESSAGEBOX::showModal() {
    if (QPushButton* button = defaultButton()) {
        button->setDefault(true);
        button->setFocus();
    }
    setAccessibleDescription(lblDESCRIPTION->text());
    layout()->activate();
    placeOverOwner();
    gRegistry->FormDimensionsSetup(*this, false);
    // Its place of last time may be on a screen that nobody looks at now.
    if (nearestScreen(*this) != screenPlace(*this)) {
        placeOverOwner();
    }
    loaded_ = true;
    exec();
}

QPushButton* frmHELPMESSAGEBOX::defaultButton() const {
    for (const QWidget* bar : {cframBTNBARYNC, cframBTNBARYN, cframBTNBARO}) {
        if (!bar->isHidden()) {
            return bar->findChild<QPushButton*>();
        }
    }
    return nullptr;
}

void frmHELPMESSAGEBOX::placeOverOwner() {
    const QScreen* own = parentWidget() ? parentWidget()->window()->screen() : screen();
    const QRect desktop = own->availableGeometry();
    const QRect over = parentWidget() ? parentWidget()->window()->frameGeometry() : desktop;
    QRect place(QPoint(), size());
    place.moveCenter(over.center());
    place.moveRight(qMin(place.right(), desktop.right()));
    place.moveBottom(qMin(place.bottom(), desktop.bottom()));
    move(qMax(place.left(), desktop.left()), qMax(place.top(), desktop.top()));
}

void frmHELPMESSAGEBOX::unload() {
    if (!loaded_) {
        return;
    }
    loaded_ = false;
    gRegistry->FormDimensionsSave(*this, false);
    if (status_.MessageBoxClick() == 0) {
        status_.setMessageBoxClick(AnswerCancel);
    }
}

void frmHELPMESSAGEBOX::done(int result) {
    unload();
    QDialog::done(result);
}

void frmHELPMESSAGEBOX::keyPressEvent(QKeyEvent* event) {
    if (keyCode(*event) == KeyF1) {
        gLibrary->subHELPCENTERPAGEINDEX();
    }
    const int character = characterCode(*event);
    // Escape is an answer of the bars and no way round them.
    if (!MessageKeyPress(character) && character != KeyEscape) {
        QDialog::keyPressEvent(event);
    }
}

bool frmHELPMESSAGEBOX::MessageKeyPress(int key) {
    static const struct {
        QWidget* frmHELPMESSAGEBOX::*bar;
        int key;
        Handler handler;
    } answers[] = {
        {&frmHELPMESSAGEBOX::cframBTNBARYNC, CharY, &frmHELPMESSAGEBOX::btnYES_Click},
        {&frmHELPMESSAGEBOX::cframBTNBARYNC, CharN, &frmHELPMESSAGEBOX::btnNO_Click},
        {&frmHELPMESSAGEBOX::cframBTNBARYNC, CharC, &frmHELPMESSAGEBOX::btnCANCEL_Click},
        {&frmHELPMESSAGEBOX::cframBTNBARYNC, KeyEscape, &frmHELPMESSAGEBOX::btnCANCEL_Click},
        {&frmHELPMESSAGEBOX::cframBTNBARYN, CharY, &frmHELPMESSAGEBOX::btnYES_Click},
        {&frmHELPMESSAGEBOX::cframBTNBARYN, CharN, &frmHELPMESSAGEBOX::btnNO_Click},
        {&frmHELPMESSAGEBOX::cframBTNBARYN, KeyEscape, &frmHELPMESSAGEBOX::btnCANCEL_Click},
        {&frmHELPMESSAGEBOX::cframBTNBARO, CharO, &frmHELPMESSAGEBOX::btnOK_Click},
        {&frmHELPMESSAGEBOX::cframBTNBARO, KeyEscape, &frmHELPMESSAGEBOX::btnCANCEL_Click},
    };
    for (const auto& answer : answers) {
        if (!(this->*answer.bar)->isHidden() && answer.key == key) {
            (this->*answer.handler)();
            return true;
        }
    }
    return false;
}

void frmHELPMESSAGEBOX::btnYES_Click() {
    status_.setMessageBoxClick(AnswerYes);
    close();
}

void frmHELPMESSAGEBOX::btnNO_Click() {
    status_.setMessageBoxClick(AnswerNo);
    close();
}

void frmHELPMESSAGEBOX::btnCANCEL_Click() {
    status_.setMessageBoxClick(AnswerCancel);
    close();
}

void frmHELPMESSAGEBOX::btnOK_Click() {
    close();
}

}  // namespace velorama

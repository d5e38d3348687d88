#include "shell/frm_helpabout.h"

#include "controls/buttons/control_making.h"
#include "core/lib_txt.h"

#include <QBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace velorama {
namespace {

constexpr int Margin = 18;
constexpr int Gap = 8;
constexpr int IconSize = 64;
constexpr int NoticeColumns = 60;
constexpr int NoticeLines = 12;
constexpr qreal TitleScale = 1.8;

}  // namespace

frmHELPABOUT::frmHELPABOUT(QWidget* owner, const QIcon& icon) : QDialog(owner) {
    setObjectName(QStringLiteral("frmHELPABOUT"));
    setWindowTitle(QStringLiteral("About"));
    setWindowModality(Qt::ApplicationModal);
    makeControls(icon);
    layOut();
    connect(btnCLOSE, &QPushButton::clicked, this, &QDialog::reject);
}

void frmHELPABOUT::makeControls(const QIcon& icon) {
    imgICON = makeText(this, "imgICON");
    imgICON->setPixmap(icon.pixmap(QSize(IconSize, IconSize), devicePixelRatioF()));
    lblMAINTITLE = makeTitle(this, "lblMAINTITLE", libTxt.ProductName, TitleScale);
    lblVERSION = makeText(this, "lblVERSION", libTxt.VersionText);
    lblCOPYRIGHT = makeText(this, "lblCOPYRIGHT", libTxt.LegalLine);
    for (QLabel* label : {imgICON, lblMAINTITLE, lblVERSION, lblCOPYRIGHT}) {
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    textCOPYRIGHT = make<QPlainTextEdit>("textCOPYRIGHT", this);
    textCOPYRIGHT->setPlainText(libTxt.AboutText);
    textCOPYRIGHT->setReadOnly(true);
    textCOPYRIGHT->setTabChangesFocus(true);
    textCOPYRIGHT->setAccessibleName(QStringLiteral("Legal notice"));
    textCOPYRIGHT->setMinimumWidth(NoticeColumns * fontMetrics().averageCharWidth());
    textCOPYRIGHT->setMinimumHeight(NoticeLines * fontMetrics().lineSpacing());
    btnUPDATES = makeDialogButton(this, "btnUPDATES", QStringLiteral("Check for &Updates"),
                                  QStringLiteral("See whether there is a newer version"));
    btnCLOSE = makeDialogButton(this, "btnCLOSE", QStringLiteral("&Close"),
                                QStringLiteral("Close this window"));
    btnUPDATES->setAutoDefault(false);
    btnCLOSE->setDefault(true);
    btnCLOSE->setFocus();
}

void frmHELPABOUT::layOut() {
    auto* names = new QVBoxLayout;
    names->setSpacing(Gap / 2);
    for (QLabel* label : {lblMAINTITLE, lblVERSION, lblCOPYRIGHT}) {
        names->addWidget(label);
    }
    auto* head = new QHBoxLayout;
    head->setSpacing(Margin);
    head->addWidget(imgICON, 0, Qt::AlignTop);
    head->addLayout(names, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(btnUPDATES);
    buttons->addWidget(btnCLOSE);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(Margin, Margin, Margin, Margin);
    rows->setSpacing(Margin);
    rows->addLayout(head);
    rows->addWidget(textCOPYRIGHT, 1);
    rows->addLayout(buttons);
    rows->activate();
}

}  // namespace velorama

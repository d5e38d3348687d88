#include "shell/frm_helpcheckupdate.h"

#include "controls/boxes/label.h"
#include "controls/buttons/control_making.h"
#include "core/globals.h"
#include "core/lib_txt.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace velorama {
namespace {

constexpr int Margin = 18;
constexpr int Gap = 8;
constexpr int TextColumns = 52;
constexpr qreal TitleScale = 1.5;

/// Where nothing stands, the text of the design stays.
struct OutcomeTexts {
    UpdateOutcome outcome;
    const char* description;
    const char* helpText;
    bool question;
};

constexpr OutcomeTexts outcomeTexts[] = {
    {UpdateOutcome::NoAnswer, "There is an error accessing, please try later.",
     "If this persists please check your connection.", false},
    {UpdateOutcome::Newer, nullptr, nullptr, true},
    {UpdateOutcome::Latest, "You have the latest version.",
     "If you need updates then please contact support.", false},
};

void setText(QLabel& label, const char* text) {
    if (text != nullptr) {
        label.setText(QLatin1String(text));
    }
}

}  // namespace

frmHELPCHECKUPDATE::frmHELPCHECKUPDATE(QWidget* owner)
    : QDialog(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint) {
    setObjectName(QStringLiteral("frmHELPCHECKUPDATE"));
    setWindowTitle(QStringLiteral("Check for Updates"));
    setWindowModality(Qt::ApplicationModal);
    lblTITLE = makeTitle(this, "lblTITLE", libTxt.ProductName, TitleScale);
    lblDESCRIPTION =
        makeText(this, "lblDESCRIPTION", QStringLiteral("There is a newer version available."));
    lblPROGNO = make<Label>("lblPROGNO", this);
    lblPROGNO->setCaption(QStringLiteral("New Version:"));
    lblPROGNO->setFixedHeight(fontMetrics().height());
    lblCURRENT = makeText(this, "lblCURRENT", QStringLiteral("Version: ") + libTxt.VersionNumber);
    lblHELPTEXT = makeText(this, "lblHELPTEXT",
                           QStringLiteral("Press Yes to Download new version or "
                                          "press No to return to the document."));
    btnYES = makeDialogButton(this, "btnYES", QStringLiteral("&Yes"),
                              QStringLiteral("Open the program's home page in the browser"));
    btnNO = makeDialogButton(this, "btnNO", QStringLiteral("&No "),
                             QStringLiteral("Close this window"));
    for (QLabel* text : {lblTITLE, lblDESCRIPTION, lblCURRENT, lblHELPTEXT}) {
        text->setWordWrap(true);
    }
    connect(btnYES, &QPushButton::clicked, this, &frmHELPCHECKUPDATE::btnYES_Click);
    connect(btnNO, &QPushButton::clicked, this, &QDialog::reject);
    layOut();
}

void frmHELPCHECKUPDATE::layOut() {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(Margin, Margin, Margin, Margin);
    rows->setSpacing(Gap);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    const int width = TextColumns * fontMetrics().averageCharWidth();
    for (QWidget* row : std::initializer_list<QWidget*>{lblTITLE, lblDESCRIPTION, lblPROGNO,
                                                        lblCURRENT, lblHELPTEXT}) {
        row->setFixedWidth(width);
        rows->addWidget(row);
    }
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(btnYES);
    buttons->addWidget(btnNO);
    rows->addSpacing(Gap);
    rows->addLayout(buttons);
}

void frmHELPCHECKUPDATE::tell(UpdateOutcome outcome, const QString& result,
                              const QString& closeCaption) {
    for (const OutcomeTexts& texts : outcomeTexts) {
        if (texts.outcome != outcome) {
            continue;
        }
        setText(*lblDESCRIPTION, texts.description);
        setText(*lblHELPTEXT, texts.helpText);
        lblPROGNO->setCaption(QStringLiteral("Latest Version: ") + result);
        btnYES->setVisible(texts.question);
        if (!texts.question) {
            btnNO->setText(closeCaption);
        }
    }
    (btnYES->isHidden() ? btnNO : btnYES)->setDefault(true);
    setAccessibleDescription(lblDESCRIPTION->text());
    layout()->activate();
}

void frmHELPCHECKUPDATE::btnYES_Click() {
    gRegistry->InternetLinkRun(QString::number(winId()), libTxt.ProtocolHttp, libTxt.WebsiteUrl);
    accept();
}

}  // namespace velorama

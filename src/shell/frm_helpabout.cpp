#include "shell/frm_helpabout.h"

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
constexpr int ButtonWidth = 84;
constexpr int NoticeColumns = 60;
constexpr int NoticeLines = 12;
constexpr qreal TitleScale = 1.8;

}  // namespace

frmHELPABOUT::frmHELPABOUT(QWidget* owner, const QIcon& icon, CheckForUpdates check)
    : QDialog(owner) {
    setObjectName(QStringLiteral("frmHELPABOUT"));
    setWindowTitle(QStringLiteral("About"));
    setWindowModality(Qt::ApplicationModal);
    makeControls(icon);
    layOut();
    connect(btnCLOSE, &QPushButton::clicked, this, &QDialog::reject);
    connect(btnUPDATES, &QPushButton::clicked, this, [this, check = std::move(check)] {
        if (check) {
            check(this);
        }
    });
}

QLabel* frmHELPABOUT::makeLabel(const char* name, const QString& text) {
    auto* label = new QLabel(text, this);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QPushButton* frmHELPABOUT::makeButton(const char* name, const QString& caption,
                                      const QString& tooltip) {
    auto* button = new QPushButton(caption, this);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tooltip);
    button->setMinimumWidth(ButtonWidth);
    return button;
}

void frmHELPABOUT::makeControls(const QIcon& icon) {
    imgICON = makeLabel("imgICON", {});
    imgICON->setPixmap(icon.pixmap(QSize(IconSize, IconSize), devicePixelRatioF()));
    lblMAINTITLE = makeLabel("lblMAINTITLE", libTxt.ProductName);
    QFont title = lblMAINTITLE->font();
    title.setPointSizeF(title.pointSizeF() * TitleScale);
    title.setBold(true);
    lblMAINTITLE->setFont(title);
    lblVERSION = makeLabel("lblVERSION", libTxt.VersionText);
    lblCOPYRIGHT = makeLabel("lblCOPYRIGHT", libTxt.LegalLine);
    textCOPYRIGHT = new QPlainTextEdit(libTxt.AboutText, this);
    textCOPYRIGHT->setObjectName(QStringLiteral("textCOPYRIGHT"));
    textCOPYRIGHT->setReadOnly(true);
    textCOPYRIGHT->setTabChangesFocus(true);
    textCOPYRIGHT->setAccessibleName(QStringLiteral("Legal notice"));
    textCOPYRIGHT->setMinimumWidth(NoticeColumns * fontMetrics().averageCharWidth());
    textCOPYRIGHT->setMinimumHeight(NoticeLines * fontMetrics().lineSpacing());
    btnUPDATES = makeButton("btnUPDATES", QStringLiteral("Check for &Updates"),
                            QStringLiteral("See whether there is a newer version"));
    btnCLOSE =
        makeButton("btnCLOSE", QStringLiteral("&Close"), QStringLiteral("Close this window"));
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

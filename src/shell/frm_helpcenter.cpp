#include "shell/frm_helpcenter.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"
#include "controls/geometry/window_place.h"
#include "controls/input/keys.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "shell/shipped_help.h"

#include <QApplication>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QWindow>

#include <utility>

namespace velorama {
namespace {

constexpr int Margin = 8;
constexpr int Gap = 6;
constexpr int GroupGap = 18;
constexpr qreal HeaderScale = 1.4;
constexpr float designWidth = 10500;
constexpr float designHeight = 8700;

/// Not below the folder of the other pages.
QString homeAddress() {
    return QUrl(libTxt.HelpUrl).resolved(QUrl(QStringLiteral("../home/index.html"))).toString();
}

}  // namespace

frmHELPCENTER::frmHELPCENTER() : QWidget(nullptr, Qt::Window) {
    setObjectName(QStringLiteral("frmHELPCENTER"));
    setWindowTitle(QStringLiteral("Help"));
    setAttribute(Qt::WA_DeleteOnClose);
    makeControls();
    layOut();
    connectButtons();
    setWidth(*this, designWidth);
    setHeight(*this, designHeight);
    centreOnScreen(*this);
    gRegistry->FormDimensionsSetup(*this, true);
}

frmHELPCENTER::~frmHELPCENTER() {
    unload();
}

void frmHELPCENTER::makeControls() {
    lblHEADERCAPTION =
        makeTitle(this, "lblHEADERCAPTION", QStringLiteral("Help Center"), HeaderScale);
    const auto button = [this](const char* name, const char* symbol, const char* caption,
                               const char* tooltip) {
        return makeSymbolButton(this, QLatin1String(name), symbol, tooltip, caption);
    };
    cbtnSTARTED = button("cbtnSTARTED", "play", "Getting Started", "Open the Getting Started page");
    cbtnEMAIL = button("cbtnEMAIL", "support", "E-mail", "Send an Email");
    cbtnHOME = button("cbtnHOME", "help", "Index", "Go to Home page");
    cbtnCLOSE = button("cbtnCLOSE", "clear", "Close", "Close Help Center");
    cbtnBACK = button("cbtnBACK", "move-back", "Back", "Go Back");
    cbtnFORWARD = button("cbtnFORWARD", "move-forward", "Forward", "Go Forward");
    cbtnBACK->setEnabled(false);
    cbtnFORWARD->setEnabled(false);
    webWINDOW = make<velorama::webWINDOW>("webWINDOW", this);
    webWINDOW->setAccessibleName(QStringLiteral("Help page"));
    webWINDOW->setSubstitute(shippedHelp());
    webWINDOW->setFocus();
}

void frmHELPCENTER::layOut() {
    auto* row = new QHBoxLayout;
    row->setSpacing(Gap);
    for (cbtn* button : {cbtnSTARTED, cbtnEMAIL, cbtnHOME, cbtnCLOSE, cbtnBACK, cbtnFORWARD}) {
        if (button == cbtnBACK) {
            row->addSpacing(GroupGap);
        }
        row->addWidget(button);
    }
    row->addStretch();
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(Margin, Margin, Margin, Margin);
    rows->setSpacing(Margin);
    rows->addWidget(lblHEADERCAPTION);
    rows->addLayout(row);
    rows->addWidget(webWINDOW, 1);
    rows->activate();
}

void frmHELPCENTER::connectButtons() {
    const auto page = [this](const cbtn* button, const char* name) {
        connect(button, &cbtn::Click, this,
                [name] { gLibrary->subHELPCENTERPAGEOPEN(QLatin1String(name)); });
    };
    page(cbtnSTARTED, "menuhelpgettingstarted.html");
    page(cbtnEMAIL, "menuhelpsupport.html");
    connect(cbtnHOME, &cbtn::Click, this, [this] { webWINDOW->Navigate(homeAddress()); });
    connect(cbtnCLOSE, &cbtn::Click, this, &QWidget::close);
    connect(cbtnBACK, &cbtn::Click, this, [this] {
        webWINDOW->GoBack();
        webWINDOW->Refresh();
    });
    connect(cbtnFORWARD, &cbtn::Click, this, [this] {
        webWINDOW->GoForward();
        webWINDOW->Refresh();
    });
    connect(webWINDOW, &webWINDOW::CommandStateChange, this,
            &frmHELPCENTER::webWINDOW_CommandStateChange);
    connect(webWINDOW, &webWINDOW::DocumentComplete, webWINDOW, &webWINDOW::Refresh);
    connect(webWINDOW, &webWINDOW::OutsideLink, this, [this](const QUrl& address) {
        gRegistry->InternetLinkRun(QString::number(winId()), libTxt.ProtocolHttp,
                                   address.toString(QUrl::FullyEncoded));
    });
}

void frmHELPCENTER::webWINDOW_CommandStateChange(int Command, bool Enable) {
    const qint16 flag = Enable ? -1 : 0;
    if (Command == velorama::webWINDOW::CommandForward) {
        forwardEnabled_ = flag;
    } else if (Command == velorama::webWINDOW::CommandBack) {
        backEnabled_ = flag;
    }
    cbtnFORWARD->setEnabled(forwardEnabled_ != 0);
    cbtnBACK->setEnabled(backEnabled_ != 0);
}

bool frmHELPCENTER::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        webWINDOW->Refresh();
    }
    return QWidget::event(event);
}

// No help on top of help.
void frmHELPCENTER::keyPressEvent(QKeyEvent* event) {
    if (keyCode(*event) == KeyF1) {
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
}

void frmHELPCENTER::closeEvent(QCloseEvent* event) {
    unload();
    QWidget::closeEvent(event);
}

void frmHELPCENTER::unload() {
    if (loaded_) {
        gRegistry->FormDimensionsSave(*this, true);
    }
    loaded_ = false;
}

HelpCenter::HelpCenter(QWidget* main) : main_(main) {
    connect(gLibrary.get(), &clsLIBRARY::helpPageWanted, this, &HelpCenter::open);
}

HelpCenter::~HelpCenter() {
    unload();
}

void HelpCenter::open(const QString& address) {
    // One that has been closed is on its way out.
    if (form_ && !form_->isVisible()) {
        delete std::exchange(form_, nullptr);
    }
    if (form_) {
        form_->webWINDOW->Navigate(address);
        // Behind other windows it would seem that nothing has happened.
        if (!form_->isActiveWindow()) {
            form_->setWindowState(form_->windowState() & ~Qt::WindowMinimized);
            form_->raise();
        }
        return;
    }
    form_ = new frmHELPCENTER;
    form_->webWINDOW->Navigate(address);
    // A dialog shuts out all windows but those above it.
    const QWidget* asking = QApplication::activeModalWidget();
    asking = asking != nullptr ? asking : main_;
    form_->winId();
    form_->windowHandle()->setTransientParent(asking != nullptr ? asking->window()->windowHandle()
                                                                : nullptr);
    form_->show();
}

void HelpCenter::unload() {
    delete form_;
}

}  // namespace velorama

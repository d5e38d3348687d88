#include "ui/main_window.h"

#include "controls/geometry/twips.h"
#include "controls/input/keys.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "platform/numbers.h"
#include "shell/frm_helpabout.h"
#include "ui/dialogs/frm_resourcewait.h"

namespace velorama {
namespace {

constexpr float splitterKeyStep = 150;

}  // namespace

// Those of slides and albums are connected by who carries them out.
void mfrmPRGMAIN::connectCommands() {
    const auto on = [this](const Command& command, auto handler) {
        connect(&command, &Command::triggered, this, handler);
    };
    on(commands_.start, &mfrmPRGMAIN::mnuFILESTART_Click);
    on(commands_.settings, &mfrmPRGMAIN::mnuTOOLSOPTIONS_Click);
    on(commands_.exit, &mfrmPRGMAIN::close);
    on(commands_.preview, &mfrmPRGMAIN::PicturePreview);
    on(commands_.wallpaper, &mfrmPRGMAIN::DESKTOPWALLPAPER);
    on(commands_.createWebAlbum, [this] { webAlbum_.cbtnWEBALBUM_Click(); });
    on(commands_.viewWebAlbum,
       [this] { webAlbum_.cbtnVIEWWEBALB_Click(QString::number(winId())); });
    connectHelp();
    connectToolbar();
    connectButtons();
    mnutxt1_.setObjectName(QStringLiteral("mnutxt1"));
    connect(&mnutxt1_, &mnutxt::MenuHover, this,
            [](const QString& text) { gStatus->MenuText(text); });
    // The listing begins with an empty image list: the new folder's names are there by then.
    connect(&controls_.imlFOUNDICONS, &ImageList::changed, this, &mfrmPRGMAIN::updateFoundCount);
    connect(controls_.tabPAGES, &tab::Click, this, &mfrmPRGMAIN::tabPAGES_Click);
}

void mfrmPRGMAIN::connectHelp() {
    const auto browse = [this](const Command& command, const QString& link) {
        connect(&command, &Command::triggered, this, [this, link] {
            gRegistry->InternetLinkRun(QString::number(winId()), libTxt.ProtocolHttp, link);
        });
    };
    connect(&commands_.help, &Command::triggered, this, [] { gLibrary->subHELPCENTERPAGEINDEX(); });
    connect(&commands_.updateCheck, &Command::triggered, this,
            &mfrmPRGMAIN::mnuHELPUPDATECHECK_Click);
    connect(&commands_.about, &Command::triggered, this, &mfrmPRGMAIN::mnuHELPABOUT_Click);
    browse(commands_.website, libTxt.WebsiteUrl);
    browse(commands_.support, libTxt.SupportUrl);
}

void mfrmPRGMAIN::connectToolbar() {
    const auto press = [this](std::size_t index, Command& command) {
        cbtn& button = *controls_.cbtnCONTROLS.at(index);
        command.addButton(button);
        connect(&button, &cbtn::clicked, &slides_, &SlideList::SelectChk);
    };
    press(0, commands_.add);
    press(1, commands_.addAll);
    press(2, commands_.remove);
    press(3, commands_.removeAll);
    press(4, commands_.moveBack);
    press(5, commands_.moveForward);
    press(6, commands_.start);
    press(8, commands_.settings);
}

void mfrmPRGMAIN::connectButtons() {
    commands_.newAlbum.addButton(*controls_.cbtnSLIDES[0]);
    commands_.open.addButton(*controls_.cbtnSLIDES[1]);
    commands_.save.addButton(*controls_.cbtnSLIDES[2]);
    commands_.saveAs.addButton(*controls_.cbtnSLIDES[3]);
    commands_.preview.addButton(*controls_.cbtnBROWSEBTNS[0]);
    commands_.wallpaper.addButton(*controls_.cbtnBROWSEBTNS[1]);
    commands_.createWebAlbum.addButton(*webAlbumPage_.cbtnWEBALBUM);
    commands_.viewWebAlbum.addButton(*webAlbumPage_.cbtnVIEWWEBALB);
    commands_.help.addButton(*controls_.cbtnHELP);
    commands_.updateCheck.addButton(*controls_.cbtnUPDATES);
    commands_.website.addButton(*controls_.cbtnWEBSITE);
    commands_.support.addButton(*controls_.cbtnSUPPORT);
    commands_.about.addButton(*controls_.cbtnABOUT);
}

void mfrmPRGMAIN::connectSplitter() {
    PictureBox* bar = controls_.picVBAR;
    connect(bar, &PictureBox::MouseMove, this,
            [this](int button, float x, float) { layout_.dragSplitter(button, x); });
    connect(bar, &PictureBox::MouseUp, this, [this] { layout_.VBarLayout(); });
    connect(bar, &PictureBox::KeyDown, this, [this](int code, int shift) {
        if (code == KeyLeft || code == KeyRight) {
            layout_.moveSplitter(code == KeyLeft ? -splitterKeyStep : splitterKeyStep);
        }
        slides_.ListKeysCheck(code, shift);
    });
}

// Down the page that is up, then the toolbar and the slide bar.
void mfrmPRGMAIN::setTabOrders() {
    MainControls& c = controls_;
    const QList<QWidget*> order = {
        c.tabPAGES,
        c.cbtnSLIDES[0],
        c.cbtnSLIDES[1],
        c.cbtnSLIDES[2],
        c.cbtnSLIDES[3],
        c.lvwALBUMS,
        c.btnADD,
        c.btnREMOVE,
        c.btnView,
        c.ftvFOLDER,
        c.picVBAR,
        c.lvwFOUND,
        c.cbtnBROWSEBTNS[0],
        c.cbtnBROWSEBTNS[1],
        c.music.cbtnAUDIO[0],
        c.music.cbtnAUDIO[1],
        c.music.cbtnAUDIO[5],
        c.music.Command1,
        c.music.Command2,
        c.music.lstMUSIC,
        c.music.cbtnAUDIO[2],
        c.music.cbtnAUDIO[3],
        c.music.cbtnAUDIO[4],
        c.cbtnHELP,
        c.cbtnUPDATES,
        c.cbtnWEBSITE,
        c.cbtnSUPPORT,
        c.cbtnABOUT,
        c.cbtnCONTROLS[0],
        c.cbtnCONTROLS[1],
        c.cbtnCONTROLS[2],
        c.cbtnCONTROLS[3],
        c.cbtnCONTROLS[4],
        c.cbtnCONTROLS[5],
        c.cbtnCONTROLS[8],
        c.cbtnCONTROLS[6],
        c.lvwSLIDEBAR,
    };
    for (qsizetype i = 1; i < order.size(); ++i) {
        QWidget::setTabOrder(order.at(i - 1), order.at(i));
    }
    webAlbumPage_.setTabOrders(c.music.cbtnAUDIO[4], c.cbtnHELP);
}

void mfrmPRGMAIN::popup(const PopupRequest& request, const QWidget& page) {
    const bool found = request.menu == PopupRequest::Menu::mnuFOUNDTOP;
    QMenu* menu = found ? popups_.mnuFOUNDTOP : popups_.mnuSELECTEDTOP;
    menu->setDefaultAction(request.firstIsDefault ? menu->actions().value(0) : nullptr);
    const QPoint place(toPixels(request.x), toPixels(request.y));
    menu->popup(page.mapToGlobal(place));
}

void mfrmPRGMAIN::updateFoundCount() {
    const int count = controls_.flbFOUND.ListCount();
    const QString noun = count == 1 ? QStringLiteral(" picture") : QStringLiteral(" pictures");
    controls_.lblFOUNDCOUNT->setCaption(count == 0 ? QString() : decimalText(count) + noun);
}

void mfrmPRGMAIN::tabPAGES_Click(const QString& caption) {
    struct Page {
        const char* caption;
        QWidget* frame;
        QWidget* focus;
    };
    const std::array<Page, 5> pages = {
        {{"Pictures", controls_.picframPICTURES, controls_.ftvFOLDER},
         {"Slideshows", controls_.picframSLIDEHSOW, controls_.lvwALBUMS},
         {"Music", controls_.picframMUSICLIST, controls_.music.lstMUSIC},
         {"WebAlbum", controls_.picframWEBALBM, webAlbumPage_.txtTITLE},
         {"Help", controls_.picframHELP, controls_.cbtnHELP}}};
    const auto chosen = std::find_if(pages.begin(), pages.end(), [&caption](const Page& page) {
        return caption == QLatin1String(page.caption);
    });
    if (chosen == pages.end()) {
        return;
    }
    chosen->frame->show();
    for (const Page& page : pages) {
        page.frame->setVisible(page.frame == chosen->frame);
    }
    chosen->focus->setFocus();
}

/// The strip's selected index, and what its own click then does.
void mfrmPRGMAIN::showPage(int number) {
    controls_.tabPAGES->setActiveTab(number);
    tabPAGES_Click(controls_.tabPAGES->Caption(number));
}

void mfrmPRGMAIN::Form_KeyDown(int& KeyCode, int& Shift) {
    const bool forwards = Shift == CtrlDown;
    if (KeyCode != KeyTab || (!forwards && Shift != (CtrlDown | ShiftDown))) {
        return;
    }
    tab& pages = *controls_.tabPAGES;
    const int last = pages.Tabcount();
    const int now = pages.ActiveTab();
    showPage(forwards ? (now >= last ? 1 : now + 1) : (now <= 1 ? last : now - 1));
    KeyCode = 0;
    Shift = 0;
}

void mfrmPRGMAIN::mnuFILESTART_Click() {
    slides_.SELECTIONSAVE();
    if (show_ && !show_->isUnloaded()) {
        return;
    }
    show_ = new frmSLIDESHOW(*this, services_.screenSaver);
    show_->load(screen());
}

void mfrmPRGMAIN::mnuTOOLSOPTIONS_Click() {
    // One that only a show has loaded knows nothing of what has changed since.
    if (settings_ && !settings_->isVisible()) {
        delete settings_;
    }
    settings().exec();
}

void mfrmPRGMAIN::checkForUpdates(QWidget* owner, const QString& closeCaption) {
    if (services_.netCHECKUPDATE != nullptr) {
        UpdateCheck(*services_.netCHECKUPDATE, [](QWidget* form) {
            frmRESOURCEWAIT(form).wait();
        }).run(owner, closeCaption);
    }
}

void mfrmPRGMAIN::mnuHELPUPDATECHECK_Click() {
    checkForUpdates(this, QStringLiteral("&Close"));
}

void mfrmPRGMAIN::mnuHELPABOUT_Click() {
    frmHELPABOUT about(this, popups_.Icon(), [this](QWidget* form) {
        checkForUpdates(form, QStringLiteral(" &Close "));
    });
    about.exec();
}

}  // namespace velorama

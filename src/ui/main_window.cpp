#include "ui/main_window.h"

#include "browse/screen_pointer.h"
#include "controls/keys.h"
#include "controls/twips.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "platform/events.h"
#include "platform/numbers.h"
#include "platform/shell.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QPainter>

#include <cmath>

namespace velorama {
namespace {

// The window's inner surface at design, and the smallest window, in twips.
constexpr float designWidth = 11040;
constexpr float designHeight = 7200;
constexpr int smallestWidth = 500;
constexpr int smallestHeight = 400;

constexpr float splitterKeyStep = 150;
constexpr int pollInterval = 1000;
const QString musicListName = QStringLiteral("mfrmPRGMAINAUD");

const QString pictureMask = QStringLiteral("*.bmp;*.jpg;*.gif");
const QString toolSettings = QStringLiteral("\\frmTOOLSSETTINGS\\Items");

}  // namespace

/// The window's client area: all controls stand on it.
class mfrmPRGMAIN::Surface : public QWidget {
public:
    explicit Surface(mfrmPRGMAIN& form) : QWidget(&form), form_(form) {}

protected:
    void resizeEvent(QResizeEvent*) override {
        if (form_.loaded_) {
            form_.Form_Resize();
        }
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        // Nearly all of it lies behind controls; the rest is no more than a shade.
        painter.setPen(palette().color(QPalette::Midlight));
        painter.drawLine(form_.layout_.separator());
    }

private:
    mfrmPRGMAIN& form_;
};

mfrmPRGMAIN::mfrmPRGMAIN(ScreenSaver& screenSaver, MediaCommands& device)
    : screenSaver_(screenSaver),
      surface_(new Surface(*this)),
      controls_(*surface_),
      menus_(*menuBar()),
      layout_(controls_),
      thumbnails_(controls_.imlFOUNDICONS, controls_.imlTHUMBNAILS, pictures_, devicePixelRatioF()),
      slides_(slideListControls(), thumbnails_,
              [this](const PopupRequest& r) { popup(r, *surface_); }),
      found_({controls_.ftvFOLDER, &controls_.flbFOUND, controls_.lvwFOUND,
              &controls_.imlFOUNDICONS, controls_.prgBARSLIDES},
             thumbnails_, foundListCalls()),
      cdlDIALOG_(this),
      audio_(musicControls(), device,
             [this](const MusicFileRequest& request) { return chooseMusic(request); }) {
    setObjectName(QStringLiteral("mfrmPRGMAIN"));
    setWindowTitle(libTxt.ProductName);
    setCentralWidget(surface_);
    setContextMenuPolicy(Qt::NoContextMenu);
    setMinimumSize(smallestWidth, smallestHeight);
    resize(toPixels(designWidth), toPixels(designHeight) + menuBar()->sizeHint().height());
    setLeft(*this, std::round((screenWidth(*this) - Width(*this)) / 2));
    setTop(*this, std::round((screenHeight(*this) - Height(*this)) / 2));
    connectCommands();
    connectSplitter();
    setTabOrders();
    qApp->installEventFilter(this);
}

mfrmPRGMAIN::~mfrmPRGMAIN() {
    delete show_;
}

SlideListControls mfrmPRGMAIN::slideListControls() {
    SlideListControls given;
    given.form = surface_;
    given.lvwSLIDEBAR = controls_.lvwSLIDEBAR;
    given.lvwFOUND = controls_.lvwFOUND;
    given.flbFOUND = &controls_.flbFOUND;
    given.imlTHUMBNAILS = &controls_.imlTHUMBNAILS;
    given.prgBARSLIDES = controls_.prgBARSLIDES;
    std::copy(controls_.cbtnCONTROLS.begin(), controls_.cbtnCONTROLS.end(),
              given.cbtnCONTROLS.begin());
    given.mnuEDITADD = menus_.mnuEDITADD;
    given.mnuEDITADDALL = menus_.mnuEDITADDALL;
    given.mnuEDITCLEAR = menus_.mnuEDITCLEAR;
    given.mnuEDITCLEARALL = menus_.mnuEDITCLEARALL;
    given.mnuFILESTART = menus_.mnuFILESTART;
    return given;
}

MusicControls mfrmPRGMAIN::musicControls() {
    tmrMUSIC_.setObjectName(QStringLiteral("tmrMUSIC"));
    tmrMUSIC_.setInterval(pollInterval);
    MusicControls given;
    given.lstMUSIC = controls_.lstMUSIC;
    given.tmrMUSIC = &tmrMUSIC_;
    given.prgPLAY = controls_.prgPLAY;
    given.lblM1 = controls_.lblM1;
    given.lblM2 = controls_.lblM2;
    given.lblFile = controls_.lblFile;
    std::copy(controls_.cbtnAUDIO.begin(), controls_.cbtnAUDIO.end(), given.cbtnAUDIO.begin());
    given.Command1 = controls_.Command1;
    given.Command2 = controls_.Command2;
    return given;
}

QStringList mfrmPRGMAIN::chooseMusic(const MusicFileRequest& request) {
    cdlDIALOG_.InitDir = request.InitDir;
    cdlDIALOG_.Filter = request.Filter;
    cdlDIALOG_.FilterIndex = request.FilterIndex;
    cdlDIALOG_.DialogTitle = request.DialogTitle;
    cdlDIALOG_.Flags = request.Flags;
    cdlDIALOG_.FileName = request.FileName;
    gDlgHook->subCMNDLGHOOKOPEN();
    cdlDIALOG_.ShowOpen();
    gDlgHook->subCMNDLGHOOKCLOSE();
    return cdlDIALOG_.FileNames();
}

FoundListCalls mfrmPRGMAIN::foundListCalls() {
    FoundListCalls calls;
    calls.FoundButtonsCheck = [this] {
        slides_.FoundButtonsCheck();
        updateFoundCount();
    };
    calls.SelectChk = [this] { slides_.SelectChk(); };
    calls.selectFirstSlide = [this] { slides_.selectFirstSlide(); };
    calls.Add = [this] { slides_.Add(); };
    calls.ListKeysCheck = [this](int code, int shift) { slides_.ListKeysCheck(code, shift); };
    calls.popup = [this](const PopupRequest& request) {
        popup(request, *controls_.picframPICTURES);
    };
    return calls;
}

void mfrmPRGMAIN::connectCommands() {
    const auto on = [this](QAction* entry, auto handler) {
        connect(entry, &QAction::triggered, this, handler);
    };
    on(menus_.mnuFILESTART, [this] { mnuFILESTART_Click(); });
    on(menus_.mnuFILEEXIT, [this] { close(); });
    on(menus_.mnuEDITADD, [this] { slides_.Add(); });
    on(menus_.mnuEDITADDALL, [this] { slides_.AddAll(); });
    on(menus_.mnuEDITCLEAR, [this] {
        slides_.Clear();
        slides_.SelectChk();
    });
    on(menus_.mnuEDITCLEARALL, [this] { slides_.ClearAll(); });
    on(menus_.mnuFOUNDADD, [this] { slides_.Add(); });
    on(menus_.mnuFOUNDADDALL, [this] { slides_.AddAll(); });
    on(menus_.mnuSELECTEDCLEAR, [this] { slides_.Clear(); });
    on(menus_.mnuSELECTEDCLEARALL, [this] { slides_.ClearAll(); });

    const auto press = [this](std::size_t index, auto action) {
        connect(controls_.cbtnCONTROLS.at(index), &cbtn::Click, this, [this, action] {
            action();
            slides_.SelectChk();
        });
    };
    press(0, [this] { menus_.mnuEDITADD->trigger(); });
    press(1, [this] { menus_.mnuEDITADDALL->trigger(); });
    press(2, [this] { menus_.mnuEDITCLEAR->trigger(); });
    press(3, [this] { menus_.mnuEDITCLEARALL->trigger(); });
    press(4, [this] { slides_.MoveBack(); });
    press(5, [this] { slides_.MoveForward(); });
    press(6, [this] { menus_.mnuFILESTART->trigger(); });

    // The listing begins with an empty image list: the new folder's names are there by then.
    connect(&controls_.imlFOUNDICONS, &ImageList::changed, this, &mfrmPRGMAIN::updateFoundCount);
    connect(controls_.tabPAGES, &tab::Click, this, &mfrmPRGMAIN::tabPAGES_Click);
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

void mfrmPRGMAIN::setTabOrders() {
    QWidget* before = controls_.tabPAGES;
    const auto then = [&before](QWidget* next) {
        QWidget::setTabOrder(before, next);
        before = next;
    };
    then(controls_.ftvFOLDER);
    then(controls_.picVBAR);
    then(controls_.lvwFOUND);
    for (cbtn* button : controls_.cbtnCONTROLS) {
        then(button);
    }
    then(controls_.lvwSLIDEBAR);
    then(controls_.lstMUSIC);
    for (const std::size_t index : {0, 1, 5}) {
        then(controls_.cbtnAUDIO.at(index));
    }
    then(controls_.Command1);
    then(controls_.Command2);
    for (const std::size_t index : {2, 3, 4}) {
        then(controls_.cbtnAUDIO.at(index));
    }
}

void mfrmPRGMAIN::popup(const PopupRequest& request, const QWidget& page) {
    const bool found = request.menu == PopupRequest::Menu::mnuFOUNDTOP;
    QMenu* menu = found ? menus_.mnuFOUNDTOP : menus_.mnuSELECTEDTOP;
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
    const std::array<Page, 2> pages = {
        {{"Pictures", controls_.picframPICTURES, controls_.ftvFOLDER},
         {"Music", controls_.picframMUSICLIST, controls_.lstMUSIC}}};
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

void mfrmPRGMAIN::Form_KeyDown(int& KeyCode, int& Shift) {
    const bool forwards = Shift == CtrlDown;
    if (KeyCode != KeyTab || (!forwards && Shift != (CtrlDown | ShiftDown))) {
        return;
    }
    tab& pages = *controls_.tabPAGES;
    const int last = pages.Tabcount();
    const int now = pages.ActiveTab();
    const int next = forwards ? (now >= last ? 1 : now + 1) : (now <= 1 ? last : now - 1);
    pages.setActiveTab(next);
    tabPAGES_Click(pages.StringPiece(pages.ActiveTabs(), QStringLiteral(","), next));
    KeyCode = 0;
    Shift = 0;
}

void mfrmPRGMAIN::setVisible(bool visible) {
    const bool movable = !isMaximized() && !isFullScreen();
    if (!visible && isVisible()) {
        place_ = pos();
    } else if (visible && isHidden() && loaded_ && !place_.isNull() && movable) {
        // Moved by the user's hand, it would come back where the program last put it.
        move(place_);
    }
    QMainWindow::setVisible(visible && !unloaded_);
}

void mfrmPRGMAIN::mnuFILESTART_Click() {
    slides_.StartSave();
    if (show_ && !show_->isUnloaded()) {
        return;
    }
    show_ = new frmSLIDESHOW(*this, screenSaver_);
    show_->load(screen());
}

void mfrmPRGMAIN::Form_Load() {
    FormLoading = true;
    controls_.lvwSLIDEBAR->setFont(QFont(QStringLiteral("Arial"), 7));
    ActiveList = QStringLiteral("SELECTED");
    controls_.lvwSLIDEBAR->hide();
    layout_.applyPageColour();
    menus_.setKeyHints();
    gRegistry->FormDimensionsSetup(*this, true);
    // A window that has not been shown has not laid itself out; what follows needs its inner size.
    layout()->setGeometry(rect());
    const QString splitter =
        loadSetting(toolSettings, QStringLiteral("Splitter Bar Left"), QStringLiteral("3585"));
    if (const auto left = decimalNumber(splitter)) {
        setLeft(*controls_.picVBAR, static_cast<float>(*left));
    }
    tabPAGES_Click(QStringLiteral("Pictures"));
    disableCommands();
    VBarLayout();
    DoEvents();
    loaded_ = true;
    Form_Resize();
    QMainWindow::show();
    VBarLayout();
    DoEvents();
    controls_.flbFOUND.setPattern(pictureMask);
    DoEvents();
    DoEvents();
    audio_.list.ListboxLoad(*controls_.lstMUSIC, musicListName);
    showFirst();
    setScreenPointer(ScreenPointer::Default);
    controls_.lvwSLIDEBAR->show();
    VBarLayout();
    DoEvents();
    Form_Resize();
    FormLoading = false;
    controls_.ftvFOLDER->setPath(
        loadSetting(toolSettings, QStringLiteral("Files Location"), applicationFolder()));
}

void mfrmPRGMAIN::disableCommands() {
    for (const std::size_t index : {3, 6, 2, 4, 5, 0, 1}) {
        controls_.cbtnCONTROLS.at(index)->setEnabled(false);
    }
    for (QAction* entry :
         {menus_.mnuEDITCLEAR, menus_.mnuEDITCLEARALL, menus_.mnuEDITADD, menus_.mnuEDITADDALL}) {
        entry->setEnabled(false);
    }
}

void mfrmPRGMAIN::showFirst() {
    ActiveList = QStringLiteral("SELECTED");
    slides_.selectFirstSlide();
    ActiveList = QStringLiteral("SELECTED");
}

void mfrmPRGMAIN::Form_QueryUnload(bool& Cancel) {
    Cancel = false;
    audio_.list.ListboxSave(*controls_.lstMUSIC, musicListName);
}

void mfrmPRGMAIN::Form_Unload() {
    unloaded_ = true;
    audio_.closeDevice();
    tmrMUSIC_.stop();
    found_.stop();
    slides_.stop();
    slides_.SELECTIONSAVE();
    gRegistry->FormDimensionsSave(*this, true);
    saveSetting(toolSettings, QStringLiteral("Splitter Bar Left"),
                singleText(Left(*controls_.picVBAR)));
    if (show_) {
        show_->Unload();
    }
    hide();
    QCoreApplication::quit();
}

void mfrmPRGMAIN::closeEvent(QCloseEvent* event) {
    if (unloaded_) {
        return;
    }
    bool Cancel = false;
    Form_QueryUnload(Cancel);
    event->setAccepted(!Cancel);
    if (!Cancel) {
        Form_Unload();
    }
}

// The form sees the page keys before the control that has the focus.
bool mfrmPRGMAIN::eventFilter(QObject* watched, QEvent* event) {
    const auto* control = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::KeyPress && control != nullptr && control->window() == this) {
        const auto* key = static_cast<QKeyEvent*>(event);
        int code = keyCode(*key);
        int shift = shiftMask(key->modifiers());
        const bool handled = code != 0;
        Form_KeyDown(code, shift);
        if (handled && code == 0) {
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void mfrmPRGMAIN::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (!loaded_ || unloaded_) {
        return;
    }
    if (event->type() == QEvent::PaletteChange) {
        layout_.applyPageColour();
    }
    if (event->type() == QEvent::ActivationChange ? isActiveWindow()
                                                  : event->type() == QEvent::PaletteChange) {
        Form_Resize();
    }
}

}  // namespace velorama

#include "ui/main_window.h"

#include "browse/screen_pointer.h"
#include "controls/geometry/twips.h"
#include "controls/geometry/window_place.h"
#include "controls/input/keys.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "ui/main_menus.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPainter>

namespace velorama {
namespace {

// The window's inner surface at design, in twips, and the smallest window, in logical pixels.
constexpr float designWidth = 11040;
constexpr float designHeight = 7200;
constexpr int smallestWidth = 500;
constexpr int smallestHeight = 400;

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

mfrmPRGMAIN::mfrmPRGMAIN(MainServices services)
    : services_(std::move(services)),
      surface_(new Surface(*this)),
      controls_(*surface_),
      cdlDIALOG_(this),
      webAlbumPage_(*controls_.picframWEBALBM, cdlDIALOG_),
      popups_(this, commands_),
      layout_(controls_, webAlbumPage_),
      thumbnails_(controls_.imlFOUNDICONS, controls_.imlTHUMBNAILS, pictures_, devicePixelRatioF()),
      slides_(slideListControls(), commands_, thumbnails_,
              [this](const PopupRequest& r) { popup(r, *surface_); }),
      found_({controls_.ftvFOLDER, &controls_.flbFOUND, controls_.lvwFOUND,
              &controls_.imlFOUNDICONS, controls_.prgBARSLIDES},
             thumbnails_, foundListCalls()),
      albums_(albumListControls(), albumListCalls()),
      album_(albumControls(), commands_, slides_, thumbnails_, albums_),
      audio_(controls_.music, services_.device, cdlDIALOG_),
      webAlbum_(webAlbumControls(), commands_, webAlbumPage_.values(), webAlbumScreen()),
      preview_({controls_.lvwSLIDEBAR, controls_.lvwFOUND, controls_.ftvFOLDER},
               [this] { return previewWindow(); }),
      wallpaper_(
          {controls_.lvwSLIDEBAR, controls_.lvwFOUND, controls_.ftvFOLDER, controls_.picWALLPAPER,
           controls_.picPREVIEW},
          [this] { return preview_.position(); },
          services_.desktop != nullptr ? *services_.desktop : noDesktop_) {
    setObjectName(QStringLiteral("mfrmPRGMAIN"));
    setWindowTitle(libTxt.ProductName);
    fillMenuBar(*menuBar(), commands_);
    setCentralWidget(surface_);
    setContextMenuPolicy(Qt::NoContextMenu);
    setMinimumSize(smallestWidth, smallestHeight);
    resize(toPixels(designWidth), toPixels(designHeight) + menuBar()->sizeHint().height());
    centreOnScreen(*this);
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
    return given;
}

AlbumFile::Controls mfrmPRGMAIN::albumControls() {
    AlbumFile::Controls given;
    given.form = this;
    given.lvwSLIDEBAR = controls_.lvwSLIDEBAR;
    given.lvwALBUMS = controls_.lvwALBUMS;
    given.imlTHUMBNAILS = &controls_.imlTHUMBNAILS;
    given.prgBARSLIDES = controls_.prgBARSLIDES;
    given.cdlDIALOG = &cdlDIALOG_;
    return given;
}

AlbumList::Controls mfrmPRGMAIN::albumListControls() {
    return {controls_.lvwALBUMS, controls_.btnADD, controls_.btnREMOVE, controls_.btnView,
            &cdlDIALOG_};
}

AlbumListCalls mfrmPRGMAIN::albumListCalls() {
    AlbumListCalls calls;
    calls.AlbumPath = [this] { return album_.Tag(); };
    calls.isModified = [this] { return album_.isModified(); };
    calls.mnuFILESAVE_Click = [this] { album_.mnuFILESAVE_Click(); };
    calls.openAlbum = [this](const QString& path) { album_.openFromList(path); };
    return calls;
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

WebAlbumControls mfrmPRGMAIN::webAlbumControls() {
    return {controls_.lvwSLIDEBAR, controls_.prgBARSLIDES};
}

WebAlbumScreen mfrmPRGMAIN::webAlbumScreen() {
    WebAlbumScreen screen;
    screen.critical = [this](const QString& text, const QString& caption) {
        QMessageBox::critical(this, caption, text);
    };
    screen.information = [this](const QString& text, const QString& caption) {
        QMessageBox::information(this, caption, text);
    };
    screen.hourglass = [](bool on) {
        setScreenPointer(on ? ScreenPointer::Hourglass : ScreenPointer::Default);
    };
    return screen;
}

PreviewWindow mfrmPRGMAIN::previewWindow() {
    if (!previewForm_) {
        previewForm_ =
            new frmPICTUREPREVIEW(this, {[this](bool forward) { PicturePreviewCertain(forward); },
                                         [this] { DESKTOPWALLPAPERPREVIEW(); }});
    }
    PreviewWindow window = previewForm_->parts();
    window.show = [form = previewForm_] {
        form->exec();
        delete form;
    };
    return window;
}

frmTOOLSSETTINGS& mfrmPRGMAIN::settings() {
    if (!settings_ || settings_->isUnloaded()) {
        delete settings_;
        settings_ = new frmTOOLSSETTINGS(this, album_.Tag(), *controls_.lvwALBUMS);
    }
    return *settings_;
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

void mfrmPRGMAIN::closeEvent(QCloseEvent* event) {
    if (unloaded_) {
        return;
    }
    if (closing_) {
        event->ignore();
        return;
    }
    closing_ = true;
    bool Cancel = false;
    Form_QueryUnload(Cancel);
    closing_ = false;
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

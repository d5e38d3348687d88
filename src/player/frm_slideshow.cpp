#include "player/frm_slideshow.h"

#include "controls/geometry/twips.h"
#include "controls/input/keys.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "core/show_colours.h"
#include "platform/numbers.h"
#include "player/running.h"
#include "player/show_timing.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>

namespace velorama {
namespace {

constexpr int musicInterval = 100;
// A step that no fade reaches: the show has been left by its button.
constexpr qint32 leftByButton = 242;

}  // namespace

frmSLIDESHOW::frmSLIDESHOW(ShowHost& host, ScreenSaver& screenSaver)
    : picBORDERFRAME(this),
      picPREVIEW(this),
      imgPREVIEW98(this),
      picSLIDERESIZE(this),
      picCONTROLBAR(this),
      host_(host),
      screenSaver_(screenSaver),
      fitting_(*this, picPREVIEW, picBORDERFRAME, imgPREVIEW98),
      fade_(picPREVIEW, picSLIDERESIZE, tmrFADETRANS, pictures_),
      pauseMark_(this),
      startHint_(this) {
    setObjectName(QStringLiteral("frmSLIDESHOW"));
    setWindowTitle(libTxt.ProductName);
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setCursor(Qt::BlankCursor);
    designControls();
}

void frmSLIDESHOW::designControls() {
    picBORDERFRAME.setObjectName(QStringLiteral("picBORDERFRAME"));
    picPREVIEW.setObjectName(QStringLiteral("picPREVIEW"));
    imgPREVIEW98.setObjectName(QStringLiteral("imgPREVIEW98"));
    picSLIDERESIZE.setObjectName(QStringLiteral("picSLIDERESIZE"));
    picPREVIEW.setAutoSize(true);
    picSLIDERESIZE.setAutoSize(true);
    imgPREVIEW98.setStretch(true);
    for (QWidget* hidden : std::initializer_list<QWidget*>{&picBORDERFRAME, &picPREVIEW,
                                                           &imgPREVIEW98, &picSLIDERESIZE}) {
        hidden->hide();
    }
    setLeft(picSLIDERESIZE, -2610);
    for (PictureBox* box : {&picPREVIEW, &picBORDERFRAME, &picSLIDERESIZE, &imgPREVIEW98}) {
        connect(box, &PictureBox::MouseUp, this, &frmSLIDESHOW::Form_MouseUp);
        box->setMouseTracking(true);
        connect(box, &PictureBox::MouseMove, this, [this, box](int, float, float y) {
            // Over a picture no bar comes up; one that is there goes, also where the pointer has
            // passed no bare ground on its way from it.
            if (!picCONTROLBAR.isHidden()) {
                Form_MouseMove(Top(*box) + y);
            }
        });
    }
    connect(&picCONTROLBAR.lblDESC, &Label::MouseUp, this, &frmSLIDESHOW::Form_MouseUp);

    tmrSLIDESHOW.setTimerType(Qt::PreciseTimer);
    tmrFADETRANS.setTimerType(Qt::PreciseTimer);
    tmrSLIDESHOW.setInterval(designInterval);
    tmrFADETRANS.setInterval(designTransition);
    connect(&tmrSLIDESHOW, &QTimer::timeout, this, &frmSLIDESHOW::tmrSLIDESHOW_Timer);
    connect(&tmrFADETRANS, &QTimer::timeout, this, &frmSLIDESHOW::tmrFADETRANS_Timer);
    tmrMUSIC.setInterval(musicInterval);
    connect(&tmrMUSIC, &QTimer::timeout, this, &frmSLIDESHOW::tmrMUSIC_Timer);
    connectBar();
}

void frmSLIDESHOW::connectBar() {
    connect(&picCONTROLBAR.btnNEXT, &picbtn::Click, this, [this] { Form_KeyDown(KeyRight, 0); });
    connect(&picCONTROLBAR.btnPREV, &picbtn::Click, this, [this] { Form_KeyDown(KeyLeft, 0); });
    connect(&picCONTROLBAR.btnPAUSE, &picbtn::Click, this, &frmSLIDESHOW::Form_MouseUp);
    connect(&picCONTROLBAR.btnPLAY, &picbtn::Click, this, &frmSLIDESHOW::Form_MouseUp);
    connect(&picCONTROLBAR.btnEXIT, &picbtn::Click, this, &frmSLIDESHOW::btnEXIT_Click);
    connect(&picCONTROLBAR, &ControlBar::Wheel, this, &frmSLIDESHOW::askByWheel);
}

void frmSLIDESHOW::load(QScreen* screen) {
    const Running running(*this);
    if (screen) {
        setScreen(screen);
        setGeometry(screen->geometry());
    }
    showFullScreen();
    Form_Resize();
    if (unloaded_) {
        return;  // Left by a key while the form was still coming up.
    }
    paintBackground();
    host_.AudioPlay();
    tmrMUSIC.start();
    tmrSLIDESHOW.setInterval(slideInterval());
    tmrFADETRANS.setInterval(transitionInterval());
    picPREVIEW.hide();
    slides.begin();
    tmrSLIDESHOW.start();
    Paused = false;
    slides.wrapAfterTick();
    host_.setVisible(false);
    QToolTip::hideText();  // that of the button which has started the show
    activateWindow();
    takeArrows({ShowStep::Right});
    if (unloaded_) {
        return;
    }
    Paused = false;
    keepAwake(true);
    copyMusic();
    picCONTROLBAR.prgPLAY.setVisible(!picCONTROLBAR.lblPLAYING.Caption().isEmpty());
    picCONTROLBAR.applyAutoHide();
    // The bar has texts of its own at both sides.
    startHint_.showBriefly(picCONTROLBAR.isHidden() ? width() : picCONTROLBAR.lblSTATUS.width());
    loaded_ = true;
    takeSteps();
}

void frmSLIDESHOW::Unload() {
    if (unloaded_) {
        return;
    }
    const Running running(*this);
    unloaded_ = true;
    tmrSLIDESHOW.stop();
    tmrFADETRANS.stop();
    tmrMUSIC.stop();
    keepAwake(false);
    host_.setVisible(true);
    hide();
}

void frmSLIDESHOW::paintBackground() {
    const QSize pixels = size() * devicePixelRatioF();
    if (background_.size() == pixels) {
        return;
    }
    background_ = QImage(pixels, QImage::Format_RGB32);
    if (!background_.isNull()) {
        background_.fill(Qt::black);
        GradientPaint(background_, 45, host_.background(), host_.gradient());
        background_.setDevicePixelRatio(devicePixelRatioF());
    }
    update();
}

void frmSLIDESHOW::tmrSLIDESHOW_Timer() {
    if (!Paused && !unloaded_) {
        ask(ShowStep::Tick);
    }
}

void frmSLIDESHOW::tmrFADETRANS_Timer() {
    if (unloaded_) {
        return;
    }
    const Running running(*this);
    picBORDERFRAME.show();
    imgPREVIEW98.setVisible(!isModernSystem());
    picPREVIEW.setVisible(isModernSystem());
    fade_.step();
}

void frmSLIDESHOW::Form_KeyDown(int KeyCode, int) {
    if (unloaded_) {
        return;
    }
    if (KeyCode == KeyRight || KeyCode == KeyLeft) {
        ask(KeyCode == KeyRight ? ShowStep::Right : ShowStep::Left);
    } else {
        Unload();
    }
}

void frmSLIDESHOW::ShowStatusLabels() {
    picCONTROLBAR.lblDESC.setCaption(SlideCaption);
    picCONTROLBAR.lblNOCOUNT.setCaption(decimalText(shownNumber_) + QStringLiteral(" of ") +
                                        decimalText(slides.SlideCount));
    picCONTROLBAR.lblSTATUS.setCaption(Paused ? QStringLiteral("Slideshow Now Paused") : QString());
    picCONTROLBAR.lblPLAYING.setCaption(gFileFoldr->FileNameFromPath(host_.track(), true));
}

void frmSLIDESHOW::ResizePic() {
    copyMusic();
    fitting_.ResizePic();
}

void frmSLIDESHOW::copyMusic() {
    picCONTROLBAR.showMusic(host_.track(), host_.trackLength(), host_.trackPosition());
}

void frmSLIDESHOW::tmrMUSIC_Timer() {
    if (!unloaded_) {
        picCONTROLBAR.followMusic(host_.track(), host_.trackLength(), host_.trackPosition());
    }
}

void frmSLIDESHOW::btnEXIT_Click() {
    if (unloaded_) {
        return;
    }
    fade_.FadeAlpha = leftByButton;
    Unload();
}

void frmSLIDESHOW::Form_Resize() {
    const Running running(*this);
    if (!picPREVIEW.Picture().isNull()) {
        // That is what the fade began with; the slide is only drawn over it.
        picPREVIEW.keepImage();
    }
    fitting_.setArea();
    fitting_.CenterPreview();
    ResizePic();
    picCONTROLBAR.layOut(Width(*this), Height(*this));
}

void frmSLIDESHOW::Form_MouseUp() {
    if (unloaded_) {
        return;
    }
    if (loaded_) {
        togglePause();
    } else {
        // The load ends with a show that runs: only then is there something to pause.
        steps_.add(ShowStep::Pause);
    }
}

void frmSLIDESHOW::togglePause() {
    if (Paused) {
        host_.AudioPlay();
        tmrSLIDESHOW.start();
        steps_.dropTicks();
    } else {
        host_.AudioPause();
    }
    Paused = !Paused;
    startHint_.hide();
    keepAwake(!Paused);
    copyMusic();
    ShowStatusLabels();
    picCONTROLBAR.showPaused(Paused);
    if (Paused && picCONTROLBAR.isHidden()) {
        pauseMark_.showBriefly();
    } else {
        pauseMark_.hide();
    }
}

void frmSLIDESHOW::keepAwake(bool awake) {
    if (awake_ == awake) {
        return;
    }
    awake_ = awake;
    if (awake) {
        screenSaver_.inhibit();
    } else {
        screenSaver_.release();
    }
}

void frmSLIDESHOW::Form_MouseMove(float y) {
    const bool wasHidden = picCONTROLBAR.isHidden();
    picCONTROLBAR.pointerMoved(Height(*this), y);
    if (wasHidden && !picCONTROLBAR.isHidden()) {
        startHint_.hide();  // The bar's buttons tell the same.
    }
}

void frmSLIDESHOW::keyPressEvent(QKeyEvent* event) {
    const bool arrow = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right;
    if (event->isAutoRepeat() && !arrow) {
        return;  // The key that started the show, still held down, must not end it.
    }
    startHint_.keyUsed();
    Form_KeyDown(keyCode(*event), shiftMask(event->modifiers()));
}

void frmSLIDESHOW::mouseMoveEvent(QMouseEvent* event) {
    Form_MouseMove(toTwips(event->position().y()));
}

void frmSLIDESHOW::wheelEvent(QWheelEvent* event) {
    askByWheel(*event);
}

void frmSLIDESHOW::resizeEvent(QResizeEvent*) {
    if (unloaded_) {
        return;
    }
    Form_Resize();
    paintBackground();
}

void frmSLIDESHOW::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (background_.isNull()) {
        painter.fillRect(event->rect(), Qt::black);
        return;
    }
    painter.drawImage(QPoint(), background_);
}

void frmSLIDESHOW::closeEvent(QCloseEvent* event) {
    event->accept();
    Unload();
}

// Tab is a key like any other here: it leaves the show.
bool frmSLIDESHOW::focusNextPrevChild(bool) {
    return false;
}

}  // namespace velorama

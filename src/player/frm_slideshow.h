#pragma once

#include "controls/boxes/picture_box.h"
#include "imaging/ahead/look_ahead.h"
#include "platform/session/screen_saver.h"
#include "platform/session/system_colours.h"
#include "player/control_bar.h"
#include "player/fade_transition.h"
#include "player/pause_mark.h"
#include "player/slide_fitting.h"
#include "player/slide_sequence.h"
#include "player/start_hint.h"
#include "player/step_queue.h"
#include "player/wheel_steps.h"

#include <QTimer>

#include <memory>

namespace velorama {

/// What the player needs of the main window.
class ShowHost {
public:
    ShowHost() = default;
    ShowHost(const ShowHost&) = delete;
    ShowHost& operator=(const ShowHost&) = delete;
    virtual ~ShowHost() = default;
    virtual void setVisible(bool visible) = 0;

    virtual void AudioPlay() = 0;
    virtual void AudioPause() = 0;
    /// Path of the selected row of the music list, empty for none.
    virtual QString track() const = 0;
    /// Texts of the track's length and position in whole seconds.
    virtual QString trackLength() const = 0;
    virtual QString trackPosition() const = 0;

    /// The two colours behind the slides, as the settings dialog has them.
    virtual Colour background() = 0;
    virtual Colour gradient() = 0;
};

/// The full-screen show. It is made on the heap, opened with `load`, and deletes itself once it has
/// been unloaded and none of its procedures is running.
///
/// A step to another slide yields while it loads. Ticks, arrows and the load go through one queue
/// and are taken one at a time, so that picture, caption and counter are of one slide when the
/// queue is empty. Leaving the show and, once it is loaded, the pause act at once.
class frmSLIDESHOW : public QWidget {
    Q_OBJECT
public:
    frmSLIDESHOW(ShowHost& host, ScreenSaver& screenSaver);

    /// Opens the show over the whole of `screen` and shows the first slide. The main window is
    /// hidden on the way.
    void load(QScreen* screen);
    /// Ends the show: the main window is visible again.
    void Unload();
    bool isUnloaded() const { return unloaded_; }
    /// Whether it is paused once what waits for the end of the load has been done.
    bool isToBePaused() const { return Paused != steps_.turnsPause(); }

    void ResizePic();

    // The handlers, public for those who drive them without a clock.
    void tmrSLIDESHOW_Timer();
    void tmrFADETRANS_Timer();
    void tmrMUSIC_Timer();
    void btnEXIT_Click();
    void Form_KeyDown(int KeyCode, int Shift);
    void Form_MouseUp();
    void Form_MouseMove(float y);
    void Form_Resize();

    bool Paused = false;
    QString SlideCaption;

    PictureBox picBORDERFRAME;
    PictureBox picPREVIEW;
    PictureBox imgPREVIEW98;
    PictureBox picSLIDERESIZE;
    ControlBar picCONTROLBAR;
    QTimer tmrSLIDESHOW;
    QTimer tmrFADETRANS;
    QTimer tmrMUSIC;
    SlideSequence slides;

    const FadeTransition& fade() const { return fade_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    class Running;
    void designControls();
    void paintBackground();
    void ShowStatusLabels();
    void togglePause();
    void keepAwake(bool awake);

    // frm_slideshow_steps.cpp
    void ask(ShowStep step);
    void askByWheel(const QWheelEvent& event);
    void takeSteps();
    void takeWaitingTick();
    void take(const QList<ShowStep>& steps);
    void takeTick();
    void takeArrows(const QList<ShowStep>& arrows);
    void showSlide(ShowStep way, const Slide& slide);
    void showOnOldSystem(ShowStep way, const QString& path);
    void lookAhead();

    void copyMusic();
    void connectBar();

    ShowHost& host_;
    ScreenSaver& screenSaver_;
    LookAhead pictures_;
    SlideFitting fitting_;
    FadeTransition fade_;
    PauseMark pauseMark_;
    StartHint startHint_;
    QImage background_;
    int running_ = 0;
    StepQueue steps_;
    WheelSteps wheel_;
    /// A step is being taken, or the load has not come to the first one.
    bool stepping_ = true;
    bool loaded_ = false;
    bool awake_ = false;
    /// Number of the slide whose caption is shown.
    qint32 shownNumber_ = 0;
    bool unloaded_ = false;
};

}  // namespace velorama

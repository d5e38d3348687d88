#pragma once

#include "controls/boxes/label.h"
#include "controls/boxes/picture_box.h"
#include "controls/boxes/progress_bar.h"
#include "controls/buttons/picbtn.h"

namespace velorama {

/// The show's control bar `picCONTROLBAR`: buttons, track, caption, status and counter, hidden and
/// shown by the pointer's place.
class ControlBar : public QWidget {
    Q_OBJECT
public:
    explicit ControlBar(QWidget* form);

    static constexpr float barHeight = 735;

    Label lblDESC;
    Label lblSTATUS;
    Label lblNOCOUNT;
    Label lblPLAYING;
    ProgressBar prgPLAY;
    picbtn btnPREV;
    picbtn btnNEXT;
    picbtn btnPAUSE;
    picbtn btnPLAY;
    picbtn btnEXIT;
    QWidget imgLEFTCONTROLS;
    QWidget imgRIGHTCONTROLS;

    /// Lays the bar along the form's bottom edge and its parts along the bar.
    void layOut(float formWidth, float formHeight);

    /// What the main window's music is doing: the track's name, and length and position in seconds
    /// as text. A length of 0 sets no maximum; `always` sets the value all the same.
    void showMusic(const QString& track, const QString& length, const QString& position);
    /// The same, but for the position of a track whose length is not known: the bar keeps its own.
    void followMusic(const QString& track, const QString& length, const QString& position);
    void showPaused(bool paused);

    /// Hides the bar where auto-hide is on, shows it where it is off.
    void applyAutoHide();
    /// A move of the pointer at height `y` (twips) of the form.
    void pointerMoved(float formHeight, float y);

signals:
    /// The wheel was turned over the bar or one of its parts.
    void Wheel(const QWheelEvent& event);

protected:
    void paintEvent(QPaintEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void designLabels();
    void designButtons();
    static bool autoHide();
};

}  // namespace velorama

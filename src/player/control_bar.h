#pragma once

#include "controls/label.h"
#include "controls/picture_box.h"

namespace velorama {

/// The show's control bar `picCONTROLBAR`: caption, status and counter, hidden and shown by the
/// pointer's place.
class ControlBar : public QWidget {
    Q_OBJECT
public:
    explicit ControlBar(QWidget* form);

    static constexpr float barHeight = 735;

    Label lblDESC;
    Label lblSTATUS;
    Label lblNOCOUNT;
    QWidget imgLEFTCONTROLS;
    QWidget imgRIGHTCONTROLS;

    /// Lays the bar along the form's bottom edge and its parts along the bar.
    void layOut(float formWidth, float formHeight);

    /// Hides the bar where auto-hide is on, shows it where it is off.
    void applyAutoHide();
    /// A move of the pointer at height `y` (twips) of the form.
    void pointerMoved(float formHeight, float y);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    static bool autoHide();
};

}  // namespace velorama

#pragma once

#include "controls/boxes/picture_box.h"
#include "imaging/ahead/look_ahead.h"
#include "imaging/paint/blend.h"

#include <QTimer>

namespace velorama {

/// Fades each new slide in over what is on the screen: 240 blends of growing alpha, each onto the
/// result of the one before.
class FadeTransition {
public:
    FadeTransition(PictureBox& picPREVIEW, PictureBox& picSLIDERESIZE, QTimer& tmrFADETRANS,
                   LookAhead& pictures);

    /// Step of the running fade, 0 when one begins, 240 at its end.
    qint32 FadeAlpha = 0;
    /// Blend operation, flags, alpha and alpha format in the four bytes, lowest first.
    qint32 BlendValue = 0;

    /// Freezes the screen as the start, loads `SlidePath`, fits it to the picture area and starts
    /// the timer. A file that does not load leaves the picture before it as the source.
    void LoadFadeSource(const QString& SlidePath);
    /// One step: the blend, the repaint of the rows that it changes, and the end of the timer at
    /// 240. Whatever the pictures, no step but 1 to 46, 64 and 128 changes anything.
    void step();

    /// The file as a whole picture, for the system path that does not fade.
    void loadUnscaled(const QString& SlidePath);
    /// Pixel size of the picture area: what a slide is fitted to.
    QSize areaSize() const { return picPREVIEW_.scaleSize(); }

private:
    PictureBox& picPREVIEW_;
    PictureBox& picSLIDERESIZE_;
    QTimer& tmrFADETRANS_;
    LookAhead& pictures_;
    CumulativeBlend blend_;
};

}  // namespace velorama

#include "player/fade_transition.h"

#include "core/globals.h"
#include "imaging/scale/scaling.h"
#include "player/show_timing.h"

namespace velorama {

FadeTransition::FadeTransition(PictureBox& picPREVIEW, PictureBox& picSLIDERESIZE,
                               QTimer& tmrFADETRANS, LookAhead& pictures)
    : picPREVIEW_(picPREVIEW),
      picSLIDERESIZE_(picSLIDERESIZE),
      tmrFADETRANS_(tmrFADETRANS),
      pictures_(pictures) {}

void FadeTransition::LoadFadeSource(const QString& SlidePath) {
    picPREVIEW_.keepImage();
    FadeAlpha = 0;
    picSLIDERESIZE_.Cls();
    QImage source = pictures_.load(SlidePath, Fit::area(areaSize()));
    if (source.isNull()) {
        source = picSLIDERESIZE_.Picture();
    }
    picSLIDERESIZE_.setPicture(PictureResize(source, areaSize(), white));
    tmrFADETRANS_.start();
}

void FadeTransition::loadUnscaled(const QString& SlidePath) {
    picSLIDERESIZE_.Cls();
    const QImage source = pictures_.load(SlidePath, Fit::whole());
    if (!source.isNull()) {
        picSLIDERESIZE_.setPicture(source);
    }
}

void FadeTransition::step() {
    FadeAlpha = qMin(FadeAlpha, fadeSteps) + 1;
    BlendValue = FadeAlpha << 16;
    QImage& target = picPREVIEW_.Image();
    if (!picSLIDERESIZE_.Picture().isNull() && picSLIDERESIZE_.Picture().size() != target.size()) {
        // The form was resized in the middle of the fade.
        picSLIDERESIZE_.setPicture(fittedBitmap(picSLIDERESIZE_.Picture(), target.size(), white));
    }
    const int alpha = (BlendValue >> 16) & 0xFF;
    picPREVIEW_.Refresh(blend_.AlphaBlend(target, picSLIDERESIZE_.Image(), alpha));
    if (FadeAlpha == fadeSteps) {
        tmrFADETRANS_.stop();
    }
}

}  // namespace velorama

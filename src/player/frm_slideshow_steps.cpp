// The steps of a show: from the queue to the slide on the screen.

#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "platform/process/events.h"
#include "player/running.h"

#include <cstdlib>
#include <optional>

namespace velorama {

void frmSLIDESHOW::ask(ShowStep step) {
    steps_.add(step);
    if (!stepping_) {
        takeSteps();
    }
}

void frmSLIDESHOW::askByWheel(const QWheelEvent& event) {
    const int steps = wheel_.take(event);
    if (steps == 0 || unloaded_) {
        return;
    }
    steps_.addOfWheel(steps > 0 ? ShowStep::Right : ShowStep::Left, std::abs(steps));
    if (!stepping_) {
        takeSteps();
    }
}

/// Takes what waits, and the arrows that are pressed meanwhile. A tick that has come meanwhile is
/// for the event loop: with a period shorter than a slide's load they come without end.
void frmSLIDESHOW::takeSteps() {
    const Running running(*this);
    stepping_ = true;
    while (!steps_.isEmpty() && !unloaded_) {
        take(steps_.takeNext());
        if (steps_.isTickNext()) {
            QTimer::singleShot(0, this, &frmSLIDESHOW::takeWaitingTick);
            break;
        }
    }
    stepping_ = false;
}

void frmSLIDESHOW::takeWaitingTick() {
    if (!stepping_) {
        takeSteps();
    }
}

void frmSLIDESHOW::take(const QList<ShowStep>& steps) {
    switch (steps.first()) {
        case ShowStep::Tick:
            takeTick();
            break;
        case ShowStep::Pause:
            togglePause();
            break;
        case ShowStep::Right:
        case ShowStep::Left:
            takeArrows(steps);
            break;
    }
}

void frmSLIDESHOW::takeTick() {
    if (Paused) {
        return;
    }
    const auto end = slides.advanceByTick();
    if (end == SlideSequence::Way::GivenUp || end == SlideSequence::Way::Over) {
        Unload();
        return;
    }
    if (end == SlideSequence::Way::Found) {
        showSlide(ShowStep::Tick, slides.current());
    }
    slides.wrapAfterTick();
    lookAhead();
    DoEvents();
}

/// Each arrow moves the number on; the slide that the last of them found is shown.
void frmSLIDESHOW::takeArrows(const QList<ShowStep>& arrows) {
    tmrFADETRANS.stop();
    std::optional<Slide> found;
    ShowStep way = ShowStep::Right;
    for (const ShowStep arrow : arrows) {
        const auto end = arrow == ShowStep::Right ? slides.goRight() : slides.goLeft();
        tmrSLIDESHOW.start();
        if (end == SlideSequence::Way::GivenUp) {
            Unload();
            return;
        }
        if (end == SlideSequence::Way::Found) {
            found = slides.current();
            way = arrow;
        }
    }
    if (found) {
        showSlide(way, *found);
        lookAhead();
    }
}

void frmSLIDESHOW::showSlide(ShowStep way, const Slide& slide) {
    // The area is placed twice on the way to a slide; the eye sees the end of it only.
    const HeldGeometry area(picPREVIEW);
    if (!isModernSystem()) {
        showOnOldSystem(way, slide.path);
    } else {
        fade_.LoadFadeSource(slide.path);
        ResizePic();
        if (way == ShowStep::Tick) {
            fitting_.CenterPreview();
        }
    }
    SlideCaption = CaptionFromPath(slide.path);
    shownNumber_ = slide.number;
    ShowStatusLabels();
    if (isModernSystem() && way != ShowStep::Tick) {
        fitting_.CenterPreview();
    }
    if (unloaded_) {
        // A key pressed meanwhile has ended the show: no timer may run on.
        tmrFADETRANS.stop();
        tmrSLIDESHOW.stop();
    }
}

void frmSLIDESHOW::showOnOldSystem(ShowStep way, const QString& path) {
    if (way != ShowStep::Left) {
        imgPREVIEW98.hide();
        picPREVIEW.hide();
    }
    if (way != ShowStep::Tick) {
        fade_.loadUnscaled(path);
    }
    fitting_.setOldArea();
    if (way == ShowStep::Tick) {
        fade_.loadUnscaled(path);
    }
    fitting_.shapeOldArea(picSLIDERESIZE.scaleSize());
    if (way == ShowStep::Tick || way == ShowStep::Left) {
        picPREVIEW.setPicture({});
        setWidth(imgPREVIEW98, Width(picPREVIEW));
        setHeight(imgPREVIEW98, Height(picPREVIEW));
    }
    imgPREVIEW98.setPicture(picSLIDERESIZE.Image());
    ResizePic();
}

void frmSLIDESHOW::lookAhead() {
    if (!unloaded_ && isModernSystem()) {
        pictures_.expect({slides.upcoming()}, Fit::area(fade_.areaSize()));
    }
}

}  // namespace velorama

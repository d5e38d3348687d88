#pragma once

#include "core/show_colours.h"
#include "player/frm_slideshow.h"

namespace velorama::bench {

/// A main window for shows that are measured alone: it is never seen and has no music.
class QuietHost : public ShowHost {
public:
    void setVisible(bool) override {}
    void AudioPlay() override {}
    void AudioPause() override {}
    QString track() const override { return {}; }
    QString trackLength() const override { return {}; }
    QString trackPosition() const override { return {}; }
    Colour background() override { return showBackground(); }
    Colour gradient() override { return showGradient(); }
};

class QuietScreenSaver : public ScreenSaver {};

}  // namespace velorama::bench

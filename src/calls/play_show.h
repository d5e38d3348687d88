#pragma once

#include "calls/input_lock.h"
#include "calls/screen_keeper.h"
#include "controls/dialogs/common_dialog.h"
#include "music/audio_engine.h"
#include "player/frm_slideshow.h"

#include <QPointer>

#include <memory>

namespace velorama {

/// A show without the main window: the same form, over a music list of its own. It reads slides,
/// times and colours from the settings. Its end is the end of the event loop.
class PlayShow : private ShowHost {
public:
    struct Ways {
        bool once = false;
        /// Nothing that is done at the screen reaches the show.
        bool lock = false;
    };

    /// Both must outlive this object.
    PlayShow(ScreenSaver& screenSaver, MediaCommands& device);
    ~PlayShow() override;

    /// What is to be heard instead of the list in the settings.
    void setMusic(const QStringList& files);
    /// Over the screen of that name, or over the first if it is empty.
    void start(const QString& screen, Ways ways);
    /// Ends the show that runs.
    void end();
    bool runs() const { return form_ && !form_->isUnloaded(); }

private:
    void setVisible(bool visible) override;
    void AudioPlay() override;
    void AudioPause() override;
    QString track() const override { return music_.lstMUSIC->List(music_.lstMUSIC->ListIndex()); }
    QString trackLength() const override { return music_.lblM1->Caption(); }
    QString trackPosition() const override { return music_.lblM2->Caption(); }
    Colour background() override;
    Colour gradient() override;
    bool hasMusic() const { return music_.lstMUSIC->ListCount() > 0; }

    ScreenSaver& screenSaver_;
    /// Never shown: the music works on controls.
    QWidget page_;
    MusicControls music_{page_};
    CommonDialog cdlDIALOG_{&page_};
    AudioEngine audio_;
    QPointer<frmSLIDESHOW> form_;
    std::unique_ptr<ScreenKeeper> keeper_;
    std::unique_ptr<InputLock> lock_;
};

}  // namespace velorama

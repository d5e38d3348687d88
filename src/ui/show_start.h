#pragma once

#include "music/audio_engine.h"
#include "player/frm_slideshow.h"
#include "ui/dialogs/settings_form.h"
#include "ui/held_keys.h"

#include <QPointer>

namespace velorama {

/// Starts the show over the main window, and stands for that window while it runs.
class ShowStart : public QObject, private ShowHost {
    Q_OBJECT
public:
    /// What it is given must outlive this object.
    ShowStart(QWidget& window, ScreenSaver& screenSaver, AudioEngine& audio,
              const MusicControls& music, SettingsForm& settings);
    ~ShowStart() override;

    /// Does nothing while a show runs.
    void start();
    /// Ends the show that runs.
    void unload();
    /// Null where there is none.
    frmSLIDESHOW* form() const { return form_; }

signals:
    /// A show has begun or ended.
    void Changed();

private:
    void setVisible(bool visible) override;
    void AudioPlay() override { audio_.AudioPlay(); }
    void AudioPause() override { audio_.AudioPause(); }
    QString track() const override { return music_.lstMUSIC->List(music_.lstMUSIC->ListIndex()); }
    QString trackLength() const override { return music_.lblM1->Caption(); }
    QString trackPosition() const override { return music_.lblM2->Caption(); }
    Colour background() override { return settings_.loaded().background(); }
    Colour gradient() override { return settings_.loaded().gradient(); }

    QWidget& window_;
    HeldKeys keys_{window_};
    ScreenSaver& screenSaver_;
    AudioEngine& audio_;
    const MusicControls& music_;
    SettingsForm& settings_;
    QPointer<frmSLIDESHOW> form_;
};

}  // namespace velorama

#pragma once

#include "music/music_list.h"
#include "platform/sound/media_commands.h"

#include <QObject>

namespace velorama {

/// Plays the music list on the one device, in the list's order and round and round. Its state is in
/// the controls: the timer runs while a track is open, and a disabled list means paused. The show
/// uses the same object, and reads `lblM1` and `lblM2`.
class AudioEngine : public QObject {
    Q_OBJECT
public:
    /// Brings the controls into the stopped state and connects their events. All three must
    /// outlive this object.
    AudioEngine(const MusicControls& controls, MediaCommands& device, CommonDialog& cdlDIALOG);

    MusicList list;

    /// Opens and plays the selected row. An open track goes on instead, from where it stands.
    void AudioPlay();
    void AudioPause();
    void AudioStop();
    /// Closes the device and leaves the controls alone: for the end of the program.
    void closeDevice();

    // The handlers, public for those who drive them without a clock.
    void tmrMUSIC_Timer();
    void cbtnAUDIO_Click(int Index);
    void lstMUSIC_DblClick();

private:
    void connectEvents();
    void stoppedState();
    void nextTrack();
    void openAndPlay();
    int askSeconds(const QString& what);
    void showProgress(int length, int position);
    QString currentRow() const;
    bool isPaused() const;
    void startPolling();
    void enableButtons(std::initializer_list<int> indexes, bool enabled);
    void enableList(bool enabled);
    class Focus;

    const MusicControls& c_;
    MediaCommands& device_;
};

}  // namespace velorama

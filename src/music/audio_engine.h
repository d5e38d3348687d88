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
    /// Goes to the row `by` places on, or back where that is below 0, round the list's ends, as a
    /// double click on it does. What is stopped stays so, and what is paused stays paused, at the
    /// new track's start.
    void stepRow(int by);

    enum class State { Stopped, Playing, Paused };
    State state() const;
    /// Of the open track, in milliseconds, from the device itself; 0 for none.
    qint64 length() const;
    qint64 position() const;

    /// Closes the device and leaves the controls alone: for the end of the program.
    void closeDevice();

    // The handlers, public for those who drive them without a clock.
    void tmrMUSIC_Timer();
    void cbtnAUDIO_Click(int Index);
    void lstMUSIC_DblClick();

signals:
    /// What `state`, `length` and `position` tell may have changed.
    void Changed();

private:
    void connectEvents();
    void stoppedState();
    void nextTrack();
    void openAndPlay();
    qint64 askMilliseconds(const QString& what) const;
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

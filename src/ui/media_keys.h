#pragma once

#include "platform/process/slow_looks.h"
#include "platform/session/media_remote.h"
#include "ui/show_start.h"

namespace velorama {

/// The desktop's media keys and panels: what they ask goes through the buttons of the page Music,
/// and during a show through those of its bar. A headset that is pulled asks for a pause.
class MediaKeys : public QObject, private MediaTarget {
    Q_OBJECT
public:
    /// What it is given by reference must outlive this object.
    MediaKeys(QWidget& window, AudioEngine& audio, const MusicControls& music, ShowStart& show,
              MediaCommands& device, std::shared_ptr<MediaRemote> remote);
    ~MediaKeys() override;

    /// From here to `stop` the program can be reached by them.
    void start();
    void stop();

private:
    MediaState state() override;
    qint64 position() override;
    void obey(MediaRequest request) override;

    void obeyInWindow(MediaRequest request);
    void obeyInShow(frmSLIDESHOW& show, MediaRequest request);
    void press(int button);
    void raise() const;
    void quit();
    /// The show that runs, null for none.
    frmSLIDESHOW* runningShow() const;
    MediaState::Playback playback() const;
    QString fileOf(const QString& row);

    QWidget& window_;
    AudioEngine& audio_;
    const MusicControls& music_;
    ShowStart& show_;
    MediaCommands& device_;
    std::shared_ptr<MediaRemote> remote_;
    // The row told last and its file, which is looked for on the disk once; empty until it answers.
    QString row_;
    QString file_;
    SlowLooks looks_;
};

}  // namespace velorama

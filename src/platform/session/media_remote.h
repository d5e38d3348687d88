#pragma once

#include <QString>

#include <memory>

namespace velorama {

/// What plays, as the other programs of a session see it.
struct MediaState {
    enum class Playback { Stopped, Playing, Paused };

    Playback playback = Playback::Stopped;
    /// The track's place in its list, from 0; -1 for none, and what is told of it is empty then.
    int track = -1;
    QString title;
    /// Full path of its file; empty as long as the disk has not told it.
    QString path;
    /// Microseconds, 0 where it is not known.
    qint64 length = 0;
    bool canPlay = false;
    /// There is a next one and a previous one.
    bool canStep = false;
};

/// What media keys and the session's panels ask for.
enum class MediaRequest { Play, Pause, PlayPause, Stop, Next, Previous, Raise, Quit };

/// Who is told by them, and tells what plays.
class MediaTarget {
public:
    MediaTarget() = default;
    MediaTarget(const MediaTarget&) = delete;
    MediaTarget& operator=(const MediaTarget&) = delete;
    virtual ~MediaTarget() = default;
    virtual MediaState state() = 0;
    /// How far the track is, in microseconds; 0 without one.
    virtual qint64 position() = 0;
    /// Comes from the event loop and may take as long as it likes.
    virtual void obey(MediaRequest request) = 0;
};

/// The way from media keys and panels to the program. Nothing of it waits or reports a failure.
class MediaRemote {
public:
    MediaRemote() = default;
    MediaRemote(const MediaRemote&) = delete;
    MediaRemote& operator=(const MediaRemote&) = delete;
    virtual ~MediaRemote() = default;
    /// From now on `target` is asked. It must live until `detach`.
    virtual void attach(MediaTarget& /*target*/) {}
    virtual void detach() {}
    /// What the target tells may have changed. Cheap: several calls are one look at it, later.
    virtual void refresh() {}
};

/// Over the session bus, as `org.mpris.MediaPlayer2.velorama`; where another program has the name,
/// with `.instance` and the process's number behind it. Silent where there is no bus.
std::unique_ptr<MediaRemote> makeSessionMediaRemote();

}  // namespace velorama

#pragma once

#include "platform/session/session_media_remote.h"

#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QStringList>

namespace velorama {

/// The properties of the player that are told when they change, as the bus has them: all that
/// follow from `state`.
QVariantMap mediaProperties(const MediaState& state);

/// `org.mpris.MediaPlayer2`: the program itself. Names are the interface's own.
class MediaRootAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2")
    Q_PROPERTY(bool CanQuit READ yes)
    Q_PROPERTY(bool CanRaise READ yes)
    Q_PROPERTY(bool HasTrackList READ no)
    Q_PROPERTY(QString Identity READ identity)
    Q_PROPERTY(QString DesktopEntry READ desktopEntry)
    Q_PROPERTY(QStringList SupportedUriSchemes READ nothing)
    Q_PROPERTY(QStringList SupportedMimeTypes READ nothing)
public:
    explicit MediaRootAdaptor(SessionMediaRemote& remote);

    bool yes() const { return true; }
    bool no() const { return false; }
    QString identity() const { return QStringLiteral("Velorama"); }
    QString desktopEntry() const { return QStringLiteral("velorama"); }
    QStringList nothing() const { return {}; }

public slots:  // NOLINT(readability-redundant-access-specifiers): makes them slots
    void Raise() { remote_.ask(MediaRequest::Raise); }
    void Quit() { remote_.ask(MediaRequest::Quit); }

private:
    SessionMediaRemote& remote_;
};

/// `org.mpris.MediaPlayer2.Player`. There is neither seeking nor another speed or loudness than 1;
/// the interface wants their names all the same.
class MediaPlayerAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(QVariantMap Metadata READ metadata)
    Q_PROPERTY(qlonglong Position READ position)
    Q_PROPERTY(double Rate READ one)
    Q_PROPERTY(double MinimumRate READ one)
    Q_PROPERTY(double MaximumRate READ one)
    Q_PROPERTY(double Volume READ one)
    Q_PROPERTY(bool CanGoNext READ canStep)
    Q_PROPERTY(bool CanGoPrevious READ canStep)
    Q_PROPERTY(bool CanPlay READ canPlay)
    Q_PROPERTY(bool CanPause READ canPlay)
    Q_PROPERTY(bool CanSeek READ no)
    Q_PROPERTY(bool CanControl READ yes)
public:
    explicit MediaPlayerAdaptor(SessionMediaRemote& remote);

    QString playbackStatus() const;
    QVariantMap metadata() const;
    qlonglong position() const { return remote_.position(); }
    double one() const { return 1; }
    bool canStep() const { return remote_.state().canStep; }
    bool canPlay() const { return remote_.state().canPlay; }
    bool yes() const { return true; }
    bool no() const { return false; }

public slots:  // NOLINT(readability-redundant-access-specifiers): makes them slots
    void Play() { remote_.ask(MediaRequest::Play); }
    void Pause() { remote_.ask(MediaRequest::Pause); }
    void PlayPause() { remote_.ask(MediaRequest::PlayPause); }
    void Stop() { remote_.ask(MediaRequest::Stop); }
    void Next() { remote_.ask(MediaRequest::Next); }
    void Previous() { remote_.ask(MediaRequest::Previous); }
    // Without effect, as the interface has it where CanSeek is false and no address is supported.
    void Seek(qlonglong Offset) { Q_UNUSED(Offset); }
    void SetPosition(const QDBusObjectPath& TrackId, qlonglong Position);
    void OpenUri(const QString& Uri) { Q_UNUSED(Uri); }

signals:
    /// The track stands at another place than the time that has gone by tells, in microseconds.
    void Seeked(qlonglong Position);

private:
    SessionMediaRemote& remote_;
};

}  // namespace velorama

#include "platform/session/media_adaptors.h"

#include <QUrl>

namespace velorama {
namespace {

QString playbackText(MediaState::Playback playback) {
    switch (playback) {
        case MediaState::Playback::Playing:
            return QStringLiteral("Playing");
        case MediaState::Playback::Paused:
            return QStringLiteral("Paused");
        case MediaState::Playback::Stopped:
            break;
    }
    return QStringLiteral("Stopped");
}

QVariant trackId(int track) {
    const QString path = track < 0 ? QStringLiteral("/org/mpris/MediaPlayer2/TrackList/NoTrack")
                                   : QStringLiteral("/velorama/track/%1").arg(track);
    return QVariant::fromValue(QDBusObjectPath(path));
}

QVariantMap metadataOf(const MediaState& state) {
    QVariantMap all = {{QStringLiteral("mpris:trackid"), trackId(state.track)}};
    if (state.track < 0) {
        return all;
    }
    all.insert(QStringLiteral("xesam:title"), state.title);
    if (!state.path.isEmpty()) {
        all.insert(QStringLiteral("xesam:url"),
                   QString::fromLatin1(QUrl::fromLocalFile(state.path).toEncoded()));
    }
    if (state.length > 0) {
        all.insert(QStringLiteral("mpris:length"), static_cast<qlonglong>(state.length));
    }
    return all;
}

}  // namespace

QVariantMap mediaProperties(const MediaState& state) {
    return {{QStringLiteral("PlaybackStatus"), playbackText(state.playback)},
            {QStringLiteral("Metadata"), metadataOf(state)},
            {QStringLiteral("CanGoNext"), state.canStep},
            {QStringLiteral("CanGoPrevious"), state.canStep},
            {QStringLiteral("CanPlay"), state.canPlay},
            {QStringLiteral("CanPause"), state.canPlay}};
}

MediaRootAdaptor::MediaRootAdaptor(SessionMediaRemote& remote)
    : QDBusAbstractAdaptor(&remote), remote_(remote) {}

MediaPlayerAdaptor::MediaPlayerAdaptor(SessionMediaRemote& remote)
    : QDBusAbstractAdaptor(&remote), remote_(remote) {}

QString MediaPlayerAdaptor::playbackStatus() const {
    return playbackText(remote_.state().playback);
}

void MediaPlayerAdaptor::SetPosition(const QDBusObjectPath& TrackId, qlonglong Position) {
    Q_UNUSED(TrackId);
    Q_UNUSED(Position);
}

QVariantMap MediaPlayerAdaptor::metadata() const {
    return metadataOf(remote_.state());
}

}  // namespace velorama

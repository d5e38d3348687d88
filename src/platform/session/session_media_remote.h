#pragma once

#include "platform/session/media_remote.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

namespace velorama {

class MediaPlayerAdaptor;

/// Stands on a bus as a player by the MPRIS interface, version 2.
class SessionMediaRemote final : public QObject, public MediaRemote {
    Q_OBJECT
public:
    explicit SessionMediaRemote(const QDBusConnection& bus);
    ~SessionMediaRemote() override;

    void attach(MediaTarget& target) override;
    void detach() override;
    void refresh() override;

    // For the adaptors.
    void ask(MediaRequest request);
    MediaState state() const;
    qint64 position() const;

private:
    void takeName(const QString& name);
    void nameAnswered(const QString& name, bool owned);
    void releaseName();
    void tell();
    void tellProperties(const QVariantMap& changed);

    QDBusConnection bus_;
    MediaPlayerAdaptor* player_;
    MediaTarget* target_ = nullptr;
    QString name_;
    bool telling_ = false;
    // What the bus was told last.
    QVariantMap told_;
    qint64 toldPosition_ = 0;
};

}  // namespace velorama

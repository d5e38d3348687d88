#include "platform/session/session_media_remote.h"

#include "platform/session/media_adaptors.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace velorama {
namespace {

const QString objectPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString programName = QStringLiteral("org.mpris.MediaPlayer2.velorama");

// Of the bus's answer to a request for a name.
constexpr uint nameIsOurs = 1;
constexpr uint doNotQueue = 4;

QString instanceName() {
    return programName + QStringLiteral(".instance") +
           QString::number(QCoreApplication::applicationPid());
}

QDBusMessage busCall(const QString& method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

QVariantMap difference(const QVariantMap& before, const QVariantMap& now) {
    QVariantMap changed;
    for (auto entry = now.cbegin(); entry != now.cend(); ++entry) {
        if (before.value(entry.key()) != entry.value()) {
            changed.insert(entry.key(), entry.value());
        }
    }
    return changed;
}

}  // namespace

SessionMediaRemote::SessionMediaRemote(const QDBusConnection& bus)
    : bus_(bus), player_(new MediaPlayerAdaptor(*this)) {
    new MediaRootAdaptor(*this);
}

SessionMediaRemote::~SessionMediaRemote() {
    detach();
}

void SessionMediaRemote::attach(MediaTarget& target) {
    // Without a bus a call's watcher never signals.
    if (target_ || !bus_.isConnected() || !bus_.registerObject(objectPath, this)) {
        return;
    }
    target_ = &target;
    told_ = mediaProperties(state());
    takeName(programName);
}

void SessionMediaRemote::detach() {
    if (!target_) {
        return;
    }
    target_ = nullptr;
    bus_.unregisterObject(objectPath);
    releaseName();
}

// By hand, since the library's own way waits for the answer.
void SessionMediaRemote::takeName(const QString& name) {
    QDBusMessage call = busCall(QStringLiteral("RequestName"));
    call << name << doNotQueue;
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, name](QDBusPendingCallWatcher* done) {
                const QDBusPendingReply<uint> reply = *done;
                nameAnswered(name, !reply.isError() && reply.value() == nameIsOurs);
                done->deleteLater();
            });
}

void SessionMediaRemote::nameAnswered(const QString& name, bool owned) {
    if (owned) {
        name_ = name;
    } else if (target_ && name == programName) {
        takeName(instanceName());
    }
    if (!target_) {
        releaseName();
    }
}

void SessionMediaRemote::releaseName() {
    if (!name_.isEmpty()) {
        QDBusMessage call = busCall(QStringLiteral("ReleaseName"));
        call << std::exchange(name_, QString());
        bus_.send(call);
    }
}

// Later: what is asked for may ask the user something, and the caller waits for its answer.
void SessionMediaRemote::ask(MediaRequest request) {
    const auto obey = [this, request] {
        if (target_) {
            target_->obey(request);
        }
    };
    QMetaObject::invokeMethod(this, obey, Qt::QueuedConnection);
}

MediaState SessionMediaRemote::state() const {
    return target_ ? target_->state() : MediaState();
}

qint64 SessionMediaRemote::position() const {
    return target_ ? target_->position() : 0;
}

void SessionMediaRemote::refresh() {
    if (target_ && !std::exchange(telling_, true)) {
        QMetaObject::invokeMethod(this, &SessionMediaRemote::tell, Qt::QueuedConnection);
    }
}

void SessionMediaRemote::tell() {
    telling_ = false;
    if (!target_) {
        return;
    }
    const QVariantMap now = mediaProperties(state());
    const QVariantMap changed = difference(std::exchange(told_, now), now);
    const qint64 before = std::exchange(toldPosition_, position());
    if (!changed.isEmpty()) {
        tellProperties(changed);
    }
    // Panels count on by themselves; that the same track began anew they cannot know.
    if (toldPosition_ < before && !changed.contains(QStringLiteral("Metadata"))) {
        emit player_->Seeked(toldPosition_);
    }
}

void SessionMediaRemote::tellProperties(const QVariantMap& changed) {
    QDBusMessage signal =
        QDBusMessage::createSignal(objectPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                                   QStringLiteral("PropertiesChanged"));
    signal << QStringLiteral("org.mpris.MediaPlayer2.Player") << changed << QStringList();
    bus_.send(signal);
}

std::unique_ptr<MediaRemote> makeSessionMediaRemote() {
    return std::make_unique<SessionMediaRemote>(QDBusConnection::sessionBus());
}

}  // namespace velorama

#include "platform/session/session_screen_saver.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

namespace velorama {
namespace {

const QString programName = QStringLiteral("Velorama");
const QString reason = QStringLiteral("Slideshow");

QDBusMessage screenSaverCall(const QString& method) {
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.ScreenSaver"),
                                          QStringLiteral("/org/freedesktop/ScreenSaver"),
                                          QStringLiteral("org.freedesktop.ScreenSaver"), method);
}

QDBusMessage portalInhibitCall() {
    constexpr uint idle = 8;  // of the portal's flags: logout 1, user switch 2, suspend 4, idle 8
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Inhibit"), QStringLiteral("Inhibit"));
    call << QString() << idle << QVariantMap{{QStringLiteral("reason"), reason}};
    return call;
}

QDBusMessage portalCloseCall(const QDBusObjectPath& handle) {
    return QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"), handle.path(),
        QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Close"));
}

template <typename Finished>
void whenFinished(const QDBusPendingCall& call, Finished finished) {
    auto* watcher = new QDBusPendingCallWatcher(call);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [finished](QDBusPendingCallWatcher* done) {
                         finished(*done);
                         done->deleteLater();
                     });
}

}  // namespace

/// One wish that the screen stays awake, from its request to the call that ends it.
class SessionScreenSaver::Request : public std::enable_shared_from_this<Request> {
public:
    explicit Request(const QDBusConnection& bus) : bus_(bus) {}

    void ask() {
        QDBusMessage call = screenSaverCall(QStringLiteral("Inhibit"));
        call << programName << reason;
        whenFinished(bus_.asyncCall(call),
                     [self = shared_from_this()](const QDBusPendingCallWatcher& done) {
                         const QDBusPendingReply<uint> reply = done;
                         reply.isError() ? self->askPortal() : self->granted(reply.value());
                     });
    }

    void end() {
        ended_ = true;
        if (answered_) {
            bus_.send(ending_);
        }
    }

private:
    void askPortal() {
        if (ended_) {
            return;
        }
        whenFinished(bus_.asyncCall(portalInhibitCall()),
                     [self = shared_from_this()](const QDBusPendingCallWatcher& done) {
                         const QDBusPendingReply<QDBusObjectPath> reply = done;
                         if (!reply.isError()) {
                             self->answer(portalCloseCall(reply.value()));
                         }
                     });
    }

    void granted(uint cookie) {
        QDBusMessage call = screenSaverCall(QStringLiteral("UnInhibit"));
        call << cookie;
        answer(call);
    }

    void answer(const QDBusMessage& ending) {
        answered_ = true;
        ending_ = ending;
        if (ended_) {
            bus_.send(ending_);
        }
    }

    QDBusConnection bus_;
    QDBusMessage ending_;
    bool answered_ = false;
    bool ended_ = false;
};

SessionScreenSaver::SessionScreenSaver(const QDBusConnection& bus) : bus_(bus) {}

SessionScreenSaver::~SessionScreenSaver() {
    while (!requests_.empty()) {
        release();
    }
}

void SessionScreenSaver::inhibit() {
    // Without a bus a call is never answered at all, and its watcher would stay for good.
    if (!bus_.isConnected()) {
        return;
    }
    requests_.push_back(std::make_shared<Request>(bus_));
    requests_.back()->ask();
}

void SessionScreenSaver::release() {
    if (!requests_.empty()) {
        requests_.back()->end();
        requests_.pop_back();
    }
}

std::unique_ptr<ScreenSaver> makeSessionScreenSaver() {
    return std::make_unique<SessionScreenSaver>(QDBusConnection::sessionBus());
}

}  // namespace velorama

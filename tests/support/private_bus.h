#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QStringList>

namespace velorama::test {

/// A session bus of the test's own, with as many connections as are asked for.
class PrivateBus {
public:
    PrivateBus() {
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--session"), QStringLiteral("--nofork"),
                       QStringLiteral("--print-address")});
        if (daemon_.waitForStarted() && daemon_.waitForReadyRead()) {
            address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
        }
    }
    ~PrivateBus() {
        for (const QString& name : names_) {
            QDBusConnection::disconnectFromBus(name);
        }
        daemon_.terminate();
        daemon_.waitForFinished();
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    bool isUp() const { return !address_.isEmpty(); }

    /// `name` is the process's own for this connection, which ends with the bus.
    QDBusConnection connection(const QString& name) {
        names_.append(name);
        return QDBusConnection::connectToBus(address_, name);
    }

private:
    QProcess daemon_;
    QString address_;
    QStringList names_;
};

}  // namespace velorama::test

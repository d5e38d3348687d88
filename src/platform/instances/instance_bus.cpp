#include "platform/instances/instance_bus.h"

#include "platform/instances/instance_sockets.h"
#include "platform/instances/message_frame.h"

#include <QCoreApplication>
#include <QFile>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTimer>

#include <utility>

namespace velorama {
namespace {

// Milliseconds.
constexpr int writeWait = 100;
constexpr int silenceWait = 2000;  // of a program that has connected and says nothing

constexpr int mostConnections = 8;  // at a time

class SocketBus : public InstanceBus {
public:
    SocketBus(const QString& folder, qint64 process) : sockets_(folder, process) {
        QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { accept(); });
    }

    ~SocketBus() override {
        if (!path_.isEmpty()) {
            QFile::remove(InstanceWindow::titleFile(path_));
        }
    }

    bool bind(quint32 window, const QString& title, Receiver receiver) override {
        if (sockets_.folder().isEmpty() || server_.isListening()) {
            return false;
        }
        sockets_.removeDead();
        receiver_ = std::move(receiver);
        path_ = sockets_.ownSocket(window);
        // Whoever sees the socket finds its title.
        setTitle(title);
        server_.setSocketOptions(QLocalServer::UserAccessOption);
        if (!server_.listen(path_)) {
            QFile::remove(InstanceWindow::titleFile(path_));
            path_.clear();
            return false;
        }
        return true;
    }

    void setTitle(const QString& title) override {
        QFile file(InstanceWindow::titleFile(path_));
        if (!path_.isEmpty() && file.open(QIODevice::WriteOnly)) {
            file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
            file.write(title.toUtf8());
        }
    }

    quint32 find(const QString& pattern) override {
        found_ = sockets_.firstAlive([&pattern](const InstanceWindow& window) {
            return fitsTitle(window.title(), pattern);
        });
        return found_.number;
    }

    bool send(const QString& text, quint32 window) override {
        const QByteArray frame = messageFrame(text);
        const InstanceWindow target = windowOf(window);
        if (frame.isEmpty() || target.socket.isEmpty()) {
            return false;
        }
        QLocalSocket socket;
        if (connectTo(socket, target.socket) != SocketLife::Alive) {
            return false;
        }
        socket.write(frame);
        while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(writeWait)) {
        }
        return socket.bytesToWrite() == 0;
    }

    bool othersRun() const override {
        return !sockets_.firstAlive([](const InstanceWindow&) { return true; }).socket.isEmpty();
    }

private:
    InstanceWindow windowOf(quint32 number) const {
        const bool isFound = !found_.socket.isEmpty() && found_.number == number;
        return isFound ? found_ : sockets_.firstAlive([number](const InstanceWindow& one) {
            return one.number == number;
        });
    }

    void accept() {
        while (QLocalSocket* connection = server_.nextPendingConnection()) {
            const auto open = server_.findChildren<QLocalSocket*>();
            if (open.size() > mostConnections) {
                connection->abort();
                connection->deleteLater();
                continue;
            }
            receive(*connection);
        }
    }

    void receive(QLocalSocket& connection) {
        connection.setReadBufferSize(frameHead + longestMessage);
        QObject::connect(&connection, &QLocalSocket::disconnected, &connection,
                         &QObject::deleteLater);
        QObject::connect(&connection, &QLocalSocket::readyRead, &connection,
                         [this, &connection] { take(connection); });
        QTimer::singleShot(silenceWait, &connection, [&connection] { connection.abort(); });
        take(connection);
    }

    /// One text a connection.
    void take(QLocalSocket& connection) {
        const ReadFrame frame = readFrame(connection.peek(frameHead + longestMessage));
        if (frame.state == ReadFrame::Incomplete) {
            return;
        }
        QObject::disconnect(&connection, &QLocalSocket::readyRead, nullptr, nullptr);
        connection.abort();
        if (frame.state == ReadFrame::Whole && receiver_) {
            receiver_(frame.text);
        }
    }

    InstanceSockets sockets_;
    InstanceWindow found_;
    QString path_;  // of the own socket
    Receiver receiver_;
    QLocalServer server_;
};

}  // namespace

bool fitsTitle(const QString& title, const QString& pattern) {
    return pattern.endsWith(QLatin1String(" *")) ? title.startsWith(pattern.chopped(1))
                                                 : title == pattern;
}

std::unique_ptr<InstanceBus> makeInstanceBus(const QString& folder, qint64 process) {
    return std::make_unique<SocketBus>(folder, process);
}

std::unique_ptr<InstanceBus> makeInstanceBus() {
    return makeInstanceBus(instanceFolder(), QCoreApplication::applicationPid());
}

}  // namespace velorama

#include "platform/instance_bus.h"

#include "platform/message_frame.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QHash>
#include <QLocalServer>
#include <QLocalSocket>
#include <QRegularExpression>
#include <QTimer>

#include <algorithm>
#include <utility>
#include <vector>

namespace velorama {
namespace {

// Milliseconds.
constexpr int connectWait = 100;
constexpr int searchWait = 250;
constexpr int silenceWait = 2000;  // of a program that has connected and says nothing

constexpr int mostEntries = 256;    // looked at in the folder
constexpr int mostConnections = 8;  // at a time
constexpr qint64 longestTitle = 128 * 1024;

struct Window {
    quint32 number = 0;
    qint64 process = 0;
    QString path;  // of its socket
};

QString titleFile(const QString& socket) {
    return socket + QStringLiteral(".title");
}

QString titleOf(const Window& window) {
    QFile file(titleFile(window.path));
    const bool plain = QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly);
    return plain ? QString::fromUtf8(file.read(longestTitle)) : QString();
}

enum class Life { Alive, Silent, Dead };

Life connectTo(QLocalSocket& socket, const QString& path) {
    socket.connectToServer(path);
    if (socket.waitForConnected(connectWait)) {
        return Life::Alive;
    }
    const auto error = socket.error();
    const bool gone =
        error == QLocalSocket::ConnectionRefusedError || error == QLocalSocket::ServerNotFoundError;
    return gone ? Life::Dead : Life::Silent;
}

/// A program that ended without taking its socket away leaves it behind.
void removeDead(const Window& window) {
    QLocalServer::removeServer(window.path);
    QFile::remove(titleFile(window.path));
}

class SocketBus : public InstanceBus {
public:
    SocketBus(QString folder, qint64 process) : folder_(std::move(folder)), process_(process) {
        QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { accept(); });
    }

    ~SocketBus() override {
        if (!path_.isEmpty()) {
            QFile::remove(titleFile(path_));
        }
    }

    bool bind(quint32 window, const QString& title, Receiver receiver) override {
        if (folder_.isEmpty() || server_.isListening()) {
            return false;
        }
        removeLeftovers();
        receiver_ = std::move(receiver);
        path_ = folder_ + u'/' + QString::number(window) + u'-' + QString::number(process_);
        // Whoever sees the socket finds its title.
        setTitle(title);
        server_.setSocketOptions(QLocalServer::UserAccessOption);
        if (!server_.listen(path_)) {
            QFile::remove(titleFile(path_));
            path_.clear();
            return false;
        }
        return true;
    }

    void setTitle(const QString& title) override {
        QFile file(titleFile(path_));
        if (!path_.isEmpty() && file.open(QIODevice::WriteOnly)) {
            file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
            file.write(title.toUtf8());
        }
    }

    quint32 find(const QString& pattern) const override {
        return firstAlive(
                   [&pattern](const Window& window) { return fitsTitle(titleOf(window), pattern); })
            .number;
    }

    bool send(const QString& text, quint32 window) override {
        const QByteArray frame = messageFrame(text);
        const Window target =
            firstAlive([window](const Window& one) { return one.number == window; });
        if (frame.isEmpty() || target.path.isEmpty()) {
            return false;
        }
        QLocalSocket socket;
        if (connectTo(socket, target.path) != Life::Alive) {
            return false;
        }
        socket.write(frame);
        while (socket.bytesToWrite() > 0 && socket.waitForBytesWritten(connectWait)) {
        }
        return socket.bytesToWrite() == 0;
    }

    bool othersRun() const override {
        return !firstAlive([](const Window&) { return true; }).path.isEmpty();
    }

private:
    /// Sockets of other processes, the oldest first.
    std::vector<Window> others() const {
        static const QRegularExpression form(QStringLiteral("^(\\d{1,10})-(\\d{1,19})$"));
        std::vector<Window> found;
        if (folder_.isEmpty()) {
            return found;
        }
        const QFileInfoList entries = QDir(folder_).entryInfoList(
            QDir::Files | QDir::System | QDir::Hidden, QDir::Time | QDir::Reversed);
        for (const QFileInfo& entry : entries.mid(0, mostEntries)) {
            const auto name = form.match(entry.fileName());
            const qint64 process = name.captured(2).toLongLong();
            if (name.hasMatch() && process != process_) {
                found.push_back({name.captured(1).toUInt(), process, entry.filePath()});
            }
        }
        return found;
    }

    template <typename Wanted>
    Window firstAlive(Wanted wanted) const {
        const QDeadlineTimer deadline(searchWait);
        for (const Window& window : others()) {
            if (deadline.hasExpired()) {
                break;
            }
            if (!wanted(window)) {
                continue;
            }
            QLocalSocket socket;
            const Life life = connectTo(socket, window.path);
            if (life == Life::Alive) {
                return window;
            }
            if (life == Life::Dead) {
                removeDead(window);
            }
        }
        return {};
    }

    void removeLeftovers() const {
        firstAlive([](const Window& window) {
            QLocalSocket socket;
            return connectTo(socket, window.path) == Life::Dead;
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

    QString folder_;
    qint64 process_;
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

#include "platform/instances/instance_sockets.h"

#include "platform/utf8.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalServer>
#include <QRegularExpression>

#include <utility>

namespace velorama {
namespace {

// Milliseconds.
constexpr int connectWait = 100;
constexpr int searchWait = 250;

constexpr int mostEntries = 256;  // looked at in the folder
constexpr qint64 longestTitle = 128LL * 1024;

void remove(const InstanceWindow& window) {
    QLocalServer::removeServer(window.socket);
    QFile::remove(InstanceWindow::titleFile(window.socket));
}

}  // namespace

QString InstanceWindow::titleFile(const QString& socket) {
    return socket + QStringLiteral(".title");
}

QString InstanceWindow::title() const {
    QFile file(titleFile(socket));
    const bool plain = QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly);
    return plain ? textOfUtf8(file.read(longestTitle)) : QString();
}

SocketLife connectTo(QLocalSocket& socket, const QString& path) {
    socket.connectToServer(path);
    if (socket.waitForConnected(connectWait)) {
        return SocketLife::Alive;
    }
    const auto error = socket.error();
    const bool gone =
        error == QLocalSocket::ConnectionRefusedError || error == QLocalSocket::ServerNotFoundError;
    return gone ? SocketLife::Dead : SocketLife::Silent;
}

InstanceSockets::InstanceSockets(QString folder, qint64 ownProcess)
    : folder_(std::move(folder)), ownProcess_(ownProcess) {}

QString InstanceSockets::ownSocket(quint32 window) const {
    return folder_ + u'/' + QString::number(window) + u'-' + QString::number(ownProcess_);
}

std::vector<InstanceWindow> InstanceSockets::others() const {
    static const QRegularExpression form(QStringLiteral("^(\\d{1,10})-(\\d{1,19})$"));
    std::vector<InstanceWindow> found;
    if (folder_.isEmpty()) {
        return found;
    }
    const QFileInfoList entries =
        QDir(folder_).entryInfoList(QDir::System, QDir::Time | QDir::Reversed);
    for (const QFileInfo& entry : entries.mid(0, mostEntries)) {
        const auto name = form.match(entry.fileName());
        const qint64 process = name.captured(2).toLongLong();
        if (name.hasMatch() && process != ownProcess_) {
            found.push_back({name.captured(1).toUInt(), process, entry.filePath()});
        }
    }
    return found;
}

InstanceWindow InstanceSockets::firstAlive(const Wanted& wanted) const {
    const QDeadlineTimer deadline(searchWait);
    for (const InstanceWindow& window : others()) {
        if (deadline.hasExpired()) {
            break;
        }
        if (!wanted(window)) {
            continue;
        }
        QLocalSocket socket;
        const SocketLife life = connectTo(socket, window.socket);
        if (life == SocketLife::Alive) {
            return window;
        }
        if (life == SocketLife::Dead) {
            remove(window);
        }
    }
    return {};
}

void InstanceSockets::removeDead() const {
    firstAlive([](const InstanceWindow& window) {
        QLocalSocket socket;
        return connectTo(socket, window.socket) == SocketLife::Dead;
    });
}

}  // namespace velorama

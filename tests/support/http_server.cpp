#include "support/http_server.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <memory>

namespace velorama::test {
namespace {

constexpr qint64 Portion = 64LL * 1024;

QByteArray typeOf(const QString& path) {
    const QString suffix = QFileInfo(path).suffix();
    if (suffix == QLatin1String("html")) {
        return "text/html";
    }
    if (suffix == QLatin1String("png") || suffix == QLatin1String("gif")) {
        return "image/" + suffix.toLatin1();
    }
    return suffix == QLatin1String("jpg") ? "image/jpeg" : "text/plain";
}

}  // namespace

HttpServer::HttpServer() {
    EXPECT_TRUE(server_.listen(QHostAddress::LocalHost));
    root_ = QStringLiteral("http://127.0.0.1:%1").arg(server_.serverPort());
    connect(&server_, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = server_.nextPendingConnection()) {
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
            connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
                heads_.remove(socket);
                socket->deleteLater();
            });
        }
    });
}

// The sockets are the server's children and speak up while they go.
HttpServer::~HttpServer() {
    for (QTcpSocket* socket : server_.findChildren<QTcpSocket*>()) {
        socket->disconnect(this);
    }
}

QString HttpServer::address(const QString& path) const {
    return root_ + path;
}

void HttpServer::read(QTcpSocket* socket) {
    QByteArray& head = heads_[socket];
    head += socket->readAll();
    if (!head.contains("\r\n\r\n")) {
        return;
    }
    const QString path = QString::fromLatin1(head.split(' ').value(1));
    head.clear();
    asked.append(path);
    const auto known = paths_.constFind(path);
    const Behaviour behaviour = known != paths_.constEnd() ? *known : fileAnswer(path);
    behaviour(*socket);
}

HttpServer::Behaviour HttpServer::fileAnswer(const QString& path) const {
    QFile file(folder_ + path);
    if (folder_.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        return [](QTcpSocket& socket) { send(socket, "404 Not Found", {}, "no such page"); };
    }
    const QByteArray body = file.readAll();
    const QByteArray type = "Content-Type: " + typeOf(path) + "\r\n";
    return [body, type](QTcpSocket& socket) { send(socket, "200 OK", type, body); };
}

void HttpServer::send(QTcpSocket& socket, const QByteArray& status, const QByteArray& headers,
                      const QByteArray& body) {
    socket.write("HTTP/1.1 " + status + "\r\n" + headers +
                 "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
}

void HttpServer::answer(const QString& path, const QByteArray& body, const QByteArray& type,
                        const QByteArray& status, const QByteArray& headers) {
    const QByteArray all = headers + (type.isEmpty() ? type : "Content-Type: " + type + "\r\n");
    behave(path, [=](QTcpSocket& socket) { send(socket, status, all, body); });
}

void HttpServer::redirect(const QString& path, const QString& target) {
    answer(path, "moved", "text/plain", "302 Found", "Location: " + target.toUtf8() + "\r\n");
}

void HttpServer::pour(const QString& path, qint64 total) {
    behave(path, [this, total](QTcpSocket& socket) {
        const auto left = std::make_shared<qint64>(total);
        const auto portion = [this, left, &socket] {
            const qint64 size = qMin(Portion, *left);
            *left -= size;
            poured += size;
            socket.write(QByteArray(size, '1'));
        };
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(total) +
                     "\r\n\r\n");
        connect(&socket, &QTcpSocket::bytesWritten, &socket, [left, portion, &socket] {
            if (*left > 0 && socket.bytesToWrite() == 0) {
                portion();
            }
        });
        portion();
    });
}

void HttpServer::shut() {
    server_.close();
    for (QTcpSocket* socket : server_.findChildren<QTcpSocket*>()) {
        socket->abort();
    }
}

}  // namespace velorama::test

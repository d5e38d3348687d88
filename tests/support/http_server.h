#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>

namespace velorama::test {

/// A web server on this machine's loopback that answers as a test wants it to, well or badly.
class HttpServer : public QObject {
public:
    using Behaviour = std::function<void(QTcpSocket& socket)>;

    HttpServer();
    ~HttpServer() override;

    /// Full address of a path that begins with a slash.
    QString address(const QString& path = QStringLiteral("/")) const;
    /// A whole answer with a status line and a length.
    void answer(const QString& path, const QByteArray& body,
                const QByteArray& type = "text/html; charset=utf-8",
                const QByteArray& status = "200 OK", const QByteArray& headers = {});
    void redirect(const QString& path, const QString& target);
    /// Anything else, from the status line on.
    void behave(const QString& path, const Behaviour& behaviour) { paths_[path] = behaviour; }
    /// A head, then bytes without an end for as long as somebody reads them, `total` at most.
    void pour(const QString& path, qint64 total);
    /// Files of a folder for all paths without a behaviour of their own.
    void serveFolder(const QString& folder) { folder_ = folder; }
    /// From now on nobody listens, and the address stays what it was.
    void shut();

    /// The paths asked for, in their order.
    QStringList asked;
    /// Bytes handed to the system by `pour`.
    qint64 poured = 0;

private:
    void read(QTcpSocket* socket);
    Behaviour fileAnswer(const QString& path) const;
    static void send(QTcpSocket& socket, const QByteArray& status, const QByteArray& headers,
                     const QByteArray& body);

    QTcpServer server_;
    QString root_;
    QString folder_;
    QHash<QString, Behaviour> paths_;
    QHash<QTcpSocket*, QByteArray> heads_;
};

}  // namespace velorama::test

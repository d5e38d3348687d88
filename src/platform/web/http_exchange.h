#pragma once

#include <QHash>
#include <QObject>
#include <QTcpSocket>
#include <QUrl>

#include <optional>

namespace velorama {

/// One question to one server and its answer, over a connection of its own that ends with it. The
/// system's proxy is used, but never to reach this machine itself. Redirects are the caller's.
class HttpExchange : public QObject {
    Q_OBJECT
public:
    /// A body is read no further than `mostBytes`.
    explicit HttpExchange(qint64 mostBytes, QObject* parent = nullptr);
    ~HttpExchange() override;

    /// Asks, once. It may have finished when this returns: an address without a way to it fails at
    /// once.
    void start(const QUrl& address);

    int status() const { return status_; }
    /// Of the first header of that name, which is given in small letters.
    QByteArray header(const QByteArray& name) const { return headers_.value(name); }
    const QByteArray& body() const { return body_; }
    /// The body had more bytes than were to be read.
    bool isCut() const { return cut_; }

signals:
    /// Comes once. False where no server was reached, where it spoke no HTTP, and where its answer
    /// broke off.
    void finished(bool whole);

private:
    void connectTo(const QUrl& address);
    void ask(const QUrl& address, const QByteArray& target, const QByteArray& more);
    void read();
    void readHead();
    void readBody();
    bool takeHead(const QByteArray& head);
    void closed();
    void finish(bool whole);

    QTcpSocket* socket_ = nullptr;
    qint64 mostBytes_;

    QByteArray head_;
    bool headRead_ = false;
    int status_ = 0;
    QHash<QByteArray, QByteArray> headers_;
    /// As the server tells it; without it the end of the connection is the end of the body.
    std::optional<qint64> length_;
    QByteArray body_;
    bool cut_ = false;
    bool done_ = false;
};

}  // namespace velorama

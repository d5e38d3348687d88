#pragma once

#include "platform/web/http_reading.h"

#include <QNetworkProxy>
#include <QObject>
#include <QTcpSocket>
#include <QUrl>

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

    const HttpReading& answer() const { return reading_; }

signals:
    /// Comes once. False where no server was reached, where it spoke no HTTP, and where its answer
    /// broke off.
    void finished(bool whole);

private:
    void connectBy(const QNetworkProxy& proxy, const QUrl& address);
    void connectTo(QNetworkProxy proxy, const QUrl& address);
    void ask(const QUrl& address, const QByteArray& target, const QByteArray& more);
    void read();
    void closed();
    void finish(bool whole);

    QTcpSocket* socket_ = nullptr;
    HttpReading reading_;
    bool done_ = false;
};

}  // namespace velorama

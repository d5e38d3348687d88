#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUrl>

#include <chrono>

namespace velorama {

class HttpExchange;

/// What one GET may cost.
struct HttpLimits {
    /// From the asking to the last byte, redirects included.
    std::chrono::milliseconds time{10000};
    /// A body is read no further than this.
    qint64 bytes = 64LL * 1024;
    int redirects = 4;
    /// Whether redirects may lead away from the server that was asked.
    bool otherServers = true;
};

struct HttpAnswer {
    /// False if the server could not be reached, was too slow, or answered with an error; `body` is
    /// empty then.
    bool ok = false;
    /// The body had more bytes than were to be read.
    bool cut = false;
    /// Where redirects led.
    QUrl address;
    /// As the server names it, parameters included.
    QByteArray contentType;
    QByteArray body;
};

/// One GET over HTTP or HTTPS. Its destruction ends it without a further word.
class HttpRequest : public QObject {
    Q_OBJECT
public:
    HttpRequest(const QUrl& address, const HttpLimits& limits, QObject* parent = nullptr);
    ~HttpRequest() override;

signals:
    /// Comes once, and never from inside the constructor.
    void finished(const velorama::HttpAnswer& answer);

private:
    void ask(const QUrl& address);
    void take(bool whole);
    bool mayGoTo(const QUrl& target);
    void end(bool ok);

    HttpLimits limits_;
    HttpAnswer answer_;
    QPointer<HttpExchange> exchange_;
    int redirects_ = 0;
    QTimer time_;
};

/// Whether the address is one that HttpRequest asks: HTTP or HTTPS with a host.
bool isHttpAddress(const QUrl& address);
/// Whether two such addresses are of one server: the same host and the same port, if one is given.
bool isSameServer(const QUrl& one, const QUrl& other);

}  // namespace velorama

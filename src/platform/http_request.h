#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUrl>

#include <chrono>

namespace velorama {

/// What one GET may cost.
struct HttpLimits {
    /// From the asking to the last byte, redirects included.
    std::chrono::milliseconds time{10000};
    /// A body is read no further than this.
    qint64 bytes = 64 * 1024;
    int redirects = 4;
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
    HttpRequest(QNetworkAccessManager& network, const QUrl& address, const HttpLimits& limits,
                QObject* parent = nullptr);
    ~HttpRequest() override;

signals:
    /// Comes once, and never from inside the constructor.
    void finished(const velorama::HttpAnswer& answer);

private:
    void follow(QNetworkReply* reply);
    void readMore();
    void end(bool ok);
    void letGo();

    HttpLimits limits_;
    HttpAnswer answer_;
    /// The access manager owns it and may go first.
    QPointer<QNetworkReply> reply_;
    QTimer time_;
};

/// Whether the address is one that HttpRequest asks: HTTP or HTTPS with a host.
bool isHttpAddress(const QUrl& address);

/// An access manager that goes through the system's proxy, but never to reach this machine itself,
/// and keeps no cookies.
class HttpNetwork : public QNetworkAccessManager {
    Q_OBJECT
public:
    explicit HttpNetwork(QObject* parent = nullptr);
};

}  // namespace velorama

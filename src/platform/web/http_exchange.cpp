#include "platform/web/http_exchange.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QNetworkProxyFactory>
#include <QSslSocket>

#include <utility>

namespace velorama {
namespace {

constexpr qint64 mostHead = 64 * 1024;   // bytes
constexpr qint64 readAhead = 64 * 1024;  // bytes
constexpr quint16 httpPort = 80;
constexpr quint16 httpsPort = 443;

bool isSecure(const QUrl& address) {
    return address.scheme() == QLatin1String("https");
}

bool isThisMachine(const QString& host) {
    return host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
}

QNetworkProxy proxyFor(const QUrl& address) {
    const QNetworkProxy none(QNetworkProxy::NoProxy);
    if (isThisMachine(address.host())) {
        return none;
    }
    return QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(address)).value(0, none);
}

bool speaksHttp(const QNetworkProxy& proxy) {
    return proxy.type() == QNetworkProxy::HttpProxy ||
           proxy.type() == QNetworkProxy::HttpCachingProxy;
}

QByteArray proxyPassword(const QNetworkProxy& proxy) {
    if (proxy.user().isEmpty()) {
        return {};
    }
    return "Proxy-Authorization: Basic " +
           QString(proxy.user() + u':' + proxy.password()).toUtf8().toBase64() + "\r\n";
}

QByteArray pathOf(const QUrl& address) {
    constexpr auto rest = QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment;
    const QByteArray path = address.toEncoded(rest);
    return path.startsWith('/') ? path : "/" + path;
}

/// Just behind the empty line, or -1. Lines may lack the CR.
qsizetype endOfHead(const QByteArray& bytes, qsizetype from) {
    const qsizetype plain = bytes.indexOf("\n\n", from);
    const qsizetype full = bytes.indexOf("\n\r\n", from);
    if (full >= 0 && (plain < 0 || full < plain)) {
        return full + 3;
    }
    return plain < 0 ? -1 : plain + 2;
}

int statusOf(const QByteArray& head) {
    return head.left(head.indexOf('\n')).simplified().split(' ').value(1).toInt();
}

/// Comes before the answer, any number of times.
bool isInterim(int status) {
    return status >= 100 && status < 200;
}

bool hasNoBody(int status) {
    return status == 204 || status == 304;
}

}  // namespace

HttpExchange::HttpExchange(qint64 mostBytes, QObject* parent)
    : QObject(parent), mostBytes_(mostBytes) {}

void HttpExchange::start(const QUrl& address) {
    socket_ = isSecure(address) ? new QSslSocket(this) : new QTcpSocket(this);
    socket_->setReadBufferSize(readAhead);
    connect(socket_, &QTcpSocket::readyRead, this, &HttpExchange::read);
    connect(socket_, &QTcpSocket::errorOccurred, this, &HttpExchange::closed);
    connectTo(address);
}

HttpExchange::~HttpExchange() {
    if (socket_) {
        socket_->disconnect(this);
        socket_->abort();
    }
}

void HttpExchange::connectTo(const QUrl& address) {
    QNetworkProxy proxy = proxyFor(address);
    if (auto* secure = qobject_cast<QSslSocket*>(socket_)) {
        if (speaksHttp(proxy)) {
            proxy.setType(QNetworkProxy::HttpProxy);
        }
        secure->setProxy(proxy);
        connect(secure, &QSslSocket::encrypted, this,
                [this, address] { ask(address, pathOf(address), {}); });
        secure->connectToHostEncrypted(address.host(),
                                       static_cast<quint16>(address.port(httpsPort)));
        return;
    }
    const bool relayed = speaksHttp(proxy);
    const QByteArray target =
        relayed ? address.toEncoded(QUrl::RemoveUserInfo | QUrl::RemoveFragment) : pathOf(address);
    const QByteArray more = relayed ? proxyPassword(proxy) : QByteArray();
    connect(socket_, &QTcpSocket::connected, this,
            [this, address, target, more] { ask(address, target, more); });
    socket_->setProxy(relayed ? QNetworkProxy(QNetworkProxy::NoProxy) : proxy);
    socket_->connectToHost(relayed ? proxy.hostName() : address.host(),
                           relayed ? proxy.port() : static_cast<quint16>(address.port(httpPort)));
}

// Version 1.0 asks for a body in one piece. It is to come unpacked too: what comes is what counts
// against the limit, and a packed body could grow a thousandfold.
void HttpExchange::ask(const QUrl& address, const QByteArray& target, const QByteArray& more) {
    const QByteArray host =
        address.adjusted(QUrl::RemoveUserInfo).authority(QUrl::FullyEncoded).toLatin1();
    socket_->write("GET " + target + " HTTP/1.0\r\nHost: " + host +
                   "\r\nUser-Agent: " + QCoreApplication::applicationName().toUtf8() +
                   "\r\nAccept: */*\r\nAccept-Encoding: identity\r\nCache-Control: no-cache\r\n"
                   "Pragma: no-cache\r\nConnection: close\r\n" +
                   more + "\r\n");
}

void HttpExchange::read() {
    while (!done_ && !headRead_ && socket_->bytesAvailable() > 0) {
        readHead();
    }
    if (!done_ && headRead_) {
        readBody();
    }
}

void HttpExchange::readHead() {
    const qsizetype searched = qMax<qsizetype>(0, head_.size() - 2);
    head_ += socket_->read(mostHead - head_.size());
    qsizetype end = endOfHead(head_, searched);
    while (end >= 0 && isInterim(statusOf(head_))) {
        head_.remove(0, end);
        end = endOfHead(head_, 0);
    }
    if (end >= 0) {
        body_ = head_.mid(end);
        headRead_ = takeHead(head_.left(end));
    }
    if (!headRead_ && (end >= 0 || head_.size() >= mostHead)) {
        finish(false);
    }
}

bool HttpExchange::takeHead(const QByteArray& head) {
    const QList<QByteArray> lines = head.split('\n');
    if (!lines.first().startsWith("HTTP/1.")) {
        return false;
    }
    status_ = statusOf(head);
    for (qsizetype line = lines.size() - 1; line > 0; --line) {
        const qsizetype colon = lines.at(line).indexOf(':');
        if (colon > 0) {
            headers_.insert(lines.at(line).left(colon).trimmed().toLower(),
                            lines.at(line).mid(colon + 1).trimmed());
        }
    }
    bool understood = true;
    if (hasNoBody(status_)) {
        length_ = 0;
    } else if (headers_.contains("content-length")) {
        length_ = header("content-length").toLongLong(&understood);
    }
    return understood && length_.value_or(0) >= 0 && !headers_.contains("transfer-encoding");
}

void HttpExchange::readBody() {
    // One byte more than is wanted tells that there is more.
    body_ += socket_->read(qMax<qint64>(0, mostBytes_ + 1 - body_.size()));
    if (length_ && body_.size() > *length_) {
        body_.truncate(*length_);
    }
    if (body_.size() > mostBytes_) {
        body_.truncate(mostBytes_);
        cut_ = true;
        finish(true);
    } else if (length_ && body_.size() == *length_) {
        finish(true);
    }
}

void HttpExchange::closed() {
    if (socket_->bytesAvailable() > 0) {
        read();
    }
    finish(headRead_ && !length_ && socket_->error() == QAbstractSocket::RemoteHostClosedError);
}

void HttpExchange::finish(bool whole) {
    if (!std::exchange(done_, true)) {
        socket_->disconnect(this);
        socket_->abort();
        emit finished(whole);
    }
}

}  // namespace velorama

#include "platform/web/http_exchange.h"

#include "platform/process/detached_thread.h"

#include <QCoreApplication>
#include <QFutureWatcher>
#include <QHostAddress>
#include <QNetworkProxyFactory>
#include <QPromise>
#include <QSslSocket>

#include <utility>

namespace velorama {
namespace {

constexpr qint64 readAhead = 64LL * 1024;  // bytes
constexpr quint16 httpPort = 80;
constexpr quint16 httpsPort = 443;

bool isSecure(const QUrl& address) {
    return address.scheme() == QLatin1String("https");
}

bool isThisMachine(const QString& host) {
    return host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
}

/// What the system tells on a thread that nobody waits for.
QFuture<QNetworkProxy> proxyFor(const QUrl& address) {
    QPromise<QNetworkProxy> promise;
    QFuture<QNetworkProxy> proxy = promise.future();
    promise.start();
    startDetached([promise = std::move(promise), address]() mutable {
        const QNetworkProxy none(QNetworkProxy::NoProxy);
        promise.addResult(
            QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(address)).value(0, none));
        promise.finish();
    });
    return proxy;
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

}  // namespace

HttpExchange::HttpExchange(qint64 mostBytes, QObject* parent)
    : QObject(parent), reading_(mostBytes) {}

void HttpExchange::start(const QUrl& address) {
    if (isThisMachine(address.host())) {
        connectBy(QNetworkProxy(QNetworkProxy::NoProxy), address);
        return;
    }
    // The system may have to read a script first that tells the proxy, from a server that hangs.
    auto* told = new QFutureWatcher<QNetworkProxy>(this);
    connect(told, &QFutureWatcher<QNetworkProxy>::finished, this, [this, told, address] {
        told->deleteLater();
        if (told->future().resultCount() > 0) {
            connectBy(told->result(), address);
        } else {
            // No thread was to be had.
            finish(false);
        }
    });
    told->setFuture(proxyFor(address));
}

void HttpExchange::connectBy(const QNetworkProxy& proxy, const QUrl& address) {
    socket_ = isSecure(address) ? new QSslSocket(this) : new QTcpSocket(this);
    socket_->setReadBufferSize(readAhead);
    connect(socket_, &QTcpSocket::readyRead, this, &HttpExchange::read);
    connect(socket_, &QTcpSocket::errorOccurred, this, &HttpExchange::closed);
    connectTo(proxy, address);
}

HttpExchange::~HttpExchange() {
    if (socket_) {
        socket_->disconnect(this);
        socket_->abort();
    }
}

void HttpExchange::connectTo(QNetworkProxy proxy, const QUrl& address) {
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
    auto state = HttpReading::State::More;
    while (state == HttpReading::State::More && socket_->bytesAvailable() > 0) {
        state = reading_.take(socket_->read(readAhead));
    }
    if (state != HttpReading::State::More) {
        finish(state == HttpReading::State::Whole);
    }
}

void HttpExchange::closed() {
    read();
    finish(reading_.close() == HttpReading::State::Whole &&
           socket_->error() == QAbstractSocket::RemoteHostClosedError);
}

void HttpExchange::finish(bool whole) {
    if (!std::exchange(done_, true)) {
        if (socket_) {
            socket_->disconnect(this);
            socket_->abort();
        }
        emit finished(whole);
    }
}

}  // namespace velorama

#include "platform/http_request.h"

#include <QCoreApplication>
#include <QHostAddress>
#include <QNetworkProxyFactory>

#include <utility>

namespace velorama {
namespace {

constexpr int FirstErrorStatus = 400;

bool isThisMachine(const QString& host) {
    return host == QLatin1String("localhost") || QHostAddress(host).isLoopback();
}

class SystemProxies : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        if (isThisMachine(query.peerHostName())) {
            return {QNetworkProxy(QNetworkProxy::NoProxy)};
        }
        return systemProxyForQuery(query);
    }
};

QNetworkRequest plainRequest(const QUrl& address, const HttpLimits& limits) {
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(limits.redirects);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    // What comes is what counts against the limit: a packed body could grow a thousandfold.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("User-Agent", QCoreApplication::applicationName().toUtf8());
    return request;
}

}  // namespace

bool isHttpAddress(const QUrl& address) {
    const QString scheme = address.scheme();
    return (scheme == QLatin1String("http") || scheme == QLatin1String("https")) &&
           !address.host().isEmpty();
}

HttpNetwork::HttpNetwork(QObject* parent) : QNetworkAccessManager(parent) {
    setProxyFactory(new SystemProxies);
}

HttpRequest::HttpRequest(QNetworkAccessManager& network, const QUrl& address,
                         const HttpLimits& limits, QObject* parent)
    : QObject(parent), limits_(limits) {
    answer_.address = address;
    time_.setSingleShot(true);
    connect(&time_, &QTimer::timeout, this, [this] { end(false); });
    if (isHttpAddress(address)) {
        time_.start(limits.time);
        follow(network.get(plainRequest(address, limits)));
    } else {
        time_.start(0);
    }
}

HttpRequest::~HttpRequest() {
    letGo();
}

void HttpRequest::follow(QNetworkReply* reply) {
    reply_ = reply;
    // One byte more than is wanted tells that there is more.
    reply->setReadBufferSize(limits_.bytes + 1);
    connect(reply, &QNetworkReply::readyRead, this, &HttpRequest::readMore);
    connect(reply, &QNetworkReply::finished, this, [this] {
        readMore();
        if (reply_) {
            end(reply_->error() == QNetworkReply::NoError);
        }
    });
}

void HttpRequest::readMore() {
    if (!reply_) {
        return;
    }
    answer_.body += reply_->read(limits_.bytes + 1 - answer_.body.size());
    if (answer_.body.size() > limits_.bytes) {
        answer_.body.truncate(limits_.bytes);
        answer_.cut = true;
        end(true);
    }
}

void HttpRequest::end(bool ok) {
    if (reply_) {
        const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        answer_.ok = ok && status < FirstErrorStatus;
        answer_.address = reply_->url();
        answer_.contentType = reply_->rawHeader("Content-Type");
    }
    if (!answer_.ok) {
        answer_.body.clear();
        answer_.cut = false;
    }
    letGo();
    emit finished(answer_);
}

void HttpRequest::letGo() {
    time_.stop();
    if (QNetworkReply* const reply = std::exchange(reply_, {})) {
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
    }
}

}  // namespace velorama

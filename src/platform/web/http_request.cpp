#include "platform/web/http_request.h"

#include "platform/web/http_exchange.h"

namespace velorama {
namespace {

bool isRedirect(int status) {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

bool isSecure(const QUrl& address) {
    return address.scheme() == QLatin1String("https");
}

/// -1 stands for the one that is usual for the scheme.
int givenPort(const QUrl& address) {
    const int usual = isSecure(address) ? 443 : 80;
    return address.port() == usual ? -1 : address.port();
}

}  // namespace

bool isHttpAddress(const QUrl& address) {
    const QString scheme = address.scheme();
    return (scheme == QLatin1String("http") || scheme == QLatin1String("https")) &&
           !address.host().isEmpty();
}

bool isSameServer(const QUrl& one, const QUrl& other) {
    return one.host() == other.host() && givenPort(one) == givenPort(other);
}

HttpRequest::HttpRequest(const QUrl& address, const HttpLimits& limits, QObject* parent)
    : QObject(parent), limits_(limits) {
    answer_.address = address;
    time_.setSingleShot(true);
    connect(&time_, &QTimer::timeout, this, [this] { end(false); });
    if (isHttpAddress(address)) {
        time_.start(limits.time);
        ask(address);
    } else {
        time_.start(0);
    }
}

HttpRequest::~HttpRequest() {
    delete exchange_;
}

void HttpRequest::ask(const QUrl& address) {
    delete exchange_;
    answer_.address = address;
    exchange_ = new HttpExchange(limits_.bytes, this);
    // Queued, since it may fail before `start` returns: whoever asks cannot be told inside that.
    connect(exchange_, &HttpExchange::finished, this, &HttpRequest::take, Qt::QueuedConnection);
    exchange_->start(address);
}

void HttpRequest::take(bool whole) {
    if (!exchange_) {
        return;
    }
    const QByteArray location = exchange_->answer().header("location");
    if (!whole || !isRedirect(exchange_->answer().status()) || location.isEmpty()) {
        end(whole && exchange_->answer().status() / 100 == 2);
        return;
    }
    const QUrl target = answer_.address.resolved(QUrl(QString::fromUtf8(location)));
    if (mayGoTo(target)) {
        ask(target);
    } else {
        end(false);
    }
}

bool HttpRequest::mayGoTo(const QUrl& target) {
    const bool lessSafe = isSecure(answer_.address) && !isSecure(target);
    return ++redirects_ <= limits_.redirects && isHttpAddress(target) && !lessSafe &&
           (limits_.otherServers || isSameServer(answer_.address, target));
}

void HttpRequest::end(bool ok) {
    time_.stop();
    answer_.ok = ok;
    if (exchange_) {
        answer_.contentType = exchange_->answer().header("content-type");
        answer_.body = ok ? exchange_->answer().body() : QByteArray();
        answer_.cut = ok && exchange_->answer().isCut();
        delete exchange_;
    }
    emit finished(answer_);
}

}  // namespace velorama

#include "platform/web/http_request.h"

#include <QHostAddress>
#include <QNetworkProxyFactory>

#include <curl/curl.h>

#include <csignal>
#include <limits>
#include <system_error>
#include <thread>

namespace velorama {
namespace {

constexpr size_t mostHead = 64 * 1024;  // bytes

bool isSecure(const QUrl& address) {
    return address.scheme() == QLatin1String("https");
}

/// -1 stands for the one that is usual for the scheme.
int givenPort(const QUrl& address) {
    const int usual = isSecure(address) ? 443 : 80;
    return address.port() == usual ? -1 : address.port();
}

/// Empty for none. libcurl itself knows those of the environment, but not those of the desktop.
QByteArray proxyFor(const QUrl& address) {
    if (address.host() == QLatin1String("localhost") || QHostAddress(address.host()).isLoopback()) {
        return {};
    }
    const auto proxy =
        QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(address)).value(0);
    const bool socks = proxy.type() == QNetworkProxy::Socks5Proxy;
    QUrl url(socks ? QStringLiteral("socks5h:") : QStringLiteral("http:"));
    url.setHost(proxy.hostName());
    url.setPort(proxy.port());
    url.setUserName(proxy.user());
    url.setPassword(proxy.password());
    return proxy.hostName().isEmpty() ? QByteArray() : url.toEncoded();
}

/// A body is to come unpacked, since what comes is what counts against the limit: a packed one
/// could grow a thousandfold.
curl_slist* requestLines() {
    curl_slist* list = nullptr;
    for (const char* line : {"Accept-Encoding: identity", "Cache-Control: no-cache",
                             "Pragma: no-cache", "Connection: close", "User-Agent: velorama"}) {
        list = curl_slist_append(list, line);
    }
    return list;
}

}  // namespace

/// libcurl's own, with the thread that works for it.
struct HttpRequest::Transfer {
    explicit Transfer(HttpRequest& owner);
    ~Transfer();
    /// Whether the answer was read as far as it is wanted.
    bool run(const std::stop_token& stop);
    static size_t takeHead(const char* line, size_t, size_t count, void* transfer);
    static size_t takeBody(const char* bytes, size_t, size_t count, void* transfer);

    HttpRequest& request;
    CURLM* multi = curl_multi_init();
    CURL* easy = curl_easy_init();
    size_t head = 0;  // bytes, of redirects and of what comes before the answer too
    bool headRead = false;
    QObject told;  // takes what the thread says to its grave
    std::jthread thread;
};

HttpRequest::Transfer::Transfer(HttpRequest& owner) : request(owner) {
    static curl_slist* const lines = requestLines();
    // A server that has gone is no end of the program. Qt's own sockets set the same.
    std::signal(SIGPIPE, SIG_IGN);
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    // The end waits for no name that is still looked up.
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1});
    curl_easy_setopt(easy, CURLOPT_HTTPHEADER, lines);
    // Makes a length past all numbers an error; it would count as none else.
    curl_easy_setopt(easy, CURLOPT_MAXFILESIZE_LARGE, std::numeric_limits<curl_off_t>::max());
    curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
    curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &Transfer::takeHead);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &Transfer::takeBody);
}

HttpRequest::Transfer::~Transfer() {
    thread.request_stop();
    curl_multi_wakeup(multi);
    thread = {};
    curl_multi_remove_handle(multi, easy);
    curl_easy_cleanup(easy);
    curl_multi_cleanup(multi);
}

bool HttpRequest::Transfer::run(const std::stop_token& stop) {
    constexpr int longest = 1000;  // ms
    int count = 0;
    while (curl_multi_perform(multi, &count) == CURLM_OK && count > 0 && !stop.stop_requested()) {
        curl_multi_poll(multi, nullptr, 0, longest, nullptr);
    }
    const CURLMsg* const message = curl_multi_info_read(multi, &count);
    // A connection that ends within a head is no error to libcurl.
    return request.answer_.cut || (message && message->data.result == CURLE_OK && headRead);
}

size_t HttpRequest::Transfer::takeHead(const char* line, size_t, size_t count, void* transfer) {
    auto& own = *static_cast<Transfer*>(transfer);
    if (QByteArrayView(line, static_cast<qsizetype>(count)).startsWith("HTTP/")) {
        own.headRead = false;
    }
    own.headRead |= *line == '\r' || *line == '\n';
    return (own.head += count) > mostHead ? 0 : count;
}

size_t HttpRequest::Transfer::takeBody(const char* bytes, size_t, size_t count, void* transfer) {
    const HttpRequest& request = static_cast<Transfer*>(transfer)->request;
    HttpAnswer& answer = static_cast<Transfer*>(transfer)->request.answer_;
    const qint64 room = request.limits_.bytes - answer.body.size();
    answer.cut = static_cast<qint64>(count) > room;
    answer.body.append(bytes, answer.cut ? room : static_cast<qint64>(count));
    return answer.cut ? 0 : count;
}

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
    time_.setSingleShot(true);
    connect(&time_, &QTimer::timeout, this, [this] {
        transfer_.reset();
        if (!answer_.ok) {
            answer_ = {false, false, answer_.address, {}, {}};
        }
        emit finished(answer_);
    });
    answer_.address = address;
    if (isHttpAddress(address)) {
        time_.start(limits.time);
        transfer_ = std::make_unique<Transfer>(*this);
        ask(address);
    } else {
        time_.start(0);
    }
}

HttpRequest::~HttpRequest() = default;

void HttpRequest::ask(const QUrl& address) {
    constexpr auto unsent = QUrl::RemoveUserInfo | QUrl::RemoveFragment;
    answer_ = {false, false, address, {}, {}};
    Transfer& own = *transfer_;
    curl_multi_remove_handle(own.multi, own.easy);
    curl_easy_setopt(own.easy, CURLOPT_URL, address.toEncoded(unsent).constData());
    curl_easy_setopt(own.easy, CURLOPT_PROXY, proxyFor(address).constData());
    curl_multi_add_handle(own.multi, own.easy);
    try {
        own.thread = std::jthread([this, &own](const std::stop_token& stop) {
            const auto told = [this, whole = own.run(stop)] { end(whole); };
            QMetaObject::invokeMethod(&own.told, told, Qt::QueuedConnection);
        });
    } catch (const std::system_error&) {
        time_.start(0);
    }
}

void HttpRequest::end(bool whole) {
    long status = 0;
    const char* type = nullptr;
    curl_header* location = nullptr;
    curl_easy_getinfo(transfer_->easy, CURLINFO_RESPONSE_CODE, &status);
    curl_easy_getinfo(transfer_->easy, CURLINFO_CONTENT_TYPE, &type);
    curl_easy_header(transfer_->easy, "location", 0, CURLH_HEADER, -1, &location);
    if (whole && status / 100 == 3 && location) {
        const QUrl next = answer_.address.resolved(QUrl(QString::fromUtf8(location->value)));
        if (mayGoTo(next)) {
            ask(next);
            return;
        }
    }
    answer_.ok = whole && status / 100 == 2;
    answer_.contentType = type;
    time_.start(0);
}

bool HttpRequest::mayGoTo(const QUrl& target) {
    const bool lessSafe = isSecure(answer_.address) && !isSecure(target);
    return isHttpAddress(target) && !lessSafe && limits_.redirects-- > 0 &&
           (limits_.otherServers || isSameServer(answer_.address, target));
}

}  // namespace velorama

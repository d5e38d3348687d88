#include "platform/web/http_fetch.h"

#include "platform/web/http_exchange.h"
#include "support/http_server.h"
#include "support/waiting.h"

#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <semaphore>
#include <thread>

namespace velorama {
namespace {

using namespace std::chrono_literals;

/// A server on a thread of its own that sends a beginning, and then the same bytes again and again
/// as fast as they are taken, until nobody takes them any more.
class FloodServer {
public:
    FloodServer(const QByteArray& beginning, const QByteArray& bytes) {
        server_.listen(QHostAddress::LocalHost);
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [=, this] {
            QTcpSocket* const socket = server_.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [=, this] {
                if (socket->readAll().endsWith("\r\n\r\n") && !thread_.joinable()) {
                    const int end = dup(static_cast<int>(socket->socketDescriptor()));
                    thread_ = std::thread([=, this] { flood(end, beginning, bytes); });
                }
            });
        });
    }
    FloodServer(const FloodServer&) = delete;
    FloodServer& operator=(const FloodServer&) = delete;
    ~FloodServer() {
        stopped_ = true;
        if (thread_.joinable()) {
            thread_.join();
        }
    }

    QString address() const {
        return QStringLiteral("http://127.0.0.1:%1/v.txt").arg(server_.serverPort());
    }
    /// Nobody takes the bytes any more.
    bool hasEnded() const { return ended_; }
    qint64 sent() const { return sent_; }

private:
    void flood(int socket, const QByteArray& beginning, const QByteArray& bytes) {
        QByteArray next = beginning;
        while (!stopped_ && !ended_) {
            pollfd ready{socket, POLLOUT, 0};
            poll(&ready, 1, 100);
            const ssize_t taken = send(socket, next.constData(), static_cast<size_t>(next.size()),
                                       MSG_NOSIGNAL | MSG_DONTWAIT);
            if (taken > 0) {
                sent_ += taken;
                next = next.size() > taken ? next.mid(taken) : bytes;
            }
            ended_ = taken < 0 && errno != EAGAIN && errno != EINTR;
        }
        close(socket);
    }

    QTcpServer server_;
    std::thread thread_;
    std::atomic<bool> stopped_ = false;
    std::atomic<bool> ended_ = false;
    std::atomic<qint64> sent_ = 0;
};

class Fetch : public testing::Test {
protected:
    QString get(const QString& path) { return fetch.OpenURL(server.address(path)); }
    /// A limit that runs out within a test, where running out is what the test is about.
    static HttpLimits shortTime() {
        HttpLimits limits;
        limits.time = 150ms;
        return limits;
    }

    test::HttpServer server;
    NetworkFetch fetch;
};

TEST_F(Fetch, BringsTheWholeBody) {
    server.answer(QStringLiteral("/v.txt"), "1.003002\r\n", "text/plain");
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QStringLiteral("1.003002\r\n"));
    EXPECT_EQ(server.asked, QStringList({QStringLiteral("/v.txt")}));
}

TEST_F(Fetch, AsksAnewEachTime) {
    server.answer(QStringLiteral("/v.txt"), "1", "text/plain", "200 OK",
                  "Cache-Control: max-age=1000\r\n");
    get(QStringLiteral("/v.txt"));
    server.answer(QStringLiteral("/v.txt"), "2");
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QStringLiteral("2"));
}

TEST_F(Fetch, ReadsUtf8WithAndWithoutItsMark) {
    server.answer(QStringLiteral("/plain"), "\xC3\xA9");
    server.answer(QStringLiteral("/marked"),
                  "\xEF\xBB\xBF"
                  "1.5");
    EXPECT_EQ(get(QStringLiteral("/plain")), QString(QChar(0xE9)));
    EXPECT_EQ(get(QStringLiteral("/marked")), QStringLiteral("1.5"));
}

TEST_F(Fetch, AnErrorOfTheServerIsNoAnswer) {
    for (const char* status : {"400 Bad Request", "404 Not Found", "500 Oops", "503 Later"}) {
        server.answer(QStringLiteral("/v.txt"), "9.000000", "text/plain", status);
        EXPECT_EQ(get(QStringLiteral("/v.txt")), QString()) << status;
    }
}

TEST_F(Fetch, InterimHeadsArePassedOver) {
    server.behave(QStringLiteral("/v.txt"), [](QTcpSocket& socket) {
        socket.write(
            "HTTP/1.1 103 Early Hints\r\nLink: </a.css>\r\nContent-Length: 9\r\n\r\n"
            "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 20");
        socket.flush();
        QTimer::singleShot(0, &socket,
                           [&socket] { socket.write("0 OK\r\nContent-Length: 3\r\n\r\n1.5"); });
    });
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QStringLiteral("1.5"));
}

TEST_F(Fetch, InterimHeadsWithoutAnEndAreNoAnswer) {
    const FloodServer flood("HTTP/1.1 100 Continue\r\n\r\n", "HTTP/1.1 100 Continue\r\n\r\n");
    NetworkFetch hurried(shortTime());
    EXPECT_EQ(hurried.OpenURL(flood.address()), QString());
    EXPECT_TRUE(QTest::qWaitFor([&flood] { return flood.hasEnded(); }, 20000));
}

/// The connection stays open, and the length may be that of what was asked about.
TEST_F(Fetch, AnAnswerThatHasNoBodyEndsWithItsHead) {
    for (const char* head : {"HTTP/1.1 204 No Content\r\n\r\n", "HTTP/1.1 304 Not Modified\r\n\r\n",
                             "HTTP/1.1 304 Not Modified\r\nContent-Length: 12\r\n\r\n"}) {
        server.behave(QStringLiteral("/v.txt"), [head](QTcpSocket& socket) { socket.write(head); });
        HttpExchange exchange(1024);
        std::optional<bool> whole;
        QObject::connect(&exchange, &HttpExchange::finished, [&whole](bool is) { whole = is; });
        exchange.start(QUrl(server.address(QStringLiteral("/v.txt"))));
        EXPECT_TRUE(QTest::qWaitFor([&whole] { return whole.has_value(); }, 20000)) << head;
        EXPECT_EQ(whole, true) << head;
        EXPECT_EQ(exchange.answer().body(), QByteArray());
    }
}

TEST_F(Fetch, ARefusedConnectionIsNoAnswer) {
    server.shut();
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QString());
}

TEST_F(Fetch, WhatIsNoWebAddressIsNotAsked) {
    for (const char* address : {"", "file:///etc/hostname", "qrc:/icons/help.svg", "/etc/hostname",
                                "ftp://127.0.0.1/x", "http://", "http:///x", "data:,1.5"}) {
        EXPECT_EQ(fetch.OpenURL(QString::fromLatin1(address)), QString()) << address;
    }
}

TEST_F(Fetch, ASilentServerRunsOutOfTime) {
    server.behave(QStringLiteral("/v.txt"), [](QTcpSocket&) {});
    NetworkFetch hurried(shortTime());
    EXPECT_EQ(hurried.OpenURL(server.address(QStringLiteral("/v.txt"))), QString());
    EXPECT_EQ(server.asked.size(), 1);
}

TEST_F(Fetch, ASlowDripRunsOutOfTimeHoweverSteadyItIs) {
    int drops = 0;
    server.behave(QStringLiteral("/v.txt"), [&drops](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n");
        auto* drip = new QTimer(&socket);
        QObject::connect(drip, &QTimer::timeout, &socket, [&drops, &socket] {
            ++drops;
            socket.write("1");
        });
        drip->start(5);
    });
    NetworkFetch hurried(shortTime());
    EXPECT_EQ(hurried.OpenURL(server.address(QStringLiteral("/v.txt"))), QString());
    EXPECT_GT(drops, 1);
}

TEST_F(Fetch, ADripOfHeadersRunsOutOfTimeAsWell) {
    int drops = 0;
    server.behave(QStringLiteral("/v.txt"), [&drops](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\n");
        auto* drip = new QTimer(&socket);
        QObject::connect(drip, &QTimer::timeout, &socket, [&drops, &socket] {
            ++drops;
            socket.write("X-More: yes\r\n");
        });
        drip->start(5);
    });
    NetworkFetch hurried(shortTime());
    EXPECT_EQ(hurried.OpenURL(server.address(QStringLiteral("/v.txt"))), QString());
    EXPECT_GT(drops, 1);
}

// The connection is gone with the call: nothing goes on reading behind it.
TEST_F(Fetch, HeadersWithoutAnEndEndWithTheCall) {
    const QByteArray more = QByteArray("X-More: yes\r\n").repeated(1000);
    const struct {
        QByteArray beginning;
        QByteArray bytes;
    } rows[] = {
        {"HTTP/1.1 200 OK\r\n", more},
        {"HTTP/1.1 200 OK\r\nX-More: ", QByteArray(10000, 'x')},
        {"HTTP/1.1 ", QByteArray(10000, '2')},
        {"HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n", QByteArray(10000, '0')},
        {"HTTP/1.1 100 Continue\r\n\r\n",
         QByteArray("HTTP/1.1 100 Continue\r\n\r\n").repeated(500)},
    };
    for (const auto& row : rows) {
        FloodServer flood(row.beginning, row.bytes);
        NetworkFetch hurried(shortTime());
        EXPECT_EQ(hurried.OpenURL(flood.address()), QString());
        EXPECT_TRUE(QTest::qWaitFor([&flood] { return flood.hasEnded(); }, 20000))
            << row.beginning.toStdString();
        // What stood in the buffers of the two sockets.
        EXPECT_LT(flood.sent(), 32 * 1024 * 1024) << row.beginning.toStdString();
    }
}

TEST_F(Fetch, HeadsOfAllFormsAreRead) {
    for (const char* head :
         {"HTTP/1.1 200 OK\r\n\r\n", "HTTP/1.0 200\r\nX:y\r\n\r\n", "HTTP/1.1 200 OK\n\n",
          "HTTP/1.1 200 OK\ncontent-LENGTH :  3 \n\n", "HTTP/1.1 203 \r\nno header\r\n:\r\n\r\n"}) {
        server.behave(QStringLiteral("/v.txt"), [head](QTcpSocket& socket) {
            socket.write(head);
            socket.write("1.5");
            socket.disconnectFromHost();
        });
        EXPECT_EQ(get(QStringLiteral("/v.txt")), QStringLiteral("1.5")) << head;
    }
}

TEST_F(Fetch, HeadsThatSayNothingUsefulAreNoAnswer) {
    for (const char* head :
         {"", "\r\n\r\n", "HTTP/1.1\r\n\r\n", "HTTP/1.1 two\r\n\r\n", "HTTP/1.1 302 Found\r\n\r\n",
          "HTTP/1.1 200 OK\r\nContent-Length: -1\r\n\r\n", "HTTP/1.1 200 OK\r\n",
          "HTTP/1.1 200 OK\r\nContent-Length: 99999999999999999999\r\n\r\n"}) {
        server.behave(QStringLiteral("/v.txt"), [head](QTcpSocket& socket) {
            socket.write(head);
            socket.write("1.5");
            socket.disconnectFromHost();
        });
        EXPECT_EQ(get(QStringLiteral("/v.txt")), QString()) << head;
    }
}

TEST_F(Fetch, AHeadInPiecesIsRead) {
    server.behave(QStringLiteral("/v.txt"), [](QTcpSocket& socket) {
        const QByteArray answer = "HTTP/1.1 200 OK\r\nContent-Length: 3\r\n\r\n1.5";
        auto* timer = new QTimer(&socket);
        QObject::connect(timer, &QTimer::timeout, &socket, [&socket, answer, at = 0]() mutable {
            if (at < answer.size()) {
                socket.write(answer.mid(at++, 1));
            }
        });
        timer->start(0);
    });
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QStringLiteral("1.5"));
}

TEST_F(Fetch, ARedirectMayBeBoundToItsServer) {
    HttpLimits limits;
    limits.otherServers = false;
    NetworkFetch bound(limits);
    test::HttpServer other;
    other.answer(QStringLiteral("/v.txt"), "1.5");
    server.redirect(QStringLiteral("/far"), other.address(QStringLiteral("/v.txt")));
    server.redirect(QStringLiteral("/near"), QStringLiteral("v.txt"));
    server.answer(QStringLiteral("/v.txt"), "1.6");
    EXPECT_EQ(bound.OpenURL(server.address(QStringLiteral("/far"))), QString());
    EXPECT_TRUE(other.asked.isEmpty());
    EXPECT_EQ(bound.OpenURL(server.address(QStringLiteral("/near"))), QStringLiteral("1.6"));
    EXPECT_EQ(get(QStringLiteral("/far")), QStringLiteral("1.5"));
}

TEST_F(Fetch, OtherMachinesAreAskedThroughTheSystemsProxy) {
    const QByteArray before = qgetenv("http_proxy");
    qputenv("http_proxy", server.address(QString()).toLatin1());
    server.answer(QStringLiteral("http://velorama.invalid/v.txt?a=b"), "1.5");
    EXPECT_EQ(fetch.OpenURL(QStringLiteral("http://velorama.invalid/v.txt?a=b#c")),
              QStringLiteral("1.5"));
    test::HttpServer here;
    here.answer(QStringLiteral("/v.txt"), "1.6");
    EXPECT_EQ(fetch.OpenURL(here.address(QStringLiteral("/v.txt"))), QStringLiteral("1.6"));
    before.isNull() ? qunsetenv("http_proxy") : qputenv("http_proxy", before);
}

/// A place on this machine that takes connections and never says a word. It goes after half a
/// minute, so that who waits for it comes back then.
class MutePlace {
public:
    MutePlace() {
        listen_ = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in at{};
        at.sin_family = AF_INET;
        at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof at;
        EXPECT_EQ(::bind(listen_, reinterpret_cast<sockaddr*>(&at), size), 0);
        EXPECT_EQ(::listen(listen_, 5), 0);
        EXPECT_EQ(::getsockname(listen_, reinterpret_cast<sockaddr*>(&at), &size), 0);
        port_ = ntohs(at.sin_port);
        goes_ = std::thread([this] {
            hasGone_ = !left_.try_acquire_for(30s);
            ::close(listen_);
        });
    }
    MutePlace(const MutePlace&) = delete;
    MutePlace& operator=(const MutePlace&) = delete;
    ~MutePlace() {
        left_.release();
        goes_.join();
    }
    int port() const { return port_; }
    bool hasGone() const { return hasGone_; }
    /// Somebody has asked.
    bool isAsked() const {
        pollfd asked{listen_, POLLIN, 0};
        return ::poll(&asked, 1, 0) == 1;
    }

private:
    int listen_ = -1;
    int port_ = 0;
    std::binary_semaphore left_{0};
    std::atomic<bool> hasGone_ = false;
    std::thread goes_;
};

// The system reads a script that tells the proxy, from a server that may hang.
TEST_F(Fetch, AProxyThatIsNotToldIsNotWaitedForLongerThanAllElse) {
    const MutePlace script;
    const QByteArray before = qgetenv("http_proxy");
    qputenv("http_proxy",
            QStringLiteral("pac+http://127.0.0.1:%1/wpad.dat").arg(script.port()).toLatin1());
    HttpLimits limits;
    limits.time = 100ms;
    NetworkFetch brief(limits);
    EXPECT_EQ(brief.OpenURL(QStringLiteral("http://velorama.invalid/v.txt")), QString());
    EXPECT_FALSE(script.hasGone());
    EXPECT_TRUE(test::comesTrue([&script] { return script.isAsked(); }))
        << "no script is asked for here";
    before.isNull() ? qunsetenv("http_proxy") : qputenv("http_proxy", before);
}

TEST(HttpAddress, AServerIsItsHostAndItsPort) {
    const auto same = [](const char* one, const char* other) {
        return isSameServer(QUrl(QString::fromLatin1(one)), QUrl(QString::fromLatin1(other)));
    };
    EXPECT_TRUE(same("http://a.invalid/x", "http://A.invalid:80/y"));
    EXPECT_TRUE(same("http://a.invalid/", "https://a.invalid/"));
    EXPECT_TRUE(same("http://a.invalid:81/", "http://a.invalid:81/"));
    EXPECT_FALSE(same("http://a.invalid/", "http://a.invalid:81/"));
    EXPECT_FALSE(same("http://a.invalid/", "http://b.a.invalid/"));
    EXPECT_FALSE(same("http://a.invalid/", "http://b.invalid/"));
}

TEST_F(Fetch, ABodyThatBreaksOffIsNoAnswer) {
    server.behave(QStringLiteral("/v.txt"), [](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n9.0");
        socket.disconnectFromHost();
    });
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QString());
}

TEST_F(Fetch, WhatSpeaksNoHttpIsNoAnswer) {
    server.behave(QStringLiteral("/v.txt"), [](QTcpSocket& socket) {
        socket.write("220 mail.invalid ready\r\n");
        socket.disconnectFromHost();
    });
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QString());
}

TEST_F(Fetch, AGigabyteIsReadAsFarAsTheLimit) {
    constexpr qint64 gigabyte = 1024LL * 1024 * 1024;
    server.pour(QStringLiteral("/v.txt"), gigabyte);
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QString(64LL * 1024, QLatin1Char('1')));
    // What stood in the buffers of the two sockets.
    EXPECT_LT(server.poured, 32 * 1024 * 1024);
}

TEST_F(Fetch, ABodyOfExactlyTheLimitIsWhole) {
    HttpLimits limits;
    limits.bytes = 4;
    NetworkFetch small(limits);
    server.answer(QStringLiteral("/four"), "1234");
    server.answer(QStringLiteral("/five"), "12345");
    EXPECT_EQ(small.OpenURL(server.address(QStringLiteral("/four"))), QStringLiteral("1234"));
    EXPECT_EQ(small.OpenURL(server.address(QStringLiteral("/five"))), QStringLiteral("1234"));
}

TEST_F(Fetch, FollowsARedirect) {
    server.redirect(QStringLiteral("/old"), server.address(QStringLiteral("/new")));
    server.answer(QStringLiteral("/new"), "1.5");
    EXPECT_EQ(get(QStringLiteral("/old")), QStringLiteral("1.5"));
}

TEST_F(Fetch, ALoopOfRedirectsEnds) {
    server.redirect(QStringLiteral("/a"), server.address(QStringLiteral("/b")));
    server.redirect(QStringLiteral("/b"), server.address(QStringLiteral("/a")));
    EXPECT_EQ(get(QStringLiteral("/a")), QString());
    EXPECT_LT(server.asked.size(), 20);
}

TEST_F(Fetch, ARedirectToAFileIsNotFollowed) {
    for (const char* target : {"file:///etc/hostname", "qrc:/icons/help.svg", "ftp://127.0.0.1/"}) {
        server.redirect(QStringLiteral("/v.txt"), QString::fromLatin1(target));
        EXPECT_EQ(get(QStringLiteral("/v.txt")), QString()) << target;
    }
}

TEST_F(Fetch, TimersRunMeanwhileAndASecondCallComesBackAtOnce) {
    bool ran = false;
    server.behave(QStringLiteral("/v.txt"), [&](QTcpSocket& socket) {
        QTimer::singleShot(0, &socket, [&] {
            ran = true;
            EXPECT_EQ(get(QStringLiteral("/other")), QString());
            socket.write("HTTP/1.1 200 OK\r\nContent-Length: 1\r\n\r\n7");
        });
    });
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QStringLiteral("7"));
    EXPECT_TRUE(ran);
    EXPECT_EQ(server.asked.size(), 1);
}

TEST_F(Fetch, CancelEndsTheWaiting) {
    fetch.Cancel();
    server.behave(QStringLiteral("/v.txt"), [this](QTcpSocket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\n12345");
        QTimer::singleShot(0, &socket, [this] { fetch.Cancel(); });
    });
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QString());
    server.answer(QStringLiteral("/v.txt"), "8");
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QStringLiteral("8"));
}

}  // namespace
}  // namespace velorama

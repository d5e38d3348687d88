#include "platform/http_fetch.h"

#include "support/http_server.h"

#include <QTimer>

#include <gtest/gtest.h>

namespace velorama {
namespace {

using namespace std::chrono_literals;

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
    constexpr qint64 gigabyte = 1024 * 1024 * 1024;
    server.pour(QStringLiteral("/v.txt"), gigabyte);
    EXPECT_EQ(get(QStringLiteral("/v.txt")), QString(64 * 1024, QLatin1Char('1')));
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

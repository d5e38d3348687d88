#include "platform/web/http_reading.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

using State = HttpReading::State;

constexpr qint64 plenty = 1000;

/// Takes an answer in pieces of that many bytes and closes.
HttpReading taken(const QByteArray& bytes, qsizetype piece, State closed, qint64 most = plenty) {
    HttpReading reading(most);
    for (qsizetype at = 0; at < bytes.size(); at += piece) {
        reading.take(bytes.mid(at, piece));
    }
    EXPECT_EQ(reading.close(), closed) << bytes.toStdString() << " by " << piece;
    return reading;
}

TEST(HttpReading, TellsTheSameInPiecesOfAnySize) {
    const QByteArray answer =
        "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 302 Found\r\nLocation: /new\r\n"
        "location: /later\r\n\nmoved";
    for (qsizetype piece = 1; piece <= answer.size(); ++piece) {
        const HttpReading reading = taken(answer, piece, State::Whole);
        EXPECT_EQ(reading.status(), 302);
        EXPECT_EQ(reading.header("location"), "/new");
        EXPECT_EQ(reading.body(), "moved") << piece;
        EXPECT_FALSE(reading.isCut());
    }
}

TEST(HttpReading, EndsWithTheLengthThatWasTold) {
    HttpReading reading(plenty);
    EXPECT_EQ(reading.take("HTTP/1.0 200 OK\r\nContent-Length: 4\r\n\r\n1.0"), State::More);
    EXPECT_EQ(reading.take("1 and more"), State::Whole);
    EXPECT_EQ(reading.take("!"), State::Whole);
    EXPECT_EQ(reading.body(), "1.01");
    taken("HTTP/1.0 200 OK\r\nContent-Length: 4\r\n\r\n1.0", 100, State::Broken);
    taken("HTTP/1.0 204 None\r\n\r\n", 100, State::Whole);
}

TEST(HttpReading, StopsAtTheLimit) {
    const QByteArray answer = "HTTP/1.0 200 OK\n\n123456";
    for (const qsizetype piece : {1, 100}) {
        EXPECT_EQ(taken(answer, piece, State::Whole, 6).body(), "123456");
        EXPECT_FALSE(taken(answer, piece, State::Whole, 6).isCut());
        EXPECT_EQ(taken(answer, piece, State::Whole, 5).body(), "12345");
        EXPECT_TRUE(taken(answer, piece, State::Whole, 5).isCut());
    }
}

TEST(HttpReading, RefusesWhatIsNoAnswer) {
    for (const char* answer :
         {"", "HTTP/1.0 200 OK\r\n", "SSH-2.0\n\n", "HTTP/2 200\n\n",
          "HTTP/1.0 200 OK\nContent-Length: x\n\n", "HTTP/1.0 200 OK\nContent-Length: -1\n\n",
          "HTTP/1.0 200 OK\nTransfer-Encoding: chunked\n\n0"}) {
        taken(answer, 100, State::Broken);
        taken(answer, 1, State::Broken);
    }
    HttpReading endless(plenty);
    EXPECT_EQ(endless.take("HTTP/1.0 200 OK\n" + QByteArray(65519, 'x')), State::More);
    EXPECT_EQ(endless.take("x"), State::Broken);
}

}  // namespace
}  // namespace velorama

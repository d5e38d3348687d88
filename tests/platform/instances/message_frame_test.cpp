#include "platform/instances/message_frame.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

QByteArray head(unsigned char a, unsigned char b, unsigned char c, unsigned char d) {
    const unsigned char bytes[] = {a, b, c, d};
    return QByteArray(reinterpret_cast<const char*>(bytes), 4);
}

TEST(MessageFrame, IsTheLengthAndTheText) {
    EXPECT_EQ(messageFrame(QStringLiteral("a\u00fc")), head(0, 0, 0, 3) + "a\xC3\xBC");
    EXPECT_EQ(messageFrame(QString()), head(0, 0, 0, 0));
    EXPECT_EQ(messageFrame(QString(258, u'x')).left(4), head(0, 0, 1, 2));
}

TEST(MessageFrame, TakesSoMuchAndNoMore) {
    EXPECT_EQ(messageFrame(QString(65536, u'x')).size(), 65540);
    EXPECT_EQ(messageFrame(QString(65537, u'x')), QByteArray());
    // Bytes count, and not letters.
    EXPECT_EQ(messageFrame(QString(32769, QChar(0xFC))), QByteArray());
}

TEST(MessageFrame, ComesBackAsItWent) {
    for (const QString& text :
         {QString(), QStringLiteral("/a b/\u00fc\U0001F600 \"'%$.vlr"), QString(65536, u'x'),
          QString(QChar(0)), QStringLiteral("\uFEFFmark"), QStringLiteral("\uFEFF\uFEFF")}) {
        const ReadFrame read = readFrame(messageFrame(text));
        EXPECT_EQ(read.state, ReadFrame::Whole);
        EXPECT_EQ(read.text, text);
    }
}

TEST(MessageFrame, WaitsForTheRest) {
    const QByteArray whole = messageFrame(QStringLiteral("trip"));
    for (qsizetype length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(readFrame(whole.left(length)).state, ReadFrame::Incomplete) << length;
    }
    EXPECT_EQ(readFrame(whole + "more").text, QStringLiteral("trip"));
}

TEST(MessageFrame, RefusesHostileBytes) {
    EXPECT_EQ(readFrame(head(0, 1, 0, 1)).state, ReadFrame::Refused);
    EXPECT_EQ(readFrame(head(0xFF, 0xFF, 0xFF, 0xFF)).state, ReadFrame::Refused);
    EXPECT_EQ(readFrame("GET / HTTP/1.1").state, ReadFrame::Refused);
    EXPECT_EQ(readFrame(head(0, 0, 0, 2) + "\xFF\xFE").state, ReadFrame::Refused);
    EXPECT_EQ(readFrame(head(0, 0, 0, 1) + "\xC3").state, ReadFrame::Refused);
    // A lone half of a pair of surrogates.
    EXPECT_EQ(readFrame(head(0, 0, 0, 3) + "\xED\xA0\x80").state, ReadFrame::Refused);
}

}  // namespace
}  // namespace velorama

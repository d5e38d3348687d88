#include "core/documents.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <vector>

namespace velorama {
namespace {

/// All fields to the end; ends with a failure where the reader does not move on.
QStringList fieldsOf(const QByteArray& bytes) {
    FieldReader reader(bytes);
    QStringList fields;
    while (!reader.EndOfFile()) {
        if (fields.size() > bytes.size()) {
            ADD_FAILURE() << "more fields than bytes";
            break;
        }
        fields.append(reader.Input());
    }
    return fields;
}

struct Row {
    const char* bytes;
    QStringList fields;
};

void check(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(fieldsOf(row.bytes).join(u'#').toStdString(), row.fields.join(u'#').toStdString())
            << testing::PrintToString(row.bytes);
        EXPECT_EQ(fieldsOf(row.bytes).size(), row.fields.size())
            << testing::PrintToString(row.bytes);
    }
}

TEST(FieldReader, endsAFieldAtACommaOrALineEnd) {
    check({{"a,b\r\nc\r\n", {"a", "b", "c"}},
           {"a,,b", {"a", "", "b"}},
           {",a", {"", "a"}},
           {"a,\r\nb", {"a", "", "b"}},
           {"a,", {"a"}}});
}

TEST(FieldReader, takesEveryKindOfLineEnd) {
    check({{"a\r\nb\r\n", {"a", "b"}},
           {"a\nb\n", {"a", "b"}},
           {"a\rb\r", {"a", "b"}},
           {"a\r\n\nb", {"a", "", "b"}},
           {"a\r\rb", {"a", "", "b"}},
           {"a\n\rb", {"a", "", "b"}},
           {"a\r\nb\nc\rd", {"a", "b", "c", "d"}}});
}

TEST(FieldReader, needsNoLineEndAtTheEnd) {
    check({{"a", {"a"}}, {"a\r\nb", {"a", "b"}}, {"a,b", {"a", "b"}}});
}

TEST(FieldReader, readsTheLastEmptyLineOfAnAlbum) {
    check({{"1\r\n/p/a.jpg\r\n\r\n", {"1", "/p/a.jpg", ""}},
           {"0\r\n\r\n", {"0", ""}},
           {"\r\n", {""}}});
}

TEST(FieldReader, dropsBlanksAroundAField) {
    check({{"  a  ,   b\r\n", {"a", "b"}},
           {"a b , c  d ", {"a b", "c  d"}},
           {"3| \r\n", {"3|"}},
           {"5|My note \r\n", {"5|My note"}},
           {"   \r\nb", {"", "b"}},
           {" , ", {"", ""}}});
}

TEST(FieldReader, cutsAPathAtItsComma) {
    check({{"D:\\Trips\\Rome, Italy.bmp\r\n", {"D:\\Trips\\Rome", "Italy.bmp"}},
           {"C:\\a,b.jpg\r\n", {"C:\\a", "b.jpg"}}});
}

TEST(FieldReader, runsFromQuoteToQuote) {
    check({{"\"a, b\",c", {"a, b", "c"}},
           {"\"a, b\"\r\nc\r\n", {"a, b", "c"}},
           {"  \"a\"  ,b", {"a", "b"}},
           {"\"a\r\nb\",c", {"a\r\nb", "c"}},
           {"\"\",c", {"", "c"}},
           {"\"a\"", {"a"}}});
}

TEST(FieldReader, takesAQuoteInsideAFieldAsAnyCharacter) {
    check({{"a\"b,c\"d\r\n", {"a\"b", "c\"d"}}, {"a \"b, c\"", {"a \"b", "c\""}}});
}

TEST(FieldReader, runsToTheEndWhereAQuoteIsNotClosed) {
    check({{"a,\"b,c\r\nd", {"a", "b,c\r\nd"}}, {"\"a", {"a"}}});
    EXPECT_EQ(fieldsOf("\"").size(), 1);
}

TEST(FieldReader, passesOverTheMarkAtTheStart) {
    check(
        {{"\xef\xbb\xbf"
          "2\r\na",
          {"2", "a"}}});
    EXPECT_TRUE(fieldsOf("\xef\xbb\xbf").join(QString()).isEmpty());
    EXPECT_EQ(fieldsOf("a\r\n\xef\xbb\xbf"
                       "b")
                  .size(),
              2);
}

TEST(FieldReader, readsUtf8) {
    check({{"Z\xc3\xbcrich,\xe6\x9d\xb1\xe4\xba\xac\r\n",
            {"Z\xc3\xbcrich", "\xe6\x9d\xb1\xe4\xba\xac"}}});
}

TEST(FieldReader, isAtTheEndOfNothing) {
    FieldReader reader{QByteArray()};
    EXPECT_TRUE(reader.EndOfFile());
    EXPECT_EQ(reader.Input(), QString());
    EXPECT_TRUE(reader.EndOfFile());
}

TEST(FieldReader, givesNothingBehindTheEnd) {
    FieldReader reader("a");
    EXPECT_FALSE(reader.EndOfFile());
    EXPECT_EQ(reader.Input(), QStringLiteral("a"));
    EXPECT_TRUE(reader.EndOfFile());
    EXPECT_EQ(reader.Input(), QString());
    EXPECT_EQ(reader.Input(), QString());
}

TEST(FieldReader, goesOnBehindBytesThatAreNoText) {
    for (const QByteArray& noise : {QByteArray("a\0b", 3), QByteArray("\xff\xfe\x80"),
                                    QByteArray("\xc3"), QByteArray("\x01\x1a\x7f")}) {
        const QStringList fields = fieldsOf(noise + "\r\nc");
        ASSERT_EQ(fields.size(), 2) << noise.toHex().toStdString();
        EXPECT_EQ(fields[1], QStringLiteral("c")) << noise.toHex().toStdString();
    }
}

TEST(FieldReader, readsALineOfTenMegabytes) {
    const qsizetype size = 10LL * 1024 * 1024;
    const QStringList fields = fieldsOf(QByteArray(size, 'x') + "\r\nb");
    ASSERT_EQ(fields.size(), 2);
    EXPECT_EQ(fields[0].size(), size);
    EXPECT_EQ(fields[1], QStringLiteral("b"));
    EXPECT_EQ(fieldsOf('"' + QByteArray(size, ',')).first().size(), size);
}

TEST(FieldReader, readsAHundredThousandLines) {
    QByteArray bytes;
    for (int i = 0; i < 100000; ++i) {
        bytes += "/p/" + QByteArray::number(i) + ".jpg\r\n";
    }
    const QStringList fields = fieldsOf(bytes);
    ASSERT_EQ(fields.size(), 100000);
    EXPECT_EQ(fields.last(), QStringLiteral("/p/99999.jpg"));
}

TEST(FieldReader, readsAMillionCommas) {
    EXPECT_EQ(fieldsOf(QByteArray(1000000, ',')).size(), 1000000);
}

}  // namespace
}  // namespace velorama

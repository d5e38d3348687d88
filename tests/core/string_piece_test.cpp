#include "core/documents.h"

#include <gtest/gtest.h>

#include <vector>

namespace velorama {
namespace {

struct Row {
    const char* text;
    const char* delimiter;
    int piece;
    const char* expected;
};

void check(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(StringPieceArr(row.text, row.delimiter, row.piece).toStdString(), row.expected)
            << '"' << row.text << "\" by \"" << row.delimiter << "\", piece " << row.piece;
    }
}

TEST(StringPieceArr, readsAnAlbumHeader) {
    check({{"12|note", "|", 0, "12"},
           {"12|note", "|", 1, "note"},
           {"12", "|", 0, "12"},
           {"12", "|", 1, "12"},
           {"12|", "|", 0, "12"},
           {"12|", "|", 1, ""},
           {"5|My note", "|", 1, "My note"}});
}

TEST(StringPieceArr, pieceNoughtIsWhatStandsBeforeTheFirstAsItStands) {
    check({{" 12 |note", "|", 0, " 12 "}, {"|note", "|", 0, ""}, {"a|b|c", "|", 0, "a"}});
}

TEST(StringPieceArr, textWithoutDelimiterComesBackTrimmed) {
    check({{"  12  ", "|", 0, "12"}, {"  12  ", "|", 1, "12"}, {" a b ", "|", 7, "a b"}});
}

TEST(StringPieceArr, theLastPieceIsAllBehindTheFirstDelimiterAsItStands) {
    check({{"a| b ", "|", 1, " b "},
           {"a|b|c", "|", 2, "b|c"},
           {"a|b|c|d", "|", 3, "b|c|d"},
           {"a|b| c ", "|", 2, "b| c "}});
}

TEST(StringPieceArr, aPieceInTheMiddleKeepsItsDelimiterAndIsTrimmed) {
    check({{"a|b|c", "|", 1, "b|"},
           {" a | b | c ", "|", 1, "b |"},
           {"a|b|c|d", "|", 2, "c|"},
           {"a||b", "|", 1, "|"},
           {"a|b|", "|", 1, "b|"}});
}

TEST(StringPieceArr, aPiecePastTheEndIsWhatStandsBeforeTheFirst) {
    check({{"a|b|c", "|", 3, "a"},
           {"a|b|c", "|", 9, "a"},
           {"12|note", "|", 2, "12"},
           {" 12 |note", "|", 2, " 12 "},
           {"|b", "|", 5, ""}});
}

TEST(StringPieceArr, emptyTextIsEmpty) {
    check({{"", "|", 0, ""}, {"", "|", 1, ""}, {"", "|", 9, ""}, {"   ", "|", 1, ""}});
}

TEST(StringPieceArr, theSearchGoesOnOneCharacterBehindALongDelimiter) {
    check({{"a::b", "::", 0, "a"}, {"a::b", "::", 1, "b"}, {"a::b::c", "::", 1, ":b:"}});
}

TEST(StringPieceArr, aPieceBelowNoughtIsCutFromTheStart) {
    check({{"a|b", "|", -1, "a|"}, {" ab ", "|", -1, "ab"}, {"", "|", -1, ""}});
}

TEST(StringPieceArr, aHighPieceOfALongTextEnds) {
    const QString text = QString(1000000, u'|');
    EXPECT_EQ(StringPieceArr(text, QStringLiteral("|"), 2147483647), QString());
    EXPECT_EQ(StringPieceArr(text, QStringLiteral("|"), 1000000).size(), 999999);
}

}  // namespace
}  // namespace velorama

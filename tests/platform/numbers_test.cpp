#include "platform/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace velorama {
namespace {

TEST(NumericValue, TakesTheNumberAtTheStart) {
    EXPECT_EQ(leadingNumber(u" 0x"), 0);
    for (const char16_t* text : {u"", u"  ", u"x1", u"-", u"."}) {
        EXPECT_EQ(leadingNumber(text), std::nullopt);
        EXPECT_EQ(numericValue(text), 0);
    }
    EXPECT_EQ(numericValue(u"4"), 4);
    EXPECT_EQ(numericValue(u"6.0"), 6);
    EXPECT_EQ(numericValue(u"  \t-2.5 seconds"), -2.5);
    EXPECT_EQ(numericValue(u"+7"), 7);
    EXPECT_EQ(numericValue(u".5"), 0.5);
    EXPECT_EQ(numericValue(u"3."), 3);
    EXPECT_EQ(numericValue(u"12.5.7"), 12.5);
    EXPECT_EQ(numericValue(u"1,5"), 1);
}

TEST(NumericValue, KnowsBothExponentLetters) {
    EXPECT_EQ(numericValue(u"1e3"), 1000);
    EXPECT_EQ(numericValue(u"1D+2x"), 100);
    EXPECT_EQ(numericValue(u"25E-1"), 2.5);
    EXPECT_EQ(numericValue(u"12e"), 12);
    EXPECT_EQ(numericValue(u"12e+"), 12);
}

TEST(NumericValue, IsZeroWithoutANumber) {
    for (const char* text : {"", "   ", "abc", "-", ".", "+.", "e5", "--1"}) {
        EXPECT_EQ(numericValue(QString::fromUtf8(text)), 0) << text;
    }
    EXPECT_EQ(numericValue(QString(255, u' ')), 0);
}

TEST(NumericValue, OutOfRangeIsZero) {
    EXPECT_EQ(numericValue(u"1e999"), 0);
    EXPECT_EQ(numericValue(u"1e-999"), 0);
    EXPECT_EQ(numericValue(u"1e99999999999999999999"), 0);
}

TEST(DecimalNumber, TakesNothingButANumberWithBlanksAround) {
    EXPECT_EQ(decimalNumber(u" 3585 "), 3585);
    EXPECT_EQ(decimalNumber(u"-0.5"), -0.5);
    EXPECT_EQ(decimalNumber(u"1.677722E+07"), 16777220);
    EXPECT_EQ(decimalNumber(u"12x"), std::nullopt);
    EXPECT_EQ(decimalNumber(u"1 2"), std::nullopt);
    EXPECT_EQ(decimalNumber(u""), std::nullopt);
    EXPECT_EQ(decimalNumber(QString(255, u' ')), std::nullopt);
    EXPECT_EQ(decimalNumber(u"nan"), std::nullopt);
    EXPECT_EQ(decimalNumber(u"inf"), std::nullopt);
    EXPECT_EQ(decimalNumber(u"1e999"), std::nullopt);
    EXPECT_EQ(decimalNumber(u"1e-999"), 0);
}

TEST(WholeNumber, RoundsHalvesToTheEvenOne) {
    EXPECT_EQ(wholeNumber(u"0.5"), 0);
    EXPECT_EQ(wholeNumber(u"1.5"), 2);
    EXPECT_EQ(wholeNumber(u"2.5"), 2);
    EXPECT_EQ(wholeNumber(u"-2.5"), -2);
    EXPECT_EQ(wholeNumber(u"-3.5"), -4);
    EXPECT_EQ(wholeNumber(u"2.51"), 3);
}

TEST(WholeNumber, StopsAtThirtyTwoBits) {
    EXPECT_EQ(wholeNumber(u"2147483647"), 2147483647);
    EXPECT_EQ(wholeNumber(u"2147483647.4"), 2147483647);
    EXPECT_EQ(wholeNumber(u"2147483647.5"), std::nullopt);
    EXPECT_EQ(wholeNumber(u"-2147483648"), std::numeric_limits<qint32>::min());
    EXPECT_EQ(wholeNumber(u"-2147483649"), std::nullopt);
    EXPECT_EQ(wholeNumber(u"four"), std::nullopt);
    EXPECT_EQ(wholeNumber(u"4s"), std::nullopt);
}

TEST(RoundHalfEven, HoldsForAnyNumber) {
    EXPECT_EQ(roundHalfEven(2.5), 2);
    EXPECT_EQ(roundHalfEven(3.5), 4);
    EXPECT_EQ(roundHalfEven(-0.5), 0);
    EXPECT_EQ(roundHalfEven(-1.5), -2);
    EXPECT_EQ(roundHalfEven(std::numeric_limits<double>::quiet_NaN()), 0);
    EXPECT_EQ(roundHalfEven(std::numeric_limits<double>::infinity()), 0);
    EXPECT_EQ(roundHalfEven(9223372036854775808.0), 0);
    EXPECT_EQ(roundHalfEven(-9223372036854775808.0), std::numeric_limits<qint64>::min());
}

TEST(SingleText, IsShortWithSevenDigitsAtMost) {
    EXPECT_EQ(singleText(3585), QStringLiteral("3585"));
    EXPECT_EQ(singleText(0.5F), QStringLiteral("0.5"));
    EXPECT_EQ(singleText(-15), QStringLiteral("-15"));
    EXPECT_EQ(singleText(0.1F), QStringLiteral("0.1"));
    EXPECT_EQ(singleText(1234567), QStringLiteral("1234567"));
    EXPECT_EQ(singleText(7.5F), QStringLiteral("7.5"));
    EXPECT_EQ(singleText(-0.0F), QStringLiteral("0"));
    EXPECT_EQ(singleText(std::numeric_limits<float>::quiet_NaN()), QStringLiteral("0"));
}

TEST(DecimalText, HasNoGrouping) {
    EXPECT_EQ(decimalText(-2147483647), QStringLiteral("-2147483647"));
    EXPECT_EQ(decimalText(1234567), QStringLiteral("1234567"));
}

}  // namespace
}  // namespace velorama

#include "platform/files/name_order.h"

#include <algorithm>

#include <gtest/gtest.h>

namespace velorama {
namespace {

QString sorted(const QString& names, const QString& locale) {
    QStringList list = names.split(u'|');
    NameOrder(QLocale(locale)).sort(list);
    return list.join(u'|');
}

TEST(NameOrder, TakesDigitsByTheirValue) {
    const QString mixed = QStringLiteral("Bild 10|Bild 9|Bild 2|Bild 02 b|Bild 1|Bild");
    const QString right = QStringLiteral("Bild|Bild 1|Bild 2|Bild 02 b|Bild 9|Bild 10");
    for (const char* locale : {"en_US", "de_DE", "sv_SE"}) {
        EXPECT_EQ(sorted(mixed, QLatin1String(locale)), right) << locale;
    }
}

TEST(NameOrder, FollowsTheLanguage) {
    const QString mixed = QStringLiteral("Zug|Äpfel|apfel|Apfel|Birne");
    EXPECT_EQ(sorted(mixed, QStringLiteral("de_DE")),
              QStringLiteral("apfel|Apfel|Äpfel|Birne|Zug"));
    EXPECT_EQ(sorted(mixed, QStringLiteral("sv_SE")),
              QStringLiteral("apfel|Apfel|Birne|Zug|Äpfel"));
}

TEST(NameOrder, GoesByCodePointWhereNoLanguageIsSet) {
    EXPECT_EQ(sorted(QStringLiteral("b|Äpfel|a10|a2|C|a|A"), QStringLiteral("C")),
              QStringLiteral("A|a|a10|a2|b|C|Äpfel"));
}

TEST(NameOrder, TellsAllNamesApart) {
    // The same letter, composed and decomposed, and two spellings of a number.
    const QStringList alike = {QStringLiteral("\u00c4"), QStringLiteral("A\u0308"),
                               QStringLiteral("1"), QStringLiteral("01")};
    const NameOrder order(QLocale(QStringLiteral("de_DE")));
    for (const QString& one : alike) {
        for (const QString& other : alike) {
            EXPECT_EQ(order(one, other) || order(other, one), one != other);
        }
    }
    QStringList forwards = alike;
    QStringList backwards(alike.rbegin(), alike.rend());
    order.sort(forwards);
    order.sort(backwards);
    EXPECT_EQ(forwards, backwards);
}

TEST(NameOrder, SortsAsItCompares) {
    const NameOrder order(QLocale(QStringLiteral("en_US")));
    QStringList names = {QStringLiteral("IMG_12.jpg"), QStringLiteral("img_3.JPG"),
                         QStringLiteral("_x"),         QStringLiteral("IMG-3.jpg"),
                         QStringLiteral(""),           QStringLiteral("#1 (2)")};
    order.sort(names);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end(), order));
}

}  // namespace
}  // namespace velorama

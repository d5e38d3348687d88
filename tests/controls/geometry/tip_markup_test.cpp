#include "controls/geometry/tip_markup.h"

#include <QGuiApplication>
#include <QTextDocument>

#include <gtest/gtest.h>

namespace velorama {
namespace {

QString shown(const QStringList& lines) {
    QTextDocument document;
    document.setHtml(tipMarkup(lines, QGuiApplication::font()));
    return document.toPlainText();
}

QSizeF sizeOf(const QStringList& lines) {
    QTextDocument document;
    document.setHtml(tipMarkup(lines, QGuiApplication::font()));
    return document.size();
}

TEST(RowTipTest, ShowsTextsAsTheyAre) {
    for (const char* text : {"<b>bold</b> & <img src='/etc/passwd'>.jpg", "a &amp; b.jpg",
                             "two  blanks.jpg", "plain", "&Add"}) {
        EXPECT_EQ(shown({QLatin1String(text)}), QLatin1String(text));
    }
    EXPECT_EQ(shown({QStringLiteral("one"), QStringLiteral("two")}), QStringLiteral("one\ntwo"));
    EXPECT_EQ(shown({QStringLiteral("a\nb\tc\u2028d\u2029e.jpg")}),
              QStringLiteral("a b c d e.jpg"));
    EXPECT_EQ(tipMarkup({}, QGuiApplication::font()), QString());
}

TEST(RowTipTest, BreaksAPathWithoutBlanks) {
    const QString path = QStringLiteral("/") + QString(240, u'a') + QStringLiteral("/b.jpg");
    EXPECT_GT(shown({path}).count(u'\n'), 2);
    EXPECT_EQ(shown({path}).remove(u'\n'), path);
}

TEST(RowTipTest, FitsOnASmallScreenWhateverItTells) {
    const QSizeF screen(640, 480);
    for (const QString& text :
         {QString(4000, u'W'), QStringLiteral("/folder").repeated(600),
          QStringLiteral("\u6D77").repeated(4000), QStringLiteral("a\u0301").repeated(2000)}) {
        const QSizeF size = sizeOf({text, QStringLiteral("file not found")});
        EXPECT_LT(size.width(), screen.width());
        EXPECT_LT(size.height(), screen.height());
    }
    const QString path =
        QStringLiteral("/start") + QString(4000, u'a') + QStringLiteral("/end.jpg");
    EXPECT_TRUE(shown({path}).remove(u'\n').startsWith(QLatin1String("/start")));
    EXPECT_TRUE(shown({path}).remove(u'\n').endsWith(QLatin1String("/end.jpg")));
    EXPECT_TRUE(shown({path}).contains(QChar(0x2026)));
}

TEST(RowTipTest, AMarkOfDirectionEndsWithItsLine) {
    const QString markup =
        tipMarkup({QStringLiteral("a\u202Egpj.b"), QStringLiteral("file not found")},
                  QGuiApplication::font());
    // A paragraph each: marks of direction reach no further.
    EXPECT_EQ(markup.count(QStringLiteral("<p ")), 2);
    EXPECT_TRUE(markup.endsWith(QStringLiteral(">file not found</p>")));
}

}  // namespace
}  // namespace velorama

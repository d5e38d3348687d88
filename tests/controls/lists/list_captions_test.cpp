#include "controls/lists/list_delegate.h"
#include "controls/lists/list_view.h"

#include <QTest>

#include <gtest/gtest.h>

namespace velorama {
namespace {

class ListCaptions : public testing::Test {
protected:
    ListCaptions() { list.resize(300, 300); }
    /// What is painted of a caption, the first in the list.
    QImage painted(const QString& caption) {
        list.Clear();
        list.Add(1, QStringLiteral("/a"), caption, 0);
        list.Add(2, QStringLiteral("/b"), QStringLiteral("b"), 0);
        list.setSelectedItem(2);
        list.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&list));
        QCoreApplication::processEvents();
        const QRect cell = list.visualRect(list.model()->index(0, 0));
        return list.viewport()
            ->grab(qobject_cast<ListDelegate*>(list.itemDelegate())
                       ->captionArea(cell, list.fontMetrics()))
            .toImage();
    }
    int room() { return painted(QStringLiteral("a")).width(); }
    /// Letters in so large a font that a text is a little wider than its cell.
    void letOverflow(const QString& text) {
        QFont font = list.font();
        for (int size = 6; QFontMetrics(font).horizontalAdvance(text) <= room(); ++size) {
            font.setPixelSize(size);
            list.setFont(font);
        }
    }

    ListView list;
};

TEST_F(ListCaptions, AWordOfTenLettersIsWholeInAnyFont) {
    for (const int points : {9, 14, 20, 40}) {
        QFont font = list.font();
        font.setPointSize(points);
        list.setFont(font);
        EXPECT_GE(room(), list.fontMetrics().horizontalAdvance(QStringLiteral("leaves.jpg")))
            << points;
    }
}

TEST_F(ListCaptions, ANameOfOneWordIsBrokenBeforeItsEnding) {
    const QString name = QStringLiteral("Lighthouse.jpg");
    letOverflow(name);
    ASSERT_LE(list.fontMetrics().horizontalAdvance(QStringLiteral("Lighthouse.")), room());
    EXPECT_EQ(painted(name), painted(QStringLiteral("Lighthouse .jpg")));
}

TEST_F(ListCaptions, TheFirstRowIsAtTheTopHoweverNarrowTheList) {
    ImageList icons;
    QImage icon(64, 64, QImage::Format_RGB32);
    icon.fill(Qt::red);
    icons.Add(QStringLiteral("a"), icon);
    list.setIcons(&icons);
    for (int i = 1; i <= 12; ++i) {
        list.Add(i, QString::number(i), QStringLiteral("name.jpg"), 1);
    }
    list.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&list));
    for (const int width : {500, 240, 180, 150, 90}) {
        list.resize(width, 80);
        QCoreApplication::processEvents();
        const QRect cell = list.visualRect(list.model()->index(0, 0));
        EXPECT_EQ(cell.topLeft(), QPoint(0, 0)) << width;
        const QImage seen = list.viewport()->grab().toImage();
        EXPECT_EQ(seen.pixelColor(cell.center().x(), 20), QColor(Qt::red)) << width;
    }
    list.setIcons(nullptr);
}

TEST_F(ListCaptions, ALongWordIsBrokenWhereTheLineEnds) {
    const QString name = QStringLiteral("Lighthouselighthouse.jpg");
    letOverflow(name.left(14));
    EXPECT_NE(painted(name), painted(QStringLiteral("Lighthouselighthouse .jpg")));
}

TEST_F(ListCaptions, NamesOfSeveralWordsAreBrokenBetweenThem) {
    const QString name = QStringLiteral("Autumn leaves.jpg");
    letOverflow(name);
    EXPECT_EQ(painted(name), painted(QStringLiteral("Autumn  leaves.jpg")));
    EXPECT_NE(painted(name), painted(QStringLiteral("Autumn leaves .jpg")));
}

}  // namespace
}  // namespace velorama

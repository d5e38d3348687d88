// Walking a list of icons by pages and by typing.

#include "controls/lists/list_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace velorama {
namespace {

class ListKeys : public testing::Test {
protected:
    ListKeys() {
        list.resize(460, 200);
        // What is typed at once belongs together, also on a busy machine.
        QApplication::setKeyboardInputInterval(1000 * 1000);
    }
    ~ListKeys() override { QApplication::setKeyboardInputInterval(interval); }

    void show(const QStringList& texts) {
        for (const QString& text : texts) {
            list.Add(list.Count() + 1, QString::number(list.Count()), text, 0);
        }
        list.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
        list.setSelectedItem(1);
    }
    static QStringList numbered(int count) {
        QStringList texts;
        for (int i = 1; i <= count; ++i) {
            texts.append(QString::number(i));
        }
        return texts;
    }
    int current() const { return list.SelectedItem()->Index(); }
    bool isInSight(int index) const {
        return list.viewport()->rect().contains(
            list.visualRect(list.model()->index(index - 1, 0)).center());
    }

    int interval = QApplication::keyboardInputInterval();
    ListView list;
};

TEST_F(ListKeys, TypingFindsTheName) {
    ASSERT_NO_FATAL_FAILURE(show({QStringLiteral("Abend.jpg"), QStringLiteral("bild 10.jpg"),
                                  QStringLiteral("Bild 2.jpg"), QStringLiteral("Äpfel.jpg"),
                                  QStringLiteral("Bild 20.jpg")}));
    QSignalSpy moves(&list, &ListView::CurrentMoved);
    QTest::keyClicks(&list, QStringLiteral("bild 2"));
    EXPECT_EQ(current(), 3);
    EXPECT_TRUE(list.SelectedItem()->Selected());
    EXPECT_FALSE(list.item(1)->Selected());
    EXPECT_EQ(moves.size(), 2);
    QTest::keyClicks(&list, QStringLiteral("0"));
    EXPECT_EQ(current(), 5);
    QTest::keyClicks(&list, QStringLiteral("x"));
    EXPECT_EQ(current(), 5);
}

TEST_F(ListKeys, TypingFindsOtherLettersAndWrapsRound) {
    ASSERT_NO_FATAL_FAILURE(
        show({QStringLiteral("Äpfel.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg")}));
    list.setSelectedItem(3);
    QKeyEvent umlaut(QEvent::KeyPress, Qt::Key_Adiaeresis, Qt::NoModifier, QStringLiteral("ä"));
    QCoreApplication::sendEvent(&list, &umlaut);
    EXPECT_EQ(current(), 1);
}

TEST_F(ListKeys, PagesAndEndsOfAWrappedList) {
    ASSERT_NO_FATAL_FAILURE(show(numbered(100)));
    QTest::keyClick(&list, Qt::Key_PageDown);
    const int page = current();
    EXPECT_GT(page, 8);
    EXPECT_TRUE(list.SelectedItem()->Selected());
    EXPECT_TRUE(isInSight(page));
    QTest::keyClick(&list, Qt::Key_PageDown);
    EXPECT_GT(current(), page);
    QTest::keyClick(&list, Qt::Key_PageUp);
    EXPECT_EQ(current(), page);
    QTest::keyClick(&list, Qt::Key_PageUp);
    EXPECT_EQ(current(), 1);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(current(), 100);
    EXPECT_TRUE(isInSight(100));
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(current(), 1);
    EXPECT_TRUE(isInSight(1));
}

TEST_F(ListKeys, PagesAndEndsOfAStrip) {
    list.setArrangement(ListView::Arrangement::Strip);
    ASSERT_NO_FATAL_FAILURE(show(numbered(20)));
    const int page = list.viewport()->width() / list.gridSize().width();
    ASSERT_GE(page, 3);
    QTest::keyClick(&list, Qt::Key_PageDown);
    EXPECT_EQ(current(), 1 + page);
    EXPECT_TRUE(isInSight(1 + page));
    EXPECT_TRUE(list.SelectedItem()->Selected());
    QTest::keyClick(&list, Qt::Key_PageDown, Qt::ShiftModifier);
    EXPECT_EQ(current(), 1 + 2 * page);
    EXPECT_TRUE(list.item(1 + page)->Selected());
    QTest::keyClick(&list, Qt::Key_PageUp);
    QTest::keyClick(&list, Qt::Key_PageUp);
    QTest::keyClick(&list, Qt::Key_PageUp);
    EXPECT_EQ(current(), 1);
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(current(), 20);
    QTest::keyClick(&list, Qt::Key_PageDown);
    EXPECT_EQ(current(), 20);
    list.Clear();
    QTest::keyClick(&list, Qt::Key_PageDown);
    EXPECT_EQ(list.Count(), 0);
}

}  // namespace
}  // namespace velorama

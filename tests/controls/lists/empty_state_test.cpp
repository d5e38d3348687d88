#include "controls/lists/empty_state.h"

#include "controls/lists/list_box.h"
#include "controls/lists/list_view.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace velorama {
namespace {

class EmptyStateTest : public testing::Test {
protected:
    EmptyStateTest() {
        list.resize(400, 200);
        list.setEmptyText(QStringLiteral("Nothing here."));
        list.show();
        QApplication::processEvents();
    }
    cbtn* button(const char* name = "btnHELPS") {
        cbtn* made = list.emptyState().addButton(name, "plus", "Add", "Add something");
        QApplication::processEvents();
        return made;
    }
    ListBox list;
};

TEST_F(EmptyStateTest, TheButtonStandsInTheMiddleOfAnEmptyListAndIsPressed) {
    const cbtn* shown = button();
    ASSERT_TRUE(shown->isVisible());
    const QRect room = list.viewport()->rect();
    EXPECT_TRUE(room.contains(shown->geometry()));
    EXPECT_NEAR(shown->geometry().center().x(), room.center().x(), 1);
    EXPECT_GT(shown->geometry().center().y(), room.center().y());
}

TEST_F(EmptyStateTest, TheButtonGoesWithTheFirstLineAndComesBackAfterTheLast) {
    const cbtn* shown = button();
    list.addItem(QStringLiteral("one"));
    list.grab();
    QApplication::processEvents();
    EXPECT_FALSE(shown->isVisible());
    list.RemoveItem(0);
    list.grab();
    QApplication::processEvents();
    EXPECT_TRUE(shown->isVisible());
}

TEST_F(EmptyStateTest, WithoutRoomForItTheButtonIsNotThere) {
    const cbtn* shown = button();
    list.resize(400, 25);
    QApplication::processEvents();
    EXPECT_FALSE(shown->isVisible());
    list.resize(60, 200);
    QApplication::processEvents();
    EXPECT_FALSE(shown->isVisible());
    list.resize(400, 200);
    QApplication::processEvents();
    EXPECT_TRUE(shown->isVisible());
}

TEST_F(EmptyStateTest, OneThatCannotBePressedIsNotThere) {
    cbtn* shown = button();
    shown->setEnabled(false);
    QApplication::processEvents();
    EXPECT_FALSE(shown->isVisible());
    shown->setEnabled(true);
    QApplication::processEvents();
    EXPECT_TRUE(shown->isVisible());
}

TEST_F(EmptyStateTest, OfSeveralButtonsOneIsInUse) {
    cbtn* first = button();
    const cbtn* second = button("btnOTHER");
    EXPECT_FALSE(first->isVisible());
    EXPECT_TRUE(second->isVisible());
    list.emptyState().setButton(first);
    QApplication::processEvents();
    EXPECT_TRUE(first->isVisible());
    EXPECT_FALSE(second->isVisible());
}

TEST_F(EmptyStateTest, ANoteStandsBehindTheText) {
    EXPECT_EQ(list.emptyState().words(), QStringLiteral("Nothing here."));
    list.emptyState().setNote(QStringLiteral("Undo helps."));
    EXPECT_EQ(list.emptyState().words(), QStringLiteral("Nothing here. Undo helps."));
}

// A low list keeps the button and loses words from the end, never parts of lines.
TEST_F(EmptyStateTest, InALowListWholeSentencesGoAndTheButtonStays) {
    const cbtn* shown = button();
    const QString first = QStringLiteral("Albums that are saved are listed here.");
    const QString words = first + QStringLiteral("\nTo begin, choose pictures for a show.") +
                          QStringLiteral("\nThen save it.");
    list.setEmptyText(words);
    list.emptyState().setNote(QStringLiteral("Undo helps."));
    const int line = QFontMetrics(QApplication::font(&list)).height();
    const int rest = list.height() - list.viewport()->height() + 12 + shown->sizeHint().height();
    const auto shownIn = [&](int lines) {
        list.resize(400, rest + lines * line + line / 2);
        QApplication::processEvents();
        EXPECT_TRUE(shown->isVisible()) << lines;
        EXPECT_TRUE(list.viewport()->rect().contains(shown->geometry())) << lines;
        return list.emptyState().shownWords().toStdString();
    };
    const QString two = first + QStringLiteral("\nTo begin, choose pictures for a show.");
    EXPECT_EQ(shownIn(3), words.toStdString() + " Undo helps.");
    EXPECT_EQ(shownIn(2), two.toStdString());
    EXPECT_EQ(shownIn(1), first.toStdString());
    EXPECT_EQ(shownIn(0), "");
}

TEST_F(EmptyStateTest, ASentenceLongerThanTheRoomEndsInAnEllipsis) {
    list.setEmptyText(
        QStringLiteral("One two three four five six seven eight nine ten eleven "
                       "twelve thirteen fourteen fifteen sixteen seventeen."));
    const int line = QFontMetrics(QApplication::font(&list)).height();
    for (const int lines : {1, 2}) {
        list.resize(200, list.height() - list.viewport()->height() + 4 + lines * line + 3);
        const QString shown = list.emptyState().shownWords();
        EXPECT_TRUE(shown.startsWith(QLatin1String("One two"))) << shown.toStdString();
        EXPECT_TRUE(shown.endsWith(QChar(0x2026))) << shown.toStdString();
        const QRect room(0, 0, list.viewport()->width() - 24, 1000);
        EXPECT_EQ(QFontMetrics(QApplication::font(&list))
                      .boundingRect(room, Qt::TextWordWrap, shown)
                      .height(),
                  lines * line);
    }
    list.resize(200, 15);
    EXPECT_EQ(list.emptyState().shownWords().toStdString(), "");
}

// Assistive tools are told of nothing inside a list but its rows.
TEST(EmptyStateOnAPage, WhatIsDraggedOverTheButtonIsOverTheList) {
    QWidget page;
    page.resize(500, 400);
    ListBox list(&page);
    list.setGeometry(50, 50, 400, 200);
    list.setEmptyText(QStringLiteral("Drop it here."));
    cbtn* button = list.emptyState().addButton("btnHELPS", "plus", "Add", "Add something");
    page.show();
    QApplication::processEvents();
    ASSERT_TRUE(button->isVisible());
    const QPoint spot = button->geometry().center();
    ASSERT_EQ(page.childAt(spot), button);
    ASSERT_TRUE(button->acceptDrops());
    const QMimeData what;
    QDragEnterEvent enters(QPoint(3, 4), Qt::CopyAction, &what, Qt::LeftButton, {});
    QApplication::sendEvent(button, &enters);
    EXPECT_FALSE(enters.isAccepted());
    EXPECT_EQ(page.childAt(spot), list.viewport());
    // The drag leaves the list at last.
    QDragLeaveEvent leaves;
    static_cast<QObject*>(&list.emptyState())->eventFilter(list.viewport(), &leaves);
    QApplication::processEvents();
    EXPECT_EQ(page.childAt(spot), button);
}

TEST(EmptyStateOnAPage, TheButtonIsBesideTheListForAssistiveTools) {
    QWidget page;
    page.resize(500, 300);
    ListBox list(&page);
    list.setGeometry(50, 40, 400, 200);
    list.setEmptyText(QStringLiteral("Nothing here."));
    const cbtn* shown = list.emptyState().addButton("btnHELPS", "plus", "Add", "Add something");
    page.show();
    QApplication::processEvents();
    ASSERT_TRUE(shown->isVisible());
    EXPECT_EQ(shown->parentWidget(), &page);
    EXPECT_TRUE(list.geometry().contains(shown->geometry()));
    EXPECT_NEAR(shown->geometry().center().x(), list.geometry().center().x(), 2);
    list.move(60, 80);
    QApplication::processEvents();
    EXPECT_NEAR(shown->geometry().center().x(), list.geometry().center().x(), 2);
    EXPECT_TRUE(list.geometry().contains(shown->geometry()));
    list.hide();
    QApplication::processEvents();
    EXPECT_FALSE(shown->isVisible());
}

// The model of this list lags behind it.
TEST(EmptyStateOfIcons, IsThatOfTheListNotOfItsModel) {
    ListView list;
    list.resize(400, 200);
    list.setEmptyText(QStringLiteral("Nothing here."));
    const cbtn* shown = list.emptyState().addButton("btnHELPS", "plus", "Add", "Add something");
    list.show();
    QApplication::processEvents();
    ASSERT_TRUE(shown->isVisible());
    list.Add(1, QStringLiteral("a"), QStringLiteral("a"), 0);
    list.emptyState().setNote(QStringLiteral("More."));
    QApplication::processEvents();
    EXPECT_FALSE(shown->isVisible());
}

}  // namespace
}  // namespace velorama

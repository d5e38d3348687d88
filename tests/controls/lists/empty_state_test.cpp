#include "controls/lists/empty_state.h"

#include "controls/lists/list_box.h"
#include "controls/lists/list_view.h"

#include <QApplication>
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
    list.resize(400, 50);
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

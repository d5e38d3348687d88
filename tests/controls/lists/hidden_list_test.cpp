#include "controls/lists/hidden_list.h"

#include "support/test_world.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace velorama {
namespace {

class HiddenListTest : public testing::Test {
protected:
    HiddenListTest() {
        for (QPushButton* each : {&list, &next, &third}) {
            each->setFocusPolicy(Qt::StrongFocus);
        }
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        list.setFocus();
    }
    QWidget window;
    QPushButton list{&window};
    QPushButton next{&window};
    QPushButton third{&window};
    HiddenList hidden{list};
};

TEST_F(HiddenListTest, HasItsKeyboardAgain) {
    hidden.hide();
    EXPECT_TRUE(list.isHidden());
    EXPECT_TRUE(next.hasFocus());
    hidden.show();
    EXPECT_FALSE(list.isHidden());
    EXPECT_TRUE(list.hasFocus());
}

TEST_F(HiddenListTest, LeavesTheKeyboardWhereTheUserPutIt) {
    hidden.hide();
    third.setFocus();
    hidden.show();
    EXPECT_TRUE(third.hasFocus());
}

TEST_F(HiddenListTest, LeavesTheKeyboardWhereItWas) {
    third.setFocus();
    hidden.hide();
    hidden.show();
    EXPECT_TRUE(third.hasFocus());
    // Nor does an earlier batch count.
    list.setFocus();
    hidden.hide();
    hidden.leaveKeyboard();
    hidden.show();
    EXPECT_TRUE(next.hasFocus());
}

TEST_F(HiddenListTest, HasItAfterBatchesInOneAnother) {
    hidden.hide();
    hidden.hide();
    hidden.show();
    EXPECT_TRUE(list.hasFocus());
    hidden.show();
    EXPECT_TRUE(list.hasFocus());
}

// An album is read before its dialog has given the window back.
TEST_F(HiddenListTest, HasItWhereTheWindowIsActiveLaterOnly) {
    QWidget dialog;
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    hidden.hide();
    dialog.close();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    hidden.show();
    EXPECT_TRUE(list.hasFocus());
}

}  // namespace
}  // namespace velorama

#include "controls/input/keys.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

int codeOf(int key) {
    return keyCode(QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
}

TEST(Keys, HaveTheCodesTheFormsKnow) {
    EXPECT_EQ(codeOf(Qt::Key_Tab), 9);
    EXPECT_EQ(codeOf(Qt::Key_Backtab), 9);
    EXPECT_EQ(codeOf(Qt::Key_Return), 13);
    EXPECT_EQ(codeOf(Qt::Key_Enter), 13);
    EXPECT_EQ(codeOf(Qt::Key_Control), 17);
    EXPECT_EQ(codeOf(Qt::Key_Escape), 27);
    EXPECT_EQ(codeOf(Qt::Key_Left), 37);
    EXPECT_EQ(codeOf(Qt::Key_Down), 40);
    EXPECT_EQ(codeOf(Qt::Key_Insert), 45);
    EXPECT_EQ(codeOf(Qt::Key_Delete), 46);
    EXPECT_EQ(codeOf(Qt::Key_0), 48);
    EXPECT_EQ(codeOf(Qt::Key_Z), 90);
    EXPECT_EQ(codeOf(Qt::Key_Menu), 93);
    EXPECT_EQ(codeOf(Qt::Key_F1), 112);
    EXPECT_EQ(codeOf(Qt::Key_F12), 123);
    EXPECT_EQ(codeOf(Qt::Key_Comma), 188);
    EXPECT_EQ(codeOf(Qt::Key_Backslash), 220);
    EXPECT_EQ(codeOf(Qt::Key_Bar), 220);
    EXPECT_EQ(codeOf(Qt::Key_Apostrophe), 222);
    EXPECT_EQ(codeOf(Qt::Key_MediaPlay), 0);
}

TEST(Keys, ShiftMasksAddUp) {
    EXPECT_EQ(shiftMask(Qt::NoModifier), 0);
    EXPECT_EQ(shiftMask(Qt::ShiftModifier), 1);
    EXPECT_EQ(shiftMask(Qt::ControlModifier), 2);
    EXPECT_EQ(shiftMask(Qt::ShiftModifier | Qt::ControlModifier), 3);
    EXPECT_EQ(shiftMask(Qt::AltModifier | Qt::KeypadModifier), 4);
}

TEST(Keys, MouseButtonsAreOneTwoFour) {
    EXPECT_EQ(mouseButton(Qt::LeftButton), 1);
    EXPECT_EQ(mouseButton(Qt::RightButton), 2);
    EXPECT_EQ(mouseButton(Qt::MiddleButton), 4);
    EXPECT_EQ(mouseButton(Qt::BackButton), 0);
}

}  // namespace
}  // namespace velorama

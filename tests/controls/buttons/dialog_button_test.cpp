#include "controls/buttons/dialog_button.h"

#include <QApplication>
#include <QDialog>

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(DialogButtonTest, TheDefaultButtonShowsWhetherItHasTheKeyboard) {
    QDialog dialog;
    auto* yes = new DialogButton(QStringLiteral("Yes"), &dialog);
    yes->setGeometry(10, 10, 90, 30);
    auto* other = new QWidget(&dialog);
    other->setFocusPolicy(Qt::StrongFocus);
    yes->setDefault(true);
    dialog.show();
    dialog.activateWindow();
    yes->setFocus();
    QApplication::processEvents();
    ASSERT_TRUE(yes->hasFocus());
    const QImage with = yes->grab().toImage();
    other->setFocus();
    QApplication::processEvents();
    ASSERT_TRUE(yes->isDefault());
    EXPECT_NE(yes->grab().toImage(), with);
}

}  // namespace
}  // namespace velorama

#include "controls/input/command.h"

#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(CommandTest, ItsButtonsAreOnAndOffWithIt) {
    Command command("mnuX", "&X");
    QPushButton before;
    command.addButton(before);
    command.setEnabled(false);
    QPushButton after;
    command.addButton(after);
    EXPECT_FALSE(before.isEnabled());
    EXPECT_FALSE(after.isEnabled());
    command.setEnabled(true);
    EXPECT_TRUE(before.isEnabled());
    EXPECT_TRUE(after.isEnabled());
}

TEST(CommandTest, AButtonGivesItOnceAClick) {
    Command command;
    QPushButton button;
    command.addButton(button);
    const QSignalSpy given(&command, &Command::triggered);
    button.click();
    EXPECT_EQ(given.count(), 1);
    command.setEnabled(false);
    button.click();
    EXPECT_EQ(given.count(), 1);
}

TEST(CommandTest, AnEntryOfAPopupGivesItWhereItIsOffToo) {
    Command command("mnuX", "&X");
    QMenu popup;
    command.addTo(popup, "mnuPOPUPX", "X &here");
    const QSignalSpy given(&command, &Command::triggered);
    command.setEnabled(false);
    QAction* entry = popup.findChild<QAction*>(QStringLiteral("mnuPOPUPX"));
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->text(), QStringLiteral("X &here"));
    EXPECT_TRUE(entry->isEnabled());
    entry->trigger();
    EXPECT_EQ(given.count(), 1);
}

TEST(CommandTest, AnEntryThatFollowsIsOffWithTheCommand) {
    Command command("mnuX", "&X");
    command.setEnabled(false);
    QMenu popup;
    command.addFollowing(popup, "mnuPOPUPX", "X &here");
    const QAction* entry = popup.findChild<QAction*>(QStringLiteral("mnuPOPUPX"));
    ASSERT_NE(entry, nullptr);
    EXPECT_FALSE(entry->isEnabled());
    command.setEnabled(true);
    EXPECT_TRUE(entry->isEnabled());
}

TEST(CommandTest, AHeldKeyGivesItOnce) {
    const Command command("mnuX", "&X", {}, Qt::Key_F5);
    EXPECT_EQ(command.shortcut(), QKeySequence(Qt::Key_F5));
    EXPECT_FALSE(command.autoRepeat());
}

}  // namespace
}  // namespace velorama

#include "core/cls_dlghook.h"

#include "controls/dialogs/common_dialog.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include "support/test_world.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(CentredOnScreen, IsHalfOfWhatTheDialogLeaves) {
    const struct {
        QRect screen;
        QSize dialog;
        QPoint place;
    } rows[] = {
        {{0, 0, 1920, 1080}, {640, 480}, {640, 300}},
        // Halves go to the even side: 212.5 and 213.5, 41.5.
        {{0, 0, 1024, 768}, {599, 685}, {212, 42}},
        {{0, 0, 1024, 768}, {597, 768}, {214, 0}},
        {{0, 0, 640, 480}, {800, 500}, {-80, -10}},
        {{1920, 100, 1280, 720}, {640, 480}, {2240, 220}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(centredOnScreen(row.screen, row.dialog), row.place)
            << row.place.x() << ',' << row.place.y();
    }
}

QPoint middleOf(const QWidget& dialog) {
    return centredOnScreen(dialog.screen()->geometry(), dialog.frameGeometry().size());
}

struct Showing {
    QPoint place;
    QPoint middle;
};

// Runs a dialog from its showing to its end, and tells where it was meanwhile.
Showing show(QDialog& dialog) {
    Showing showing;
    QTimer::singleShot(0, [&] {
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog));
        showing = {dialog.pos(), middleOf(dialog)};
        dialog.reject();
    });
    dialog.exec();
    return showing;
}

TEST(DialogHook, PutsTheFirstDialogInTheMiddle) {
    QWidget owner;
    owner.setGeometry(500, 400, 100, 100);
    owner.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&owner));
    clsDLGHOOK hook;
    hook.subCMNDLGHOOKOPEN();
    EXPECT_TRUE(hook.isHooked());
    QDialog dialog(&owner);
    dialog.resize(201, 99);
    const Showing showing = show(dialog);
    EXPECT_EQ(showing.place, showing.middle);
    EXPECT_FALSE(hook.isHooked());
    hook.subCMNDLGHOOKCLOSE();
}

TEST(DialogHook, LeavesTheSecondDialogWhereItWantsToBe) {
    clsDLGHOOK hook;
    hook.subCMNDLGHOOKOPEN();
    QDialog first;
    show(first);
    QDialog second;
    second.resize(200, 100);
    second.move(11, 13);
    EXPECT_EQ(show(second).place, QPoint(11, 13));
}

TEST(DialogHook, ACancelledDialogLeavesNoHook) {
    QWidget owner;
    owner.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&owner));
    clsDLGHOOK hook;
    CommonDialog dialog(&owner);
    dialog.CancelError = true;
    // The offscreen platform has no window manager to tell the least size to.
    test::expectMessage(QStringLiteral("propagateSizeHints"));
    QPoint place;
    QPoint middle;
    QTimer::singleShot(0, [&] {
        auto* shown = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(shown, nullptr);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(shown));
        place = shown->pos();
        middle = middleOf(*shown);
        EXPECT_FALSE(hook.isHooked());
        shown->reject();
    });
    hook.subCMNDLGHOOKOPEN();
    EXPECT_FALSE(dialog.ShowOpen());
    EXPECT_FALSE(hook.isHooked());
    hook.subCMNDLGHOOKCLOSE();
    EXPECT_EQ(place, middle);
}

TEST(DialogHook, TwoDialogsInARowEachGetTheirOwn) {
    QWidget owner;
    owner.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&owner));
    clsDLGHOOK hook;
    for (const QSize& size : {QSize(200, 100), QSize(301, 77)}) {
        hook.subCMNDLGHOOKOPEN();
        QDialog dialog(&owner);
        dialog.resize(size);
        dialog.move(1, 1);
        const Showing showing = show(dialog);
        EXPECT_EQ(showing.place, showing.middle);
        hook.subCMNDLGHOOKCLOSE();
        EXPECT_FALSE(hook.isHooked());
    }
}

TEST(DialogHook, CloseHasWorkWhenNoDialogCameUp) {
    clsDLGHOOK hook;
    CommonDialog::answerWith([](const FileDialogRequest&) { return FileDialogAnswer(); });
    hook.subCMNDLGHOOKOPEN();
    CommonDialog dialog;
    dialog.ShowOpen();
    EXPECT_TRUE(hook.isHooked());
    hook.subCMNDLGHOOKCLOSE();
    CommonDialog::answerWith({});
    EXPECT_FALSE(hook.isHooked());
    QDialog later;
    later.move(7, 9);
    EXPECT_EQ(show(later).place, QPoint(7, 9));
}

TEST(DialogHook, OtherWindowsPassUnmoved) {
    clsDLGHOOK hook;
    hook.subCMNDLGHOOKOPEN();
    QWidget window;
    window.move(3, 5);
    window.show();
    EXPECT_EQ(window.pos(), QPoint(3, 5));
    EXPECT_TRUE(hook.isHooked());
}

TEST(DialogHook, AHookThatGoesFirstIsForgotten) {
    {
        clsDLGHOOK hook;
        hook.subCMNDLGHOOKOPEN();
    }
    QDialog dialog;
    dialog.move(7, 9);
    EXPECT_EQ(show(dialog).place, QPoint(7, 9));
}

}  // namespace
}  // namespace velorama

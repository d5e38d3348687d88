#include "controls/input/keys.h"
#include "ui/window_world.h"

namespace velorama {
namespace {

class PopupsTest : public test::WithMenus {
protected:
    PopupsTest() {
        browse({QStringLiteral("x.bmp"), QStringLiteral("y.bmp")});
        start(album(2));
        pages().tabPAGES->press(2);
    }
    QMenu& found() { return *window->popups().mnuFOUNDTOP; }
    QMenu& selected() { return *window->popups().mnuSELECTEDTOP; }
    /// Where a place of a control stands on the screen, in logical pixels.
    static QPoint at(const QWidget& control, float x, float y) {
        return control.mapToGlobal(QPoint(toPixels(x), toPixels(y)));
    }
};

TEST_F(PopupsTest, TheRightButtonOnASlideHasRemoveAsDefault) {
    emit slideControls().lvwSLIDEBAR->MouseUp(2, 0, 300, 150);
    EXPECT_TRUE(selected().isVisible());
    EXPECT_FALSE(found().isVisible());
    EXPECT_EQ(selected().pos(), at(*slideControls().lvwSLIDEBAR, 300, 150));
    EXPECT_EQ(selected().defaultAction(), entry("mnuSELECTEDCLEAR"));
}

TEST_F(PopupsTest, TheRightButtonOnAFoundPictureHasAddAsDefault) {
    emit foundControls().lvwFOUND->MouseUp(2, 0, 600, 300);
    EXPECT_TRUE(found().isVisible());
    EXPECT_FALSE(selected().isVisible());
    EXPECT_EQ(found().pos(), at(*foundControls().lvwFOUND, 600, 300));
    EXPECT_EQ(found().defaultAction(), entry("mnuFOUNDADD"));
}

TEST_F(PopupsTest, OtherButtonsBringNoneUp) {
    for (const int button : {0, 1, 4}) {
        emit slideControls().lvwSLIDEBAR->MouseUp(button, 0, 300, 150);
        emit foundControls().lvwFOUND->MouseUp(button, 0, 300, 150);
        EXPECT_FALSE(selected().isVisible()) << button;
        EXPECT_FALSE(found().isVisible()) << button;
    }
}

TEST_F(PopupsTest, EmptyListsHaveNone) {
    setToolSetting("Files Location", test::temporaryFolder());
    start();
    emit slideControls().lvwSLIDEBAR->MouseUp(2, 0, 300, 150);
    emit foundControls().lvwFOUND->MouseUp(2, 0, 300, 150);
    emit slideControls().lvwSLIDEBAR->KeyDown(KeyContextMenu, 0);
    emit foundControls().lvwFOUND->KeyDown(KeyContextMenu, 0);
    EXPECT_FALSE(selected().isVisible());
    EXPECT_FALSE(found().isVisible());
}

TEST_F(PopupsTest, TheMenuKeyBringsTheFoundListsMenuUpInBothLists) {
    for (ListView* list : {foundControls().lvwFOUND, slideControls().lvwSLIDEBAR}) {
        emit list->KeyDown(KeyContextMenu, 0);
        EXPECT_TRUE(found().isVisible()) << list->objectName().toStdString();
        EXPECT_EQ(found().pos(), at(*list, 200, 0)) << list->objectName().toStdString();
        EXPECT_FALSE(selected().isVisible());
        found().close();
    }
}

TEST_F(PopupsTest, ADefaultDoesNotStayForTheMenuKey) {
    emit foundControls().lvwFOUND->MouseUp(2, 0, 600, 300);
    found().close();
    emit foundControls().lvwFOUND->KeyDown(KeyContextMenu, 0);
    EXPECT_EQ(found().defaultAction(), nullptr);
}

TEST_F(PopupsTest, EnterOnAnEntryRunsIt) {
    emit slideControls().lvwSLIDEBAR->MouseUp(2, 0, 300, 150);
    QTest::keyClick(&selected(), Qt::Key_Down);
    QTest::keyClick(&selected(), Qt::Key_Return);
    EXPECT_EQ(slides().size(), 1);
}

// -- the keys of the lists --

class ListKeys : public PopupsTest {
protected:
    /// Number of slides after a key in the control. Before it x.bmp is a slide, and y.bmp chosen.
    int after(QWidget& control, Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        window->slides().ClearAll();
        foundControls().lvwFOUND->clearSelection();
        foundControls().lvwFOUND->item(1)->setSelected(true);
        window->slides().Add();
        foundControls().lvwFOUND->clearSelection();
        foundControls().lvwFOUND->item(2)->setSelected(true);
        EXPECT_EQ(slides().size(), 1);
        QTest::keyClick(&control, key, held);
        return static_cast<int>(slides().size());
    }
    std::vector<QWidget*> lists() {
        return {pages().pictures->picVBAR, foundControls().lvwFOUND, slideControls().lvwSLIDEBAR,
                foundControls().ftvFOLDER};
    }
};

TEST_F(ListKeys, InsAddsAndCtrlDelRemoves) {
    for (QWidget* list : lists()) {
        EXPECT_EQ(after(*list, Qt::Key_Insert), 2) << list->objectName().toStdString();
        EXPECT_EQ(after(*list, Qt::Key_Insert, Qt::ShiftModifier), 2);
        EXPECT_EQ(after(*list, Qt::Key_Delete, Qt::ControlModifier), 0)
            << list->objectName().toStdString();
    }
}

TEST_F(ListKeys, DelAloneAndCtrlInsDoNothing) {
    for (QWidget* list : lists()) {
        EXPECT_EQ(after(*list, Qt::Key_Delete), 1) << list->objectName().toStdString();
        EXPECT_EQ(after(*list, Qt::Key_Delete, Qt::ShiftModifier), 1);
        EXPECT_EQ(after(*list, Qt::Key_Insert, Qt::ControlModifier), 1)
            << list->objectName().toStdString();
    }
}

TEST_F(ListKeys, EntriesThatAreOffTurnTheKeysOff) {
    commands().add.setEnabled(false);
    commands().remove.setEnabled(false);
    QTest::keyClick(pages().pictures->picVBAR, Qt::Key_Insert);
    QTest::keyClick(pages().pictures->picVBAR, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(slides().size(), 2);
}

}  // namespace
}  // namespace velorama

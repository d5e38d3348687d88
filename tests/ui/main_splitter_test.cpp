#include "ui/window_world.h"

#include <QAccessible>
#include <QMouseEvent>

namespace velorama {
namespace {

class SplitterTest : public test::WithWindow {
protected:
    SplitterTest() { start(); }
    SplitterBar& bar() { return *pages().pictures->picVBAR; }
};

TEST_F(SplitterTest, ADragLeftOf2700StopsAndSnapsTo2775) {
    emit bar().MouseMove(1, -885, 0);
    EXPECT_EQ(Left(bar()), 2700);
    emit bar().MouseMove(1, -1, 0);
    EXPECT_EQ(Left(bar()), 2700);
    emit bar().MouseUp(1, 0, 0);
    EXPECT_EQ(Left(bar()), 2775);
    EXPECT_EQ(Left(*foundControls().lvwFOUND), 2895);
}

TEST_F(SplitterTest, ADragIsRoundedToAWholeNumber) {
    emit bar().MouseMove(1, 100.4F, 0);
    EXPECT_EQ(Left(bar()), 3685);
    emit bar().MouseMove(1, 0.6F, 0);
    EXPECT_EQ(Left(bar()), 3686);
}

TEST_F(SplitterTest, OnlyTheLeftButtonDrags) {
    for (const int button : {0, 2, 4}) {
        emit bar().MouseMove(button, 600, 0);
        EXPECT_EQ(Left(bar()), 3585) << button;
    }
}

TEST_F(SplitterTest, WithAnotherButtonHeldTooItStays) {
    const auto moveWith = [this](Qt::MouseButtons held) {
        const QPointF place(20, 10);
        QMouseEvent move(QEvent::MouseMove, place, bar().mapToGlobal(place), Qt::NoButton, held,
                         Qt::NoModifier);
        QApplication::sendEvent(&bar(), &move);
    };
    moveWith(Qt::LeftButton | Qt::RightButton);
    moveWith(Qt::RightButton);
    EXPECT_EQ(Left(bar()), 3585);
    moveWith(Qt::LeftButton);
    EXPECT_EQ(Left(bar()), 3885);
}

TEST_F(SplitterTest, TheBarFollowsTheMouseAndTheListsFollowAtRelease) {
    const float list = Left(*foundControls().lvwFOUND);
    emit bar().MouseMove(1, 300, 0);
    EXPECT_EQ(Left(bar()), 3885);
    EXPECT_EQ(Left(*foundControls().lvwFOUND), list);
    emit bar().MouseUp(1, 0, 0);
    EXPECT_EQ(Left(*foundControls().lvwFOUND), 4005);
    EXPECT_EQ(Width(*foundControls().ftvFOLDER), 3885 - 45 - Left(*foundControls().ftvFOLDER));
}

TEST_F(SplitterTest, TheRightLimitIs1000BeforeTheEdge) {
    surface().resize(736, 480);
    setLeft(bar(), 10500);
    window->VBarLayout();
    EXPECT_EQ(Left(bar()), 11040 - 1000);
}

TEST_F(SplitterTest, InANarrowWindowTheRightLimitWins) {
    surface().resize(240, 480);
    window->VBarLayout();
    EXPECT_EQ(Left(bar()), 2600);
}

TEST_F(SplitterTest, WithTheBarAlmostAtTheLeftEdgeNothingElseMoves) {
    const float tree = Width(*foundControls().ftvFOLDER);
    const float tabs = Width(*pages().tabPAGES);
    surface().resize(60, 480);
    setWidth(*pages().tabPAGES, tabs);
    setWidth(*foundControls().ftvFOLDER, tree);
    window->VBarLayout();
    EXPECT_EQ(Left(bar()), -100);
    EXPECT_EQ(Width(*foundControls().ftvFOLDER), tree);
    EXPECT_EQ(Width(*pages().tabPAGES), tabs);
}

TEST_F(SplitterTest, AWindowWithoutWidthHasNoRightLimit) {
    surface().resize(0, 480);
    setLeft(bar(), 3000);
    window->VBarLayout();
    EXPECT_EQ(Left(bar()), 3000);
}

TEST_F(SplitterTest, TheLayoutBringsTheFoundListBack) {
    foundControls().lvwFOUND->hide();
    window->VBarLayout();
    EXPECT_FALSE(foundControls().lvwFOUND->isHidden());
}

TEST_F(SplitterTest, IsASplitterToAssistiveTools) {
    const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&bar());
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::Splitter);
    EXPECT_EQ(told->text(QAccessible::Name),
              QStringLiteral("Divider between folders and pictures"));
}

TEST_F(SplitterTest, MovesByTheKeyboard) {
    QTest::keyClick(&bar(), Qt::Key_Right);
    EXPECT_EQ(Left(bar()), 3735);
    EXPECT_EQ(Left(*foundControls().lvwFOUND), 3855);
    QTest::keyClick(&bar(), Qt::Key_Left);
    EXPECT_EQ(Left(bar()), 3585);
}

TEST_F(SplitterTest, ThePlaceComesBackAtTheNextStart) {
    setLeft(bar(), 4000);
    window->close();
    EXPECT_EQ(toolSetting("Splitter Bar Left"), QStringLiteral("4000"));
    start();
    EXPECT_EQ(Left(bar()), 4000);
}

TEST_F(SplitterTest, APlaceThatIsNoNumberLeavesItAsDesigned) {
    setToolSetting("Splitter Bar Left", QStringLiteral("wide"));
    start();
    EXPECT_EQ(Left(bar()), 3585);
}

TEST_F(SplitterTest, InsAndCtrlDelWorkFromTheBar) {
    browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    start();
    ASSERT_TRUE(foundControls().lvwFOUND->item(1)->Selected());
    QTest::keyClick(&bar(), Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(slides().size(), 0);
    QTest::keyClick(&bar(), Qt::Key_Insert);
    EXPECT_EQ(slides().size(), 1);
    QTest::keyClick(&bar(), Qt::Key_Delete);
    EXPECT_EQ(slides().size(), 1);
    QTest::keyClick(&bar(), Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(slides().size(), 0);
}

}  // namespace
}  // namespace velorama

#include "controls/buttons/tab_strip.h"

#include <QAccessible>
#include <QFontMetricsF>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace velorama {
namespace {

const QString pages = QStringLiteral("Slideshows,Pictures,Music,WebAlbum,Help");

class TabStrip : public testing::Test {
protected:
    TabStrip() {
        strip.resize(700, 100);
        strip.setActiveTabs(pages);
    }
    QPoint middleOf(int number) const { return strip.bounds(number).center().toPoint(); }
    QString lastClick() { return clicks.isEmpty() ? QString() : clicks.last().at(0).toString(); }

    tab strip;
    QSignalSpy clicks{&strip, &tab::Click};
};

TEST_F(TabStrip, MakesItsTabsFromTheTabString) {
    EXPECT_EQ(strip.Tabcount(), 5);
    EXPECT_EQ(strip.Caption(1), QStringLiteral("Slideshows"));
    EXPECT_EQ(strip.Caption(5), QStringLiteral("Help"));
    EXPECT_EQ(strip.Caption(0), QString());
    EXPECT_EQ(strip.Caption(6), QString());
    EXPECT_EQ(strip.ActiveTabs(), pages);
    strip.TabsSetup();
    EXPECT_EQ(strip.Tabcount(), 5);
}

TEST(FreshTabStrip, HasTheOneTabGeneralAndNoneActive) {
    tab strip;
    EXPECT_EQ(strip.Tabcount(), 1);
    EXPECT_EQ(strip.Caption(1), QStringLiteral("General"));
    EXPECT_EQ(strip.ActiveTab(), 0);
}

TEST_F(TabStrip, LaysTabsOutInTwips) {
    strip.setActiveTab(2);
    const QFontMetricsF font(strip.font());
    qreal left = 0;
    for (int number = 1; number <= 5; ++number) {
        const tab::Parts parts = strip.parts(number);
        const qreal top = number == 2 ? 0 : 30;
        const qreal text = qCeil(font.horizontalAdvance(strip.Caption(number))) * 15;
        const qreal height = qCeil(font.height()) * 15;
        EXPECT_EQ(parts.left, QRectF(left, top, 30, 315));
        EXPECT_EQ(parts.middle, QRectF(left + 30, top, text + 160, 315));
        EXPECT_EQ(parts.right, QRectF(left + 30 + text + 160, top, 30, 315));
        EXPECT_EQ(parts.caption, QRectF(left + 110, (top + 315 - height) / 2, text, height));
        left += 30 + text + 160 + 30;
    }
}

TEST_F(TabStrip, APressSelectsAndTellsTheCaption) {
    QTest::mousePress(&strip, Qt::LeftButton, {}, middleOf(3));
    EXPECT_EQ(strip.ActiveTab(), 3);
    EXPECT_EQ(lastClick(), QStringLiteral("Music"));
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(TabStrip, APressOnTheActiveTabTellsItsCaptionToo) {
    strip.setActiveTab(3);
    EXPECT_EQ(clicks.size(), 0);
    QTest::mouseClick(&strip, Qt::LeftButton, {}, middleOf(3));
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(TabStrip, OnlyTheLeftButtonAloneCounts) {
    strip.setActiveTab(1);
    QTest::mouseClick(&strip, Qt::RightButton, {}, middleOf(3));
    QTest::mouseClick(&strip, Qt::MiddleButton, {}, middleOf(3));
    QTest::mousePress(&strip, Qt::RightButton, {}, middleOf(3));
    QTest::mousePress(&strip, Qt::LeftButton, {}, middleOf(3));
    EXPECT_EQ(strip.ActiveTab(), 1);
    EXPECT_EQ(clicks.size(), 0);
}

TEST_F(TabStrip, AMissDoesNothing) {
    strip.setActiveTab(1);
    QTest::mouseClick(&strip, Qt::LeftButton, {}, {690, 5});
    QTest::mouseClick(&strip, Qt::LeftButton, {}, {5, 60});
    EXPECT_EQ(clicks.size(), 0);
    EXPECT_EQ(strip.tabAt({1, 0}), 1) << "the active tab stands higher";
    EXPECT_EQ(strip.tabAt(strip.bounds(2).topLeft() - QPointF(-5, 1)), 0);
}

TEST_F(TabStrip, TheNumberReadLastIsActiveAfterSetup) {
    strip.setActiveTab(4);
    EXPECT_EQ(strip.ActiveTab(), 4);
    strip.setActiveTab(2);
    strip.TabsSetup();
    EXPECT_EQ(strip.ActiveTab(), 4);
}

TEST_F(TabStrip, ANumberWithoutATabIsKept) {
    strip.setActiveTab(9);
    EXPECT_EQ(strip.ActiveTab(), 9);
    EXPECT_EQ(strip.parts(1).left.top(), 30);
    strip.setActiveTab(-1);
    EXPECT_EQ(strip.ActiveTab(), -1);
    strip.grab();
}

TEST_F(TabStrip, ANumberOfMoreThan16BitsChangesNothing) {
    strip.setActiveTab(2);
    for (const int number : {32768, 65536, 65537, 65539, -32769, -65535}) {
        strip.setActiveTab(number);
        EXPECT_EQ(strip.ActiveTab(), 2) << number;
        EXPECT_TRUE(strip.isActive(2)) << number;
    }
}

TEST_F(TabStrip, AnEmptyCaptionGivesTheNumber) {
    strip.AddTab(QString());
    EXPECT_EQ(strip.Caption(6), QStringLiteral("Tab 6"));
    strip.setActiveTabs(QStringLiteral("a,,b"));
    EXPECT_EQ(strip.Caption(2), QStringLiteral("Tab 2"));
    strip.setActiveTabs(QStringLiteral("Web-Album,Help"));
    EXPECT_EQ(strip.Tabcount(), 3) << "a hyphen counts as a comma in the count alone";
    EXPECT_EQ(strip.Caption(1), QStringLiteral("Web-Album"));
    EXPECT_EQ(strip.Caption(3), QStringLiteral("Tab 3"));
}

TEST_F(TabStrip, RemovesTabs) {
    strip.RemoveTab(0);
    strip.RemoveTab(6);
    EXPECT_EQ(strip.Tabcount(), 5);
    strip.RemoveTab(2);
    EXPECT_EQ(strip.Tabcount(), 4);
    EXPECT_EQ(strip.Caption(2), QStringLiteral("Music"));
    EXPECT_EQ(strip.parts(2).left.left(), strip.parts(1).right.right());
    strip.TabClear();
    EXPECT_EQ(strip.Tabcount(), 0);
    EXPECT_EQ(strip.parts(1).middle, QRectF());
    QTest::keyClick(&strip, Qt::Key_Right);
    EXPECT_EQ(clicks.size(), 0);
}

TEST_F(TabStrip, AnotherFontMovesTheTabs) {
    const qreal before = strip.parts(1).middle.width();
    QFont font = strip.font();
    font.setPixelSize(30);
    strip.SetFont(font);
    EXPECT_GT(strip.parts(1).middle.width(), before);
    EXPECT_EQ(strip.parts(1).middle.height(), 315);
}

TEST_F(TabStrip, KeysWalkTheTabs) {
    strip.setActiveTab(1);
    QTest::keyClick(&strip, Qt::Key_Right);
    EXPECT_EQ(lastClick(), QStringLiteral("Pictures"));
    QTest::keyClick(&strip, Qt::Key_End);
    EXPECT_EQ(lastClick(), QStringLiteral("Help"));
    QTest::keyClick(&strip, Qt::Key_Right);
    EXPECT_EQ(strip.ActiveTab(), 5);
    QTest::keyClick(&strip, Qt::Key_Left);
    EXPECT_EQ(lastClick(), QStringLiteral("WebAlbum"));
    QTest::keyClick(&strip, Qt::Key_Home);
    QTest::keyClick(&strip, Qt::Key_Left);
    EXPECT_EQ(strip.ActiveTab(), 1);
}

// A click on a tab leads into its page; keys go on walking.
TEST_F(TabStrip, KeepsTheKeyboardWhileKeysWalkTheTabs) {
    QWidget form;
    QLineEdit page(&form);
    strip.setParent(&form);
    QObject::connect(&strip, &tab::Click, &page, [&page] { page.setFocus(); });
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    strip.setActiveTab(1);
    strip.setFocus();
    for (const char* caption : {"Pictures", "Music", "WebAlbum"}) {
        QTest::keyClick(form.focusWidget(), Qt::Key_Right);
        EXPECT_EQ(lastClick(), QString::fromLatin1(caption));
        EXPECT_TRUE(strip.hasFocus()) << caption;
    }
    strip.press(5);
    EXPECT_EQ(lastClick(), QStringLiteral("Help"));
    EXPECT_TRUE(page.hasFocus());
    strip.setParent(nullptr);
}

TEST_F(TabStrip, IsAListOfPageTabsToAssistiveTools) {
    strip.setActiveTab(2);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&strip);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::PageTabList);
    ASSERT_EQ(list->childCount(), 5);
    QAccessibleInterface* second = list->child(1);
    EXPECT_EQ(second->text(QAccessible::Name), QStringLiteral("Pictures"));
    EXPECT_EQ(second->role(), QAccessible::PageTab);
    EXPECT_TRUE(second->state().selected);
    EXPECT_FALSE(list->child(2)->state().selected);
    EXPECT_EQ(list->indexOfChild(second), 1);
    list->child(4)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(lastClick(), QStringLiteral("Help"));
    strip.RemoveTab(5);
    EXPECT_EQ(list->child(4), nullptr);
}

TEST(TabStripWords, PiecesAreCountedFromOne) {
    EXPECT_EQ(tab::StringPiece(pages, QStringLiteral(","), 1), QStringLiteral("Slideshows"));
    EXPECT_EQ(tab::StringPiece(pages, QStringLiteral(","), 5), QStringLiteral("Help"));
    EXPECT_EQ(tab::StringPiece(pages, QStringLiteral(","), 6), QString());
    EXPECT_EQ(tab::StringPiece(pages, QStringLiteral(","), 0), QString());
    EXPECT_EQ(tab::StringPiece(QStringLiteral("a||b"), QStringLiteral("|"), 2), QString());
    EXPECT_EQ(tab::StringPiece(QStringLiteral("a--b"), QStringLiteral("--"), 2),
              QStringLiteral("b"));
}

TEST(TabStripWords, AreCountedAtCommasLineEndsAndHyphens) {
    EXPECT_EQ(tab::StringWordCount(pages), 5);
    EXPECT_EQ(tab::StringWordCount(QString()), 0);
    EXPECT_EQ(tab::StringWordCount(QStringLiteral("one")), 1);
    EXPECT_EQ(tab::StringWordCount(QStringLiteral("a\r\nb-c,d")), 4);
}

TEST(TabStripColour, BytesStopAtTheirLimits) {
    EXPECT_EQ(tab::funcCOLORVALEDIT(0x102030, 16), 0x203040);
    EXPECT_EQ(tab::funcCOLORVALEDIT(0xF020FF, 32), 0xFF40FF);
    EXPECT_EQ(tab::funcCOLORVALEDIT(0x102030, -32), 0x000010);
    EXPECT_EQ(tab::funcCOLORVALEDIT(0x808080, -1000), 0);
    EXPECT_EQ(tab::funcCOLORVALEDIT(0x808080, 2147483647), 0xFFFFFF);
}

}  // namespace
}  // namespace velorama

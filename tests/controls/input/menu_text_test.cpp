#include "controls/input/menu_text.h"

#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace velorama {
namespace {

QtMessageHandler before = nullptr;

// Menus raise themselves and take the keyboard, which the display of the tests cannot do.
void passOverTheDisplay(QtMsgType type, const QMessageLogContext& where, const QString& text) {
    if (!text.startsWith(QStringLiteral("This plugin does not support"))) {
        before(type, where, text);
    }
}

class MenuTextTest : public testing::Test {
protected:
    void SetUp() override {
        before = qInstallMessageHandler(passOverTheDisplay);
        bar = std::make_unique<QMenuBar>();
        menu = bar->addMenu(QStringLiteral("&Slideshow"));
        open = menu->addAction(QStringLiteral("&Open"));
        menu->addSeparator();
        save = menu->addAction(QStringLiteral("Save &As"));
        more = menu->addMenu(QStringLiteral("Mo&re"));
        deep = more->addAction(QStringLiteral("&About"));
        bar->addMenu(QStringLiteral("Sli&des"));
        popup = std::make_unique<QMenu>();
        add = popup->addAction(QStringLiteral("&Add"));
        addAll = popup->addAction(QStringLiteral("A&dd All"));
        QObject::connect(&text, &mnutxt::MenuHover,
                         [this](const QString& entry) { heard << entry; });
        bar->resize(400, 30);
        bar->show();
    }
    void TearDown() override {
        for (QMenu* shown : {more, menu, popup.get()}) {
            if (bar || shown == popup.get()) {
                shown->close();
            }
        }
        bar.reset();
        popup.reset();
        qInstallMessageHandler(before);
    }
    static void pointAt(QMenu& shown, QAction* entry) {
        const QPoint middle = shown.actionGeometry(entry).center();
        // Menus take a first movement for the pointer's standing there by chance.
        QTest::mouseMove(&shown, middle - QPoint(3, 1));
        QTest::mouseMove(&shown, middle);
    }
    void drop() { QTest::mouseClick(bar.get(), Qt::LeftButton, {}, middleOfFirst()); }
    QPoint middleOfFirst() const { return bar->actionGeometry(menu->menuAction()).center(); }

    std::unique_ptr<QMenuBar> bar;
    std::unique_ptr<QMenu> popup;
    QMenu* menu = nullptr;
    QMenu* more = nullptr;
    QAction* open = nullptr;
    QAction* save = nullptr;
    QAction* deep = nullptr;
    QAction* add = nullptr;
    QAction* addAll = nullptr;
    QStringList heard;
    mnutxt text;
};

TEST_F(MenuTextTest, IsSilentUntilStarted) {
    EXPECT_FALSE(text.isRunning());
    bar->setActiveAction(menu->menuAction());
    EXPECT_TRUE(heard.isEmpty());
}

TEST_F(MenuTextTest, TheKeyboardOnABarAndItsMenuIsHeard) {
    text.start(bar.get());
    EXPECT_TRUE(text.isRunning());
    drop();
    ASSERT_TRUE(menu->isVisible());
    EXPECT_EQ(heard.value(0), QStringLiteral("&Slideshow"));
    heard.clear();
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Down);
    EXPECT_EQ(heard, QStringList({QStringLiteral("&Open"), QStringLiteral("Save &As")}));
}

TEST_F(MenuTextTest, ThePointerOnAMenuEntryIsHeardOncePerEntry) {
    text.start(bar.get());
    drop();
    heard.clear();
    pointAt(*menu, open);
    EXPECT_EQ(heard, QStringList({QStringLiteral("&Open")}));
    pointAt(*menu, save);
    EXPECT_EQ(heard, QStringList({QStringLiteral("&Open"), QStringLiteral("Save &As")}));
}

TEST_F(MenuTextTest, AMenuThatOpensAgainTellsAgain) {
    text.start(bar.get(), {popup.get()});
    for (int time = 1; time <= 2; ++time) {
        popup->popup(QPoint(0, 0));
        QTest::keyClick(popup.get(), Qt::Key_Down);
        popup->close();
        EXPECT_EQ(heard.count(QStringLiteral("&Add")), time);
    }
    for (int time = 1; time <= 2; ++time) {
        drop();
        ASSERT_TRUE(menu->isVisible());
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Escape);
        ASSERT_FALSE(menu->isVisible());
        EXPECT_EQ(heard.count(QStringLiteral("&Open")), time);
    }
}

TEST_F(MenuTextTest, ASeparatorTellsNothing) {
    text.start(nullptr, {popup.get()});
    popup->addSeparator()->hover();
    EXPECT_TRUE(heard.isEmpty());
}

TEST_F(MenuTextTest, AMenuBelowAMenuIsHeard) {
    text.start(bar.get());
    drop();
    QTest::keyClick(menu, Qt::Key_Up);
    QTest::keyClick(menu, Qt::Key_Right);
    ASSERT_TRUE(more->isVisible());
    EXPECT_EQ(heard.last(), QStringLiteral("&About"));
}

TEST_F(MenuTextTest, APopupIsHeard) {
    text.start(bar.get(), {popup.get(), nullptr});
    popup->popup(QPoint(0, 0));
    QTest::keyClick(popup.get(), Qt::Key_Down);
    pointAt(*popup, addAll);
    EXPECT_EQ(heard, QStringList({QStringLiteral("&Add"), QStringLiteral("A&dd All")}));
}

TEST_F(MenuTextTest, StopEndsIt) {
    text.start(bar.get(), {popup.get()});
    text.stop();
    EXPECT_FALSE(text.isRunning());
    drop();
    QTest::keyClick(menu, Qt::Key_Down);
    add->hover();
    EXPECT_TRUE(heard.isEmpty());
    text.stop();
}

TEST_F(MenuTextTest, StartedTwiceAnEntryIsHeardOnce) {
    text.start(bar.get());
    text.start(bar.get());
    drop();
    heard.clear();
    QTest::keyClick(menu, Qt::Key_Down);
    EXPECT_EQ(heard, QStringList({QStringLiteral("&Open")}));
}

TEST_F(MenuTextTest, WithoutABarNothingHappens) {
    text.start(nullptr);
    EXPECT_FALSE(text.isRunning());
}

TEST_F(MenuTextTest, MenusMayGoFirst) {
    text.start(bar.get(), {popup.get()});
    bar.reset();
    text.stop();
    EXPECT_FALSE(text.isRunning());
}

}  // namespace
}  // namespace velorama

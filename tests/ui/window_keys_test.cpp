#include "ui/window_world.h"

#include <QLineEdit>

namespace velorama {
namespace {

class WindowKeysTest : public test::WithWindow {
protected:
    WindowKeysTest() {
        browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
        start(album(3));
        pages().show(2);
        QApplication::setActiveWindow(window.get());
    }
    ListView& slideList() { return *slideControls().lvwSLIDEBAR; }
    /// A key as the keyboard gives it: shortcuts are looked up first.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window->windowHandle(), key, modifiers);
    }
    static QString focus() {
        const QWidget* control = QApplication::focusWidget();
        return control != nullptr ? control->objectName() : QStringLiteral("none");
    }
    void makeCurrent(int slide) {
        slideList().clearSelection();
        slideList().item(slide)->setSelected(true);
        window->slides().SelectChk();
    }
    int current() { return slideList().SelectedItem()->Index(); }
};

TEST_F(WindowKeysTest, AltWithArrowsMovesTheCurrentSlide) {
    const QStringList before = slides();
    makeCurrent(1);
    commands().save.setEnabled(false);
    for (QWidget* place :
         {static_cast<QWidget*>(&slideList()), static_cast<QWidget*>(foundControls().lvwFOUND),
          static_cast<QWidget*>(foundControls().ftvFOLDER)}) {
        place->setFocus();
        press(Qt::Key_Right, Qt::AltModifier);
        EXPECT_EQ(slides(), QStringList({before[1], before[0], before[2]}));
        EXPECT_EQ(current(), 2);
        EXPECT_TRUE(commands().save.isEnabled());
        EXPECT_TRUE(commands().moveBack.isEnabled());
        press(Qt::Key_Left, Qt::AltModifier);
        EXPECT_EQ(slides(), before);
        EXPECT_FALSE(commands().moveBack.isEnabled());
        EXPECT_EQ(QApplication::focusWidget(), place);
    }
    EXPECT_EQ(stored("frmSLIDESHOW\\Selection", "1"), before[0]);
}

TEST_F(WindowKeysTest, RepeatsOfAHeldKeyDoNotQueueUp) {
    start(album(7));
    QApplication::setActiveWindow(window.get());
    makeCurrent(1);
    slideList().setFocus();
    const auto comes = [&](bool isRepeat) {
        QTest::simulateEvent(&slideList(), true, Qt::Key_Right, Qt::AltModifier, {}, isRepeat);
    };
    comes(false);
    EXPECT_EQ(current(), 2);
    comes(true);
    comes(true);
    comes(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(current(), 3);
    comes(true);
    QCoreApplication::processEvents();
    EXPECT_EQ(current(), 4);
    comes(false);
    comes(false);
    EXPECT_EQ(current(), 6) << "presses of a hand count, each of them";
}

// Where there is no place to move to, the key is no plain arrow either.
TEST_F(WindowKeysTest, AtTheEndAltWithArrowsDoesNothing) {
    makeCurrent(1);
    commands().save.setEnabled(false);
    const QStringList before = slides();
    foundControls().lvwFOUND->setFocus();
    foundControls().lvwFOUND->setSelectedItem(2);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(slides(), before);
    EXPECT_EQ(foundControls().lvwFOUND->SelectedItem()->Index(), 2);
    EXPECT_FALSE(commands().save.isEnabled());
}

TEST_F(WindowKeysTest, WhoTypesDoesNotMoveSlides) {
    makeCurrent(1);
    const QStringList before = slides();
    slideList().setFocus();
    press(Qt::Key_F2);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr);
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(slides(), before);
    EXPECT_EQ(QApplication::focusWidget(), editor);
    press(Qt::Key_Escape);
    press(Qt::Key_Right, Qt::AltModifier);
    EXPECT_NE(slides(), before);
    const QStringList moved = slides();
    pages().show(4);
    ASSERT_NE(qobject_cast<QLineEdit*>(QApplication::focusWidget()), nullptr);
    press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(slides(), moved);
}

TEST_F(WindowKeysTest, F6WalksRoundTheWindow) {
    foundControls().ftvFOLDER->setFocus();
    const QStringList round = {QStringLiteral("lvwFOUND"), QStringLiteral("cbtnCONTROLS0"),
                               QStringLiteral("lvwSLIDEBAR"), QStringLiteral("ftvFOLDER")};
    for (const QString& next : round) {
        press(Qt::Key_F6);
        EXPECT_EQ(focus(), next);
    }
    for (const QString& next : {round[2], round[1], round[0], round[3], round[2]}) {
        press(Qt::Key_F6, Qt::ShiftModifier);
        EXPECT_EQ(focus(), next);
    }
}

TEST_F(WindowKeysTest, F6WalksOnFromBetweenTheParts) {
    struct Row {
        QWidget* from;
        const char* next;
        const char* before;
    };
    const Row rows[] = {
        {pages().tabPAGES, "ftvFOLDER", "lvwSLIDEBAR"},
        {pages().pictures->picVBAR, "lvwFOUND", "lvwSLIDEBAR"},
        {pages().pictures->cbtnBROWSEBTNS[1], "cbtnCONTROLS0", "ftvFOLDER"},
        {slideBar().cbtnCONTROLS[8], "lvwSLIDEBAR", "lvwFOUND"},
    };
    for (const Row& row : rows) {
        row.from->setFocus();
        press(Qt::Key_F6);
        EXPECT_EQ(focus(), QLatin1String(row.next)) << row.from->objectName().toStdString();
        row.from->setFocus();
        press(Qt::Key_F6, Qt::ShiftModifier);
        EXPECT_EQ(focus(), QLatin1String(row.before)) << row.from->objectName().toStdString();
    }
}

TEST_F(WindowKeysTest, OnOtherPagesF6BeginsWithTheirFirstControl) {
    const char* first[] = {"lvwALBUMS", "ftvFOLDER", "lstMUSIC", "txtTITLE", "cbtnHELP"};
    for (int page = 1; page <= 5; ++page) {
        pages().show(page);
        slideList().setFocus();
        press(Qt::Key_F6);
        EXPECT_EQ(focus(), QLatin1String(first[page - 1]));
        press(Qt::Key_F6);
        EXPECT_EQ(focus(), page == 2 ? QStringLiteral("lvwFOUND")
                                     : slideBar().cbtnCONTROLS[0]->objectName());
    }
}

TEST_F(WindowKeysTest, F6PassesOverWhatIsOutOfSightOrOff) {
    foundControls().ftvFOLDER->setFocus();
    foundControls().lvwFOUND->hide();
    slideBar().cbtnCONTROLS[0]->setEnabled(false);
    press(Qt::Key_F6);
    EXPECT_EQ(focus(), QStringLiteral("cbtnCONTROLS1"));
    slideList().hide();
    press(Qt::Key_F6);
    EXPECT_EQ(focus(), QStringLiteral("ftvFOLDER"));
}

}  // namespace
}  // namespace velorama

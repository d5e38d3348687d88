#include "controls/buttons/colour_drop_down.h"

#include "controls/buttons/colour_button.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

#include "support/test_world.h"

#include <gtest/gtest.h>

#include <set>

namespace velorama {
namespace {

constexpr int Cells = ColourPalette::Columns * ColourPalette::Rows;

// A form with a field and a button that its colours drop down from.
class ColourDropDown : public testing::Test {
protected:
    ColourDropDown() {
        int top = 0;
        for (QWidget* child : {static_cast<QWidget*>(&field), static_cast<QWidget*>(&button)}) {
            child->setParent(&form);
            child->setGeometry(10, top, 90, 30);
            top += 40;
        }
        form.show();
        form.activateWindow();
        field.setFocus();
        QApplication::processEvents();
    }

    static ColourPalette* palette() {
        auto* shown = qobject_cast<ColourPalette*>(QApplication::activePopupWidget());
        EXPECT_NE(shown, nullptr);
        return shown;
    }
    static QAbstractButton* current() {
        return qobject_cast<QAbstractButton*>(palette()->focusWidget());
    }
    static QString currentName() { return current()->accessibleName(); }
    static QString nameAt(int cell) {
        return colourName(ColourPalette::colours()[static_cast<std::size_t>(cell)]);
    }
    static void press(int key, int times = 1) {
        for (int i = 0; i < times; ++i) {
            QTest::keyClick(current(), static_cast<Qt::Key>(key));
        }
    }
    static QAbstractButton* entry(const QString& name) {
        for (QAbstractButton* button : palette()->findChildren<QAbstractButton*>()) {
            if (button->accessibleName() == name) {
                return button;
            }
        }
        return nullptr;
    }
    static QStringList marked() {
        QStringList names;
        for (const QAbstractButton* button : palette()->findChildren<QAbstractButton*>()) {
            if (button->isChecked()) {
                names.append(button->accessibleName());
            }
        }
        return names;
    }
    static bool isOpen() { return QApplication::activePopupWidget() != nullptr; }

    // The offscreen platform tells that it can neither raise a popup nor give it the keyboard.
    static void expectPopup() {
        test::expectMessage(QStringLiteral("raise()"));
        test::expectMessage(QStringLiteral("grabbing the keyboard"));
    }
    void open() {
        // As back in the event loop: the palette of the time before is gone.
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        expectPopup();
        drop.Open();
    }

    QWidget form;
    QLineEdit field;
    ColourButton button;
    cbtnddp drop{button};
    QSignalSpy clicked{&drop, &cbtnddp::ColorClick};
    QSignalSpy keyed{&drop, &cbtnddp::ColorKey};
    QSignalSpy custom{&drop, &cbtnddp::Custom};
};

TEST(ColourPalette, OffersEachOfItsColoursOnceAsPlainColours) {
    const std::vector<Colour>& colours = ColourPalette::colours();
    ASSERT_EQ(colours.size(), std::size_t{Cells});
    EXPECT_EQ(std::set<Colour>(colours.begin(), colours.end()).size(), colours.size());
    for (const Colour colour : colours) {
        EXPECT_GE(colour, 0);
        EXPECT_LE(colour, 0xFFFFFF);
    }
    // The colours that the show and the web album begin with.
    for (const Colour colour : {0x40, 0xFF, 0x400000, 0xFFFFFF, 16708836, 16744576}) {
        EXPECT_NE(std::find(colours.begin(), colours.end(), colour), colours.end()) << colour;
    }
}

TEST(ColourPalette, IsPlacedBelowOrAboveAndOnTheScreen) {
    const QRect screen(0, 0, 800, 600);
    const QSize popup(200, 150);
    EXPECT_EQ(dropPlace(QRect(100, 50, 80, 24), popup, screen), QPoint(100, 74));
    // The last place that is whole below, and the first that is not.
    EXPECT_EQ(dropPlace(QRect(100, 426, 80, 24), popup, screen), QPoint(100, 450));
    EXPECT_EQ(dropPlace(QRect(100, 427, 80, 24), popup, screen), QPoint(100, 277));
    EXPECT_EQ(dropPlace(QRect(700, 50, 80, 24), popup, screen), QPoint(600, 74));
    EXPECT_EQ(dropPlace(QRect(-30, 50, 80, 24), popup, screen), QPoint(0, 74));
    // Room neither below nor above.
    EXPECT_EQ(dropPlace(QRect(100, 80, 80, 24), popup, QRect(0, 0, 800, 200)), QPoint(100, 50));
    // A screen to the left of the first.
    EXPECT_EQ(dropPlace(QRect(-900, 10, 80, 24), popup, QRect(-800, 0, 800, 600)),
              QPoint(-800, 34));
    // Larger than the screen: its left top corner is what is seen.
    EXPECT_EQ(dropPlace(QRect(50, 50, 80, 24), QSize(900, 700), screen), QPoint(0, 0));
}

TEST(ColourNames, AreSixDigitsRedFirst) {
    EXPECT_EQ(colourName(0x000040), QStringLiteral("#400000"));
    EXPECT_EQ(colourName(0xFFB00A), QStringLiteral("#0AB0FF"));
    EXPECT_EQ(colourName(systemColour(99)), QStringLiteral("#000000"));
    EXPECT_EQ(shownColour(systemColour(15)), QApplication::palette().color(QPalette::Button));
}

TEST_F(ColourDropDown, EveryCellTellsItsColour) {
    open();
    const auto entries = palette()->findChildren<QAbstractButton*>();
    ASSERT_EQ(entries.size(), Cells + 1);
    for (int cell = 0; cell < Cells; ++cell) {
        EXPECT_EQ(entries.at(cell)->accessibleName(), nameAt(cell));
        EXPECT_EQ(entries.at(cell)->toolTip(), nameAt(cell));
    }
    EXPECT_EQ(entries.last()->text(), QStringLiteral("Custom..."));
    EXPECT_EQ(entries.last()->accessibleName(), QStringLiteral("Custom..."));
}

TEST_F(ColourDropDown, TheColourHeldIsMarkedAndCurrent) {
    drop.setColor(0x000040);
    open();
    EXPECT_EQ(marked(), QStringList({QStringLiteral("#400000")}));
    EXPECT_EQ(currentName(), QStringLiteral("#400000"));
}

TEST_F(ColourDropDown, AColourOfItsOwnIsMarkedAtCustom) {
    drop.setColor(0x123456);
    open();
    EXPECT_EQ(marked(), QStringList({QStringLiteral("Custom...")}));
    EXPECT_EQ(currentName(), QStringLiteral("Custom..."));
    EXPECT_EQ(current()->accessibleDescription(), QStringLiteral("#563412"));
}

TEST_F(ColourDropDown, ArrowsWalkTheGridAndStopAtItsEnds) {
    open();
    const struct {
        int key;
        int times;
        int cell;
    } rows[] = {
        {Qt::Key_Left, 1, 0},  {Qt::Key_Up, 1, 0},    {Qt::Key_Right, 1, 1}, {Qt::Key_Down, 1, 9},
        {Qt::Key_Left, 2, 7},  {Qt::Key_Right, 1, 8}, {Qt::Key_Up, 1, 0},    {Qt::Key_Right, 3, 3},
        {Qt::Key_Down, 4, 35}, {Qt::Key_Up, 4, 3},    {Qt::Key_Home, 1, 0},
    };
    for (const auto& row : rows) {
        press(row.key, row.times);
        EXPECT_EQ(currentName(), nameAt(row.cell)) << row.key;
    }
}

TEST_F(ColourDropDown, DownBelowTheGridIsCustomAndUpGoesBackToItsColumn) {
    open();
    press(Qt::Key_Right, 5);
    press(Qt::Key_Down, 5);
    EXPECT_EQ(currentName(), QStringLiteral("Custom..."));
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ(currentName(), QStringLiteral("Custom..."));
    press(Qt::Key_Up);
    EXPECT_EQ(currentName(), nameAt(37));
    press(Qt::Key_End);
    EXPECT_EQ(currentName(), QStringLiteral("Custom..."));
    press(Qt::Key_Left);
    EXPECT_EQ(currentName(), nameAt(39));
}

TEST_F(ColourDropDown, EnterAndSpaceChooseByKey) {
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        drop.setColor(0);
        open();
        press(Qt::Key_Down, 2);
        press(key);
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(keyed.takeLast(), QVariantList({QStringLiteral("255")}));
        EXPECT_EQ(drop.Color(), 0x0000FF);
    }
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(ColourDropDown, AClickChoosesByClick) {
    open();
    QTest::mouseClick(entry(QStringLiteral("#E4F4FE")), Qt::LeftButton);
    EXPECT_FALSE(isOpen());
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.first(), QVariantList({QStringLiteral("16708836")}));
    EXPECT_EQ(drop.Color(), 16708836);
    EXPECT_EQ(keyed.count(), 0);
}

TEST_F(ColourDropDown, CustomIsAskedForByKeyAndClickAndHoldsNoColour) {
    drop.setColor(0x40);
    open();
    press(Qt::Key_End);
    press(Qt::Key_Return);
    open();
    QTest::mouseClick(entry(QStringLiteral("Custom...")), Qt::LeftButton);
    EXPECT_EQ(custom.count(), 2);
    EXPECT_EQ(clicked.count() + keyed.count(), 0);
    EXPECT_EQ(drop.Color(), 0x40);
}

TEST_F(ColourDropDown, EscAndAClickBesideItChooseNothing) {
    drop.setColor(0x40);
    open();
    press(Qt::Key_Right);
    press(Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    open();
    QTest::mouseClick(palette(), Qt::LeftButton, {}, QPoint(-20, -20));
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(clicked.count() + keyed.count() + custom.count(), 0);
    EXPECT_EQ(drop.Color(), 0x40);
}

TEST_F(ColourDropDown, ThePointerMakesAnEntryCurrent) {
    open();
    QTest::mouseMove(entry(nameAt(12)), QPoint(8, 8));
    QTest::mouseMove(entry(nameAt(12)), QPoint(9, 9));
    EXPECT_EQ(currentName(), nameAt(12));
    press(Qt::Key_Down);
    EXPECT_EQ(currentName(), nameAt(20));
}

TEST_F(ColourDropDown, TheKeyboardGoesBackToWhereItWas) {
    for (const int key : {Qt::Key_Escape, Qt::Key_Return}) {
        field.setFocus();
        open();
        EXPECT_TRUE(palette()->isAncestorOf(QApplication::focusWidget()));
        press(key);
        EXPECT_EQ(QApplication::focusWidget(), &field);
    }
}

TEST_F(ColourDropDown, DropsDownBelowItsButton) {
    form.move(40, 30);
    QApplication::processEvents();
    open();
    EXPECT_EQ(palette()->geometry().topLeft(), button.mapToGlobal(QPoint(0, button.height())));
}

TEST_F(ColourDropDown, StaysOnTheScreen) {
    const QRect screen = form.screen()->availableGeometry();
    form.move(screen.bottomRight() - QPoint(30, 110));
    QApplication::processEvents();
    open();
    EXPECT_TRUE(screen.contains(palette()->geometry()));
}

TEST_F(ColourDropDown, IsOpenedOnce) {
    open();
    const ColourPalette* first = palette();
    drop.Open();
    EXPECT_EQ(palette(), first);
}

TEST_F(ColourDropDown, GoesWithItsForm) {
    auto* other = new QWidget;
    auto* inside = new cbtnddp(*new ColourButton(other));
    expectPopup();
    inside->Open();
    delete other;
    EXPECT_FALSE(isOpen());
}

TEST_F(ColourDropDown, TheButtonShowsAndTellsItsColour) {
    button.showColour(0x0000FF);
    EXPECT_EQ(button.toolTip(), QStringLiteral("#FF0000"));
    EXPECT_EQ(button.accessibleDescription(), QStringLiteral("#FF0000"));
    const QImage shown = button.grab().toImage();
    EXPECT_EQ(shown.pixelColor(button.swatch()->geometry().center()), QColor(255, 0, 0));
}

TEST_F(ColourDropDown, TheButtonIsPressedThroughItsSwatchAndBySpaceAndDown) {
    QSignalSpy presses(&button, &QAbstractButton::clicked);
    QTest::mouseClick(&button, Qt::LeftButton, {}, button.swatch()->geometry().center());
    EXPECT_EQ(button.childAt(button.swatch()->geometry().center()), nullptr);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Down);
    QTest::keyClick(&button, Qt::Key_F4);
    EXPECT_EQ(presses.count(), 4);
    QTest::keyClick(&button, Qt::Key_Return);
    EXPECT_EQ(presses.count(), 4);
}

}  // namespace
}  // namespace velorama

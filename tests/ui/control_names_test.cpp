#include "ui/window_world.h"

#include <QAccessible>
#include <QMenuBar>
#include <QScrollBar>

namespace velorama {
namespace {

class ControlNames : public test::WithWindow {
protected:
    ControlNames() { start(); }
    /// Everything in the window that the Tab key can reach.
    std::vector<QWidget*> reachable() {
        std::vector<QWidget*> controls;
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            const bool part = qobject_cast<QScrollBar*>(widget) != nullptr ||
                              widget->focusProxy() != nullptr || isInsideSpinBox(*widget);
            // A control that is hidden itself, and not by its page, only lends its palette.

            if (!part && !isHiddenItself(*widget) && widget->window() == window.get() &&
                (widget->focusPolicy() & Qt::TabFocus) != 0) {
                controls.push_back(widget);
            }
        }
        return controls;
    }
    bool isHiddenItself(const QWidget& widget) {
        return widget.isHidden() && qobject_cast<const Page*>(&widget) == nullptr;
    }
    static bool isInsideSpinBox(const QWidget& widget) {
        return qobject_cast<QAbstractSpinBox*>(widget.parentWidget()) != nullptr;
    }
};

TEST_F(ControlNames, WhatTakesTheKeyboardHasANameForAssistiveTools) {
    ASSERT_GE(reachable().size(), 50U);
    for (QWidget* control : reachable()) {
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(control);
        ASSERT_NE(face, nullptr) << control->objectName().toStdString();
        EXPECT_FALSE(face->text(QAccessible::Name).trimmed().isEmpty())
            << control->objectName().toStdString();
        EXPECT_FALSE(control->objectName().isEmpty()) << control->metaObject()->className();
    }
}

TEST_F(ControlNames, EveryButtonHasATooltip) {
    const QList<cbtn*> buttons = window->findChildren<cbtn*>();
    ASSERT_GE(buttons.size(), 32);
    for (const cbtn* button : buttons) {
        EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
    }
}

TEST_F(ControlNames, ObjectNamesAreNotUsedTwice) {
    std::set<QString> names;
    for (const QWidget* control : reachable()) {
        EXPECT_TRUE(names.insert(control->objectName()).second)
            << control->objectName().toStdString();
    }
}

// From the tabs down the page that is up, then the toolbar and the slide bar, and round.
TEST_F(ControlNames, TheTabKeyGoesDownThePageThenTheToolbarThenTheSlides) {
    start(album(2));
    browse({QStringLiteral("a.bmp")});
    pages().tabPAGES->press(1);
    pages().tabPAGES->setFocus();
    const std::vector<QWidget*> order = {pages().slideshows->cbtnSLIDES[0],
                                         pages().slideshows->cbtnSLIDES[1],
                                         pages().slideshows->cbtnSLIDES[3],
                                         albumControls().lvwALBUMS,
                                         albumControls().btnADD,
                                         albumControls().btnREMOVE,
                                         albumControls().btnView,
                                         slideBar().cbtnCONTROLS[2],
                                         slideBar().cbtnCONTROLS[3],
                                         slideBar().cbtnCONTROLS[5],
                                         slideBar().cbtnCONTROLS[8],
                                         slideBar().cbtnCONTROLS[6],
                                         slideControls().lvwSLIDEBAR,
                                         pages().tabPAGES};
    for (const QWidget* next : order) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), next->objectName());
    }
}

}  // namespace
}  // namespace velorama

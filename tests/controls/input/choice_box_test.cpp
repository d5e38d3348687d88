#include "controls/input/choice_box.h"

#include "support/test_world.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>

#include <gtest/gtest.h>

namespace velorama {
namespace {

const QString longEntry = QStringLiteral("Georgia, \"Times New Roman\", Times, Serif");

class ChoiceBoxTest : public testing::Test {
protected:
    ChoiceBoxTest() { box.addItems({longEntry, QStringLiteral("Arial")}); }
    /// Empty where the box leaves the pointer's rest to others.
    QString tooltip() {
        QHelpEvent help(QEvent::ToolTip, QPoint(3, 3), box.mapToGlobal(QPoint(3, 3)));
        QApplication::sendEvent(&box, &help);
        return help.isAccepted() ? QToolTip::text() : QString();
    }
    ChoiceBox box;
};

TEST_F(ChoiceBoxTest, AsksForItsLongestEntryAndTakesLess) {
    EXPECT_GT(box.sizeHint().width(), box.fontMetrics().horizontalAdvance(longEntry));
    EXPECT_LT(box.minimumSizeHint().width(), box.sizeHint().width() / 2);
}

TEST_F(ChoiceBoxTest, WhatIsCutIsToldByTheTooltip) {
    test::expectMessage(QStringLiteral("does not support raise"));
    box.show();
    box.resize(box.sizeHint());
    EXPECT_EQ(tooltip(), QString());
    box.resize(box.minimumSizeHint());
    EXPECT_EQ(tooltip(), longEntry.toHtmlEscaped());
    box.setCurrentIndex(1);
    EXPECT_EQ(tooltip(), QString());
}

// The box whose entry is cut paints the same whatever the entry's end.
TEST_F(ChoiceBoxTest, PaintsNothingBehindTheEllipsis) {
    box.addItem(longEntry + QStringLiteral(", Monospace"));
    box.resize(box.minimumSizeHint());
    const QImage one = box.grab().toImage();
    box.setCurrentIndex(2);
    EXPECT_EQ(box.grab().toImage(), one);
    box.setCurrentIndex(1);
    EXPECT_NE(box.grab().toImage(), one);
}

TEST_F(ChoiceBoxTest, TheListShowsItsEntriesWhole) {
    test::expectMessage(QStringLiteral("does not support raise"));
    test::expectMessage(QStringLiteral("does not support grabbing"));
    box.resize(box.minimumSizeHint());
    box.show();
    box.showPopup();
    EXPECT_GE(box.view()->viewport()->width(), box.view()->sizeHintForColumn(0));
    box.hidePopup();
}

}  // namespace
}  // namespace velorama

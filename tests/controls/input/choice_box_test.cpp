#include "controls/input/choice_box.h"

#include "support/test_world.h"

#include <QApplication>
#include <QHelpEvent>
#include <QTextDocument>
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
        return help.isAccepted() ? read(QToolTip::text()) : QString();
    }
    /// What is seen of a text that may be markup.
    static QString read(const QString& tooltip) {
        QTextDocument document;
        if (Qt::mightBeRichText(tooltip)) {
            document.setHtml(tooltip);
        } else {
            document.setPlainText(tooltip);
        }
        return document.toPlainText();
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
    EXPECT_EQ(tooltip(), longEntry);
    box.setCurrentIndex(1);
    EXPECT_EQ(tooltip(), QString());
}

// Another box cuts through the letters.
TEST_F(ChoiceBoxTest, PaintsAnEllipsisWhereItCuts) {
    QComboBox other;
    other.addItems({longEntry, QStringLiteral("Arial")});
    const auto look = [this](QComboBox& shown, int entry) {
        shown.setCurrentIndex(entry);
        shown.resize(box.minimumSizeHint());
        return shown.grab().toImage();
    };
    EXPECT_EQ(look(box, 1), look(other, 1));
    EXPECT_NE(look(box, 0), look(other, 0));
}

}  // namespace
}  // namespace velorama

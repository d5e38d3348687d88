#include "controls/input/up_down.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace velorama {
namespace {

// The picture interval of the slideshow settings, and a field beside it to leave it for.
class UpDown : public testing::Test {
protected:
    UpDown() {
        field.design(1, 1000, 1, QStringLiteral("4"));
        field.setParent(&form);
        other.setParent(&form);
        other.move(0, 50);
        form.show();
        form.activateWindow();
        field.setFocus();
        QApplication::processEvents();
    }

    void type(const QString& text) {
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, text);
    }

    QWidget form;
    updown field;
    QLineEdit other;
};

TEST_F(UpDown, HasTheTextOfItsDesign) {
    EXPECT_EQ(field.Text(), QStringLiteral("4"));
    EXPECT_EQ(field.Value(), 4);
}

TEST_F(UpDown, RefusesValuesOutsideItsBounds) {
    const struct {
        int given;
        int held;
    } rows[] = {{1, 1}, {1000, 1000}, {0, 1000}, {1001, 1000}, {-5, 1000}, {500, 500}};
    for (const auto& row : rows) {
        field.setValue(row.given);
        EXPECT_EQ(field.Value(), row.held) << row.given;
    }
}

TEST_F(UpDown, RefusesWhatExceedsTheUpperBoundAsItIsTyped) {
    type(QStringLiteral("1000"));
    EXPECT_EQ(field.Text(), QStringLiteral("1000"));
    type(QStringLiteral("1001"));
    EXPECT_EQ(field.Text(), QStringLiteral("100"));
    type(QStringLiteral("99999"));
    EXPECT_EQ(field.Text(), QStringLiteral("999"));
    type(QStringLiteral("-5.x 7"));
    EXPECT_EQ(field.Text(), QStringLiteral("57"));
}

TEST_F(UpDown, WhatStaysBelowTheLowerBoundBecomesItWhenTheFieldIsLeft) {
    for (const char* text : {"", "0", "00"}) {
        field.setFocus();
        type(QLatin1String(text));
        EXPECT_EQ(field.Text(), QLatin1String(text));
        EXPECT_EQ(field.Value(), 1);
        other.setFocus();
        EXPECT_EQ(field.Text(), QStringLiteral("1")) << text;
    }
}

TEST_F(UpDown, EnterTakesTheValueAndLeavesTheKeyToTheDialog) {
    type(QStringLiteral("0"));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(&field, &enter);
    EXPECT_EQ(field.Text(), QStringLiteral("1"));
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(UpDown, StepsByItsIntervalUpToItsBounds) {
    field.design(100, 3000, 5, QStringLiteral("500"));
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.Text(), QStringLiteral("505"));
    QTest::keyClick(&field, Qt::Key_Down);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.Text(), QStringLiteral("495"));
    QTest::keyClick(&field, Qt::Key_PageUp);
    EXPECT_EQ(field.Text(), QStringLiteral("545"));
    field.setValue(2998);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.Text(), QStringLiteral("3000"));
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.Text(), QStringLiteral("3000"));
    field.setValue(102);
    QTest::keyClick(&field, Qt::Key_Down);
    QTest::keyClick(&field, Qt::Key_Down);
    EXPECT_EQ(field.Text(), QStringLiteral("100"));
}

TEST_F(UpDown, TheWheelSteps) {
    const QPointF inside(5, 5);
    QWheelEvent wheel(inside, field.mapToGlobal(inside), {}, QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&field, &wheel);
    EXPECT_EQ(field.Text(), QStringLiteral("5"));
}

TEST_F(UpDown, TheWheelPassesByWhereTheKeyboardIsElsewhere) {
    other.setFocus();
    const QPointF inside(5, 5);
    QWheelEvent wheel(inside, field.mapToGlobal(inside), {}, QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&field, &wheel);
    EXPECT_EQ(field.Text(), QStringLiteral("4"));
    EXPECT_FALSE(wheel.isAccepted()) << "what is around scrolls";
    EXPECT_TRUE(other.hasFocus());
}

TEST_F(UpDown, AnyTextCanBeSetAndItsLeadingNumberCounts) {
    field.design(10, 2000, 5, QStringLiteral("95"));
    const struct {
        const char* text;
        int value;
    } rows[] = {
        {"300", 300}, {"5", 10},  {"9999", 2000}, {"12px", 12},   {"", 10},
        {"abc", 10},  {"-3", 10}, {" 77", 77},    {"2.5e2", 250},
    };
    for (const auto& row : rows) {
        field.setText(QLatin1String(row.text));
        EXPECT_EQ(field.Text(), QLatin1String(row.text));
        EXPECT_EQ(field.Value(), row.value) << row.text;
    }
}

TEST_F(UpDown, LeavingItKeepsATextThatWasSetAsItStands) {
    for (const char* text : {"9999", "12px", " 7"}) {
        field.setFocus();
        field.setText(QLatin1String(text));
        other.setFocus();
        EXPECT_EQ(field.Text(), QLatin1String(text));
    }
}

TEST_F(UpDown, LeavingItMendsATextWithoutANumber) {
    for (const QString& text :
         {QStringLiteral("abc"), QString(255, u' '), QStringLiteral("-"), QString()}) {
        field.setFocus();
        field.setText(text);
        other.setFocus();
        EXPECT_EQ(field.Text(), QStringLiteral("1")) << text.toStdString();
    }
}

TEST_F(UpDown, ClosingItsWindowLeavesIt) {
    QWidget outer;
    form.setParent(&outer);
    outer.show();
    field.setFocus();
    type(QString());
    ASSERT_EQ(field.Text(), QString());
    outer.close();
    EXPECT_EQ(field.Text(), QStringLiteral("1"));
    form.setParent(nullptr);
}

TEST_F(UpDown, APastedNumberIsTakenFromItsLine) {
    field.selectAll();
    QApplication::clipboard()->setText(QStringLiteral("25\n"));
    field.findChild<QLineEdit*>()->paste();
    EXPECT_EQ(field.Text(), QStringLiteral("25"));
}

TEST_F(UpDown, TellsAssistiveToolsValueAndBounds) {
    EXPECT_EQ(field.property("value"), 4);
    EXPECT_EQ(field.property("minimum"), 1);
    EXPECT_EQ(field.property("maximum"), 1000);
}

TEST_F(UpDown, IsWideEnoughForItsUpperBound) {
    field.setText(QStringLiteral("1000"));
    field.resize(field.sizeHint());
    const auto* edit = field.findChild<QLineEdit*>();
    EXPECT_LT(edit->fontMetrics().horizontalAdvance(QStringLiteral("1000")), edit->width());
}

}  // namespace
}  // namespace velorama

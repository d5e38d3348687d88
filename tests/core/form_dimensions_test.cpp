#include "core/cls_registry.h"

#include "controls/geometry/twips.h"
#include "core/lib_txt.h"
#include "support/memory_registry_store.h"
#include "support/recording_shell.h"

#include <QScreen>
#include <QWidget>

#include <gtest/gtest.h>

#include <cmath>

namespace velorama {
namespace {

class FormDimensions : public testing::Test {
protected:
    void SetUp() override {
        form.setObjectName(QStringLiteral("frmTEST"));
        place(form, 1500, 3000, 4500, 6000);
        ASSERT_GE(screenWidth(form), 4500);
        ASSERT_GE(screenHeight(form), 6000);
    }

    const QString key = QStringLiteral("SOFTWARE\\Brightquay\\Velorama\\frmTEST\\Window");

    void put(const char* name, const QByteArray& data) {
        store.setValue(Hive::CurrentUser, key, QString::fromUtf8(name), {ValueType::Text, data});
    }
    void putGeometry(float left, float top, float width, float height) {
        put("Left", QByteArray::number(static_cast<double>(left)));
        put("Top", QByteArray::number(static_cast<double>(top)));
        put("Width", QByteArray::number(static_cast<double>(width)));
        put("Height", QByteArray::number(static_cast<double>(height)));
    }
    QByteArray stored(const char* name) const {
        const auto value = store.value(Hive::CurrentUser, key, QString::fromUtf8(name));
        return value ? value->data : QByteArray("(none)");
    }
    void expectNothingStored() const {
        for (const char* name : {"Window State", "Left", "Top", "Width", "Height"}) {
            EXPECT_EQ(stored(name), "(none)") << name;
        }
    }
    void expectGeometry(float left, float top, float width, float height) const {
        EXPECT_EQ(Left(form), left);
        EXPECT_EQ(Top(form), top);
        EXPECT_EQ(Width(form), width);
        EXPECT_EQ(Height(form), height);
    }
    float middleLeft() const { return (screenWidth(form) - Width(form)) / 2; }
    float middleTop() const { return (screenHeight(form) - Height(form)) / 2; }

    MemoryRegistryStore store;
    test::RecordingShell shell;
    clsREGISTRY registry{store, shell};
    QWidget form;
};

TEST_F(FormDimensions, ANormalFormSavesAllInTwips) {
    registry.FormDimensionsSave(form, true);
    EXPECT_EQ(stored("Window State"), "0");
    EXPECT_EQ(stored("Left"), "1500");
    EXPECT_EQ(stored("Top"), "3000");
    EXPECT_EQ(stored("Width"), "4500");
    EXPECT_EQ(stored("Height"), "6000");
}

TEST_F(FormDimensions, AMaximisedFormSavesItsStateOnly) {
    put("Left", "15");
    form.setWindowState(Qt::WindowMaximized);
    registry.FormDimensionsSave(form, true);
    EXPECT_EQ(stored("Window State"), "2");
    EXPECT_EQ(stored("Left"), "15");
    EXPECT_EQ(stored("Width"), "(none)");
}

TEST_F(FormDimensions, AMinimisedFormSavesNothing) {
    form.setWindowState(Qt::WindowMinimized | Qt::WindowMaximized);
    registry.FormDimensionsSave(form, true);
    expectNothingStored();
}

TEST_F(FormDimensions, HalfSavesThePositionOnly) {
    registry.FormDimensionsSave(form, false);
    EXPECT_EQ(stored("Left"), "1500");
    EXPECT_EQ(stored("Top"), "3000");
    EXPECT_EQ(stored("Width"), "(none)");
    EXPECT_EQ(stored("Window State"), "(none)");
}

TEST_F(FormDimensions, HalfSavesThePositionInEveryStateAndTheNormalOneOfAMaximisedForm) {
    form.setWindowState(Qt::WindowMaximized);
    registry.FormDimensionsSave(form, false);
    EXPECT_EQ(stored("Left"), "1500");
    EXPECT_EQ(stored("Top"), "3000");
    EXPECT_EQ(stored("Window State"), "(none)");
}

TEST_F(FormDimensions, AnEmptyStoreChangesNothing) {
    registry.FormDimensionsSetup(form, true);
    expectGeometry(1500, 3000, 4500, 6000);
    EXPECT_EQ(form.windowState(), Qt::WindowNoState);
    expectNothingStored();
}

TEST_F(FormDimensions, FullRestoresAll) {
    putGeometry(300, 600, 3000, 4500);
    registry.FormDimensionsSetup(form, true);
    expectGeometry(300, 600, 3000, 4500);
}

TEST_F(FormDimensions, HalfRestoresThePositionOnly) {
    putGeometry(300, 600, 3000, 4500);
    put("Window State", "2");
    registry.FormDimensionsSetup(form, false);
    expectGeometry(300, 600, 4500, 6000);
    EXPECT_EQ(form.windowState(), Qt::WindowNoState);
}

TEST_F(FormDimensions, AStateOtherThanNormalComesUpMaximisedOverTheGeometrySavedLast) {
    for (const char* state : {"1", "2", " 2 "}) {
        form.setWindowState(Qt::WindowNoState);
        putGeometry(300, 600, 3000, 4500);
        put("Window State", state);
        registry.FormDimensionsSetup(form, true);
        EXPECT_EQ(form.windowState(), Qt::WindowMaximized) << state;
        // Where it then stands is the window manager's affair.
        form.setWindowState(Qt::WindowNoState);
        EXPECT_EQ(Width(form), 3000) << state;
        EXPECT_EQ(Height(form), 4500) << state;
    }
}

TEST_F(FormDimensions, TextThatIsNoNumberIsPassedOver) {
    put("Window State", "wide");
    put("Left", "");
    put("Top", "x");
    put("Width", "-300");
    put("Height", "1e999");
    registry.FormDimensionsSetup(form, true);
    expectGeometry(1500, 3000, 4500, 6000);
    EXPECT_EQ(form.windowState(), Qt::WindowNoState);
}

TEST_F(FormDimensions, ANegativePositionComesBackCentred) {
    putGeometry(-15, -15, 3000, 4500);
    registry.FormDimensionsSetup(form, true);
    expectGeometry(middleLeft(), middleTop(), 3000, 4500);
    put("Left", "-300");
    registry.FormDimensionsSetup(form, false);
    EXPECT_EQ(Left(form), middleLeft());
}

TEST_F(FormDimensions, APositionBeyondTheEdgeIsCentredOnThatAxis) {
    putGeometry(screenWidth(form) - 2985, 150, 3000, 4500);
    registry.FormDimensionsSetup(form, true);
    expectGeometry(middleLeft(), 150, 3000, 4500);

    putGeometry(150, screenHeight(form) - 4485, 3000, 4500);
    registry.FormDimensionsSetup(form, true);
    expectGeometry(150, middleTop(), 3000, 4500);

    putGeometry(screenWidth(form) - 3000, screenHeight(form) - 4500, 3000, 4500);
    registry.FormDimensionsSetup(form, true);
    expectGeometry(screenWidth(form) - 3000, screenHeight(form) - 4500, 3000, 4500);
}

TEST_F(FormDimensions, AFormLargerThanTheScreenStartsAtItsCornerInTheFullCaseOnly) {
    const float width = screenWidth(form) + 3000;
    const float height = screenHeight(form) + 4500;
    for (const float stored : {-15.0F, 0.0F, 300.0F}) {
        putGeometry(stored, stored, width, height);
        registry.FormDimensionsSetup(form, true);
        expectGeometry(0, 0, width, height);
        registry.FormDimensionsSetup(form, false);
        expectGeometry(-1500, -2250, width, height);
    }
}

TEST_F(FormDimensions, TheCentreIsRoundedToAWholeNumberHalvesToEven) {
    form.resize(301, 400);  // 4515 twips: the screen's rest is an odd number of half twips
    putGeometry(-15, 150, 4515, 6000);
    registry.FormDimensionsSetup(form, true);
    const double exact = (static_cast<double>(screenWidth(form)) - 4515) / 2;
    ASSERT_NE(exact, std::floor(exact));
    EXPECT_EQ(std::fmod(static_cast<double>(Left(form)), 2), 0);
    EXPECT_NEAR(static_cast<double>(Left(form)), exact, 0.5);
}

TEST_F(FormDimensions, WhatWasSavedIsRestored) {
    registry.FormDimensionsSave(form, true);
    QWidget next;
    next.setObjectName(QStringLiteral("frmTEST"));
    registry.FormDimensionsSetup(next, true);
    EXPECT_EQ(next.pos(), form.pos());
    EXPECT_EQ(next.size(), form.size());
}

}  // namespace
}  // namespace velorama

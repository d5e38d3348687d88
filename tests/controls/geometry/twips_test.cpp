#include "controls/geometry/twips.h"

#include <gtest/gtest.h>

#include <limits>

namespace velorama {
namespace {

TEST(Twips, KeepsTheExactValueBesideThePixels) {
    QWidget form;
    QWidget box(&form);
    place(box, 1327.5F, 947.5F, 26145, 14205);
    EXPECT_EQ(Left(box), 1327.5F);
    EXPECT_EQ(Top(box), 947.5F);
    EXPECT_EQ(box.geometry(), QRect(88, 63, 1743, 947));
}

TEST(Twips, RoundsToPixelsWithHalvesToEven) {
    EXPECT_EQ(toPixels(7.5F), 0);
    EXPECT_EQ(toPixels(22.5F), 2);
    EXPECT_EQ(toPixels(37.5F), 2);
    EXPECT_EQ(toPixels(-22.5F), -2);
    EXPECT_EQ(toPixels(30, 7.5F), 4);
}

// Whoever adds the width to the left edge must come to a number.
TEST(Twips, StaysWithinWhatAWindowMayMeasure) {
    EXPECT_EQ(toPixels(3.2e10F), QWIDGETSIZE_MAX);
    EXPECT_EQ(toPixels(-1e18F), -QWIDGETSIZE_MAX);
    EXPECT_EQ(toPixels(QWIDGETSIZE_MAX * 15.0F), QWIDGETSIZE_MAX);
}

TEST(Twips, WhatOthersChangedCounts) {
    QWidget form;
    QWidget box(&form);
    setLeft(box, 1327.5F);
    box.move(100, 0);
    EXPECT_EQ(Left(box), 1500);
}

TEST(Twips, RefusesASizeThatIsNone) {
    QWidget box;
    place(box, 0, 0, 1500, 1500);
    EXPECT_FALSE(setWidth(box, -1));
    EXPECT_FALSE(setHeight(box, -0.5F));
    EXPECT_FALSE(setWidth(box, std::numeric_limits<float>::quiet_NaN()));
    EXPECT_FALSE(setWidth(box, std::numeric_limits<float>::infinity()));
    EXPECT_EQ(Width(box), 1500);
    EXPECT_EQ(Height(box), 1500);
    EXPECT_TRUE(setWidth(box, 0));
    EXPECT_EQ(Width(box), 0);
}

TEST(Twips, HeldPixelsFollowOnceAtTheEnd) {
    QWidget form;
    QWidget box(&form);
    place(box, 150, 150, 1500, 1500);
    {
        const HeldGeometry outer(box);
        {
            const HeldGeometry inner(box);
            setTop(box, 300);
        }
        setTop(box, 450.5F);
        EXPECT_EQ(Top(box), 450.5F);
        EXPECT_EQ(Width(box), 1500);
        EXPECT_EQ(box.geometry(), QRect(10, 10, 100, 100));
    }
    EXPECT_EQ(box.geometry(), QRect(10, 30, 100, 100));
    EXPECT_EQ(Top(box), 450.5F);
}

}  // namespace
}  // namespace velorama

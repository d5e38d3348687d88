#include "imaging/pixels/fit.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

TEST(CellSize, makes_the_longer_side_fill_the_cell) {
    EXPECT_EQ(cellSize({640, 480}, 64), QSizeF(64, 48));
    EXPECT_EQ(cellSize({640, 480}, 90), QSizeF(90, 67.5));
    EXPECT_EQ(cellSize({480, 640}, 64), QSizeF(48, 64));
    EXPECT_EQ(cellSize({480, 640}, 90), QSizeF(67.5, 90));
    EXPECT_EQ(cellSize({300, 300}, 90), QSizeF(90, 90));
    EXPECT_EQ(cellSize({10, 10}, 64), QSizeF(64, 64));
    EXPECT_TRUE(cellSize({0, 10}, 64).isEmpty());
}

TEST(FitTarget, rounds_halves_to_even_and_keeps_a_pixel) {
    EXPECT_EQ(fitTarget({640, 480}, Fit::cell(64)), QSize(64, 48));
    EXPECT_EQ(fitTarget({640, 480}, Fit::cell(90)), QSize(90, 68));
    EXPECT_EQ(fitTarget({640, 468}, Fit::cell(10)), QSize(10, 7));
    EXPECT_EQ(fitTarget({20, 13}, Fit::cell(10)), QSize(10, 6));
    EXPECT_EQ(fitTarget({10000, 1}, Fit::cell(64)), QSize(64, 1));
    EXPECT_EQ(fitTarget({640, 480}, Fit::area({1743, 947})), QSize(1743, 947));
    EXPECT_EQ(fitTarget({640, 480}, Fit::whole()), QSize(640, 480));
    EXPECT_TRUE(fitTarget({0, 0}, Fit::cell(64)).isEmpty());
}

TEST(FittedRect, gives_bars_where_the_ratio_differs) {
    EXPECT_EQ(fittedRect({640, 480}, {64, 64}), QRect(0, 8, 64, 48));
    EXPECT_EQ(fittedRect({480, 640}, {64, 64}), QRect(8, 0, 48, 64));
    EXPECT_EQ(fittedRect({10, 10}, {64, 64}), QRect(0, 0, 64, 64));
    EXPECT_EQ(fittedRect({640, 480}, {640, 480}), QRect(0, 0, 640, 480));
    EXPECT_EQ(fittedRect({6000, 4000}, {1743, 947}), QRect(162, 0, 1420, 947));  // 1420.5, 161.5
}

TEST(FittedRect, rounds_halves_to_even) {
    EXPECT_EQ(fittedRect({2, 1}, {5, 5}), QRect(0, 2, 5, 2));   // height 2.5, top 1.5
    EXPECT_EQ(fittedRect({2, 1}, {7, 7}), QRect(0, 2, 7, 4));   // height 3.5, top 1.5
    EXPECT_EQ(fittedRect({1, 1}, {8, 7}), QRect(0, 0, 7, 7));   // left 0.5
    EXPECT_EQ(fittedRect({1, 1}, {10, 7}), QRect(2, 0, 7, 7));  // left 1.5
}

TEST(FittedRect, of_an_empty_size_is_empty) {
    EXPECT_TRUE(fittedRect({0, 5}, {5, 5}).isEmpty());
    EXPECT_TRUE(fittedRect({5, 5}, {5, 0}).isEmpty());
}

}  // namespace
}  // namespace velorama

#include "imaging/paint/blend.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velorama {
namespace {

QImage plain(int width, int height, QRgb colour) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

/// 256 x 256 pixels: the source's green is x, the target's y.
QImage ramp(bool alongX) {
    QImage image(256, 256, QImage::Format_RGB32);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            const int value = alongX ? x : y;
            image.setPixel(x, y, qRgb(255 - value, value, value ^ 0x55));
        }
    }
    return image;
}

TEST(AlphaBlend, is_exact_for_every_source_target_and_alpha) {
    const QImage source = ramp(true);
    const QImage target = ramp(false);
    for (int alpha = 0; alpha < 256; ++alpha) {
        QImage result = target;
        CumulativeBlend().AlphaBlend(result, source, alpha);
        for (int y = 0; y < 256; ++y) {
            const auto* row = reinterpret_cast<const QRgb*>(result.constScanLine(y));
            for (int x = 0; x < 256; ++x) {
                const int sum = x * alpha + y * (255 - alpha);
                ASSERT_EQ(qGreen(row[x]), std::lround(sum / 255.0)) << x << y << alpha;
                ASSERT_EQ(qRed(row[x]), 255 - qGreen(row[x]));
                ASSERT_EQ(qAlpha(row[x]), 255);
            }
        }
    }
}

TEST(AlphaBlend, of_a_large_bitmap_reaches_every_row) {
    QImage target = plain(1201, 907, qRgb(10, 20, 30));
    const QImage source = plain(1201, 907, qRgb(110, 220, 130));
    EXPECT_EQ(CumulativeBlend().AlphaBlend(target, source, 51), QRegion(target.rect()));
    EXPECT_EQ(target, plain(1201, 907, qRgb(30, 60, 50)));
}

TEST(AlphaBlend, covers_what_both_share_from_their_corner) {
    QImage target = plain(3, 3, qRgb(0, 0, 0));
    const QImage source = plain(2, 5, qRgb(255, 255, 255));
    EXPECT_EQ(CumulativeBlend().AlphaBlend(target, source, 255), QRegion(0, 0, 2, 3));
    EXPECT_EQ(target.pixel(1, 2), qRgb(255, 255, 255));
    EXPECT_EQ(target.pixel(2, 0), qRgb(0, 0, 0));
}

TEST(AlphaBlend, leaves_copies_of_the_target_alone) {
    QImage target = plain(4, 4, qRgb(1, 2, 3));
    const QImage copy = target;
    CumulativeBlend().AlphaBlend(target, plain(4, 4, qRgb(200, 200, 200)), 100);
    EXPECT_NE(target, copy);
    EXPECT_EQ(copy, plain(4, 4, qRgb(1, 2, 3)));
}

TEST(AlphaBlend, keeps_an_opaque_target_opaque) {
    QImage target = plain(5, 1, qRgb(0, 0, 0));
    QImage source(5, 1, QImage::Format_ARGB32);
    source.fill(0x00102030);
    CumulativeBlend().AlphaBlend(target, source, 255);
    EXPECT_EQ(*reinterpret_cast<const QRgb*>(target.constScanLine(0)), 0xFF102030U);
}

TEST(AlphaBlend, refuses_other_depths_and_alphas_out_of_range) {
    QImage target = plain(4, 4, qRgb(1, 2, 3));
    const QImage source = plain(4, 4, qRgb(200, 200, 200));
    CumulativeBlend blend;
    EXPECT_TRUE(blend.AlphaBlend(target, QImage(), 10).isEmpty());
    EXPECT_TRUE(blend.AlphaBlend(target, QImage(4, 4, QImage::Format_RGB888), 10).isEmpty());
    EXPECT_TRUE(blend.AlphaBlend(target, source, -1).isEmpty());
    EXPECT_TRUE(blend.AlphaBlend(target, source, 256).isEmpty());
    QImage none;
    EXPECT_TRUE(blend.AlphaBlend(none, source, 10).isEmpty());
    EXPECT_EQ(target, plain(4, 4, qRgb(1, 2, 3)));
}

}  // namespace
}  // namespace velorama

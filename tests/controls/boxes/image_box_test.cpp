#include "controls/boxes/image_box.h"

#include "controls/geometry/twips.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

QImage plain(QSize size, QColor colour = Qt::red) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

TEST(ImageBox, WithoutStretchTakesThePicturesNaturalSize) {
    ImageBox box;
    box.setPicture(plain({40, 30}), {40, 30});
    const float dot = TwipsPerPixelX(box);
    EXPECT_FLOAT_EQ(Width(box), 40 * dot);
    EXPECT_FLOAT_EQ(Height(box), 30 * dot);
    box.setPicture(plain({20, 10}), {20, 10});
    EXPECT_FLOAT_EQ(Width(box), 20 * dot);
    EXPECT_EQ(box.naturalSize(), QSize(20, 10));
}

TEST(ImageBox, ABitmapDecodedSmallerCountsAtThePicturesSize) {
    ImageBox box;
    box.setPicture(plain({40, 30}), {320, 240});
    EXPECT_FLOAT_EQ(Width(box), 320 * TwipsPerPixelX(box));
    EXPECT_FLOAT_EQ(Height(box), 240 * TwipsPerPixelY(box));
}

TEST(ImageBox, WithStretchKeepsTheSizeItIsGiven) {
    ImageBox box;
    box.setStretch(true);
    place(box, 0, 0, 1500, 1200);
    box.setPicture(plain({40, 30}), {40, 30});
    EXPECT_FLOAT_EQ(Width(box), 1500);
    EXPECT_FLOAT_EQ(Height(box), 1200);
    const QImage seen = box.grab().toImage();
    EXPECT_EQ(seen.pixelColor(seen.width() - 1, seen.height() - 1), QColor(Qt::red));
}

TEST(ImageBox, OffAndOnAgainItTakesTheNaturalSizeAndKeepsTheNext) {
    ImageBox box;
    box.setStretch(true);
    box.setPicture(plain({40, 30}), {40, 30});
    setWidth(box, 9000);
    box.setStretch(false);
    EXPECT_FLOAT_EQ(Width(box), 40 * TwipsPerPixelX(box));
    box.setStretch(true);
    EXPECT_FLOAT_EQ(Width(box), 40 * TwipsPerPixelX(box));
    setWidth(box, 9000);
    EXPECT_FLOAT_EQ(Width(box), 9000);
}

TEST(ImageBox, NoBitmapChangesNothing) {
    ImageBox box;
    box.setPicture(plain({40, 30}), {40, 30});
    box.setPicture({}, {7, 7});
    EXPECT_EQ(box.Picture().size(), QSize(40, 30));
    EXPECT_EQ(box.naturalSize(), QSize(40, 30));
    EXPECT_FLOAT_EQ(Width(box), 40 * TwipsPerPixelX(box));
}

TEST(ImageBox, EmptyItKeepsItsSizeAndPaintsNothing) {
    ImageBox box;
    place(box, 0, 0, 300, 300);
    box.setStretch(false);
    EXPECT_FLOAT_EQ(Width(box), 300);
    EXPECT_EQ(box.grab().toImage().pixelColor(5, 5), box.palette().color(QPalette::Window));
}

// Odd sizes and odd places, which are broken device pixels at most scales.
TEST(ImageBox, AtItsNaturalSizeEveryPixelIsADevicePixel) {
    for (const float left : {0.0F, 25.0F, 35.0F, 50.0F}) {
        QWidget frame;
        frame.resize(400, 300);
        ImageBox box(&frame);
        QImage pattern(103, 57, QImage::Format_RGB32);
        for (int y = 0; y < pattern.height(); ++y) {
            for (int x = 0; x < pattern.width(); ++x) {
                pattern.setPixel(x, y, (x ^ y) & 1 ? 0xFFFFFFFF : qRgb(x, y, 77));
            }
        }
        box.setPicture(pattern, pattern.size());
        setLeft(box, left);
        setTop(box, left);
        const QImage seen = frame.grab().toImage().convertToFormat(QImage::Format_RGB32);
        const int at = qRound(box.x() * box.devicePixelRatioF());
        bool isThere = false;
        for (int nudge = -1; nudge <= 1; ++nudge) {
            isThere |= seen.copy(at + nudge, at + nudge, 101, 55) == pattern.copy(0, 0, 101, 55);
        }
        EXPECT_TRUE(isThere) << left;
    }
}

}  // namespace
}  // namespace velorama

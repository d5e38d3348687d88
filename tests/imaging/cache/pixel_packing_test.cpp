#include "imaging/cache/pixel_packing.h"

#include <gtest/gtest.h>

#include <random>

namespace velorama {
namespace {

QImage noise(int width, int height, QImage::Format format) {
    std::mt19937 random(1);
    QImage image(width, height, format);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const QRgb pixel = static_cast<QRgb>(random());
            image.setPixel(
                x, y, format == QImage::Format_RGB32 ? pixel | 0xFF000000U : qPremultiply(pixel));
        }
    }
    return image;
}

TEST(PixelPacking, GivesEveryPixelBack) {
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied}) {
        for (const QSize size : {QSize(1, 1), QSize(64, 43), QSize(1, 90), QSize(180, 180)}) {
            const QImage image = noise(size.width(), size.height(), format);
            const QImage back = unpackPixels(packPixels(image));
            EXPECT_EQ(back.format(), format);
            EXPECT_EQ(back, image);
        }
    }
}

TEST(PixelPacking, HoldsNoMoreMemoryThanItsBytes) {
    QImage plain(180, 180, QImage::Format_RGB32);
    plain.fill(Qt::red);
    const QByteArray packed = packPixels(plain);
    EXPECT_LT(packed.size(), 2000);
    EXPECT_LT(packed.capacity(), 2 * packed.size());
}

TEST(PixelPacking, TakesNoOtherFormat) {
    EXPECT_TRUE(packPixels(QImage()).isEmpty());
    EXPECT_TRUE(packPixels(QImage(4, 4, QImage::Format_Grayscale8)).isEmpty());
    EXPECT_TRUE(packPixels(QImage(2049, 1, QImage::Format_RGB32)).isEmpty());
}

TEST(PixelPacking, BelievesNoBytesThatAreOfNoBitmap) {
    const QImage whole = noise(64, 43, QImage::Format_RGB32);
    const QByteArray good = packPixels(whole);
    EXPECT_TRUE(unpackPixels({}).isNull());
    EXPECT_TRUE(unpackPixels(QByteArray(11, '\0')).isNull());
    for (qsizetype length = 0; length < good.size(); length += 7) {
        EXPECT_TRUE(unpackPixels(good.left(length)).isNull()) << length;
    }
    QByteArray wide = good;
    wide[2] = '\x7F';
    EXPECT_TRUE(unpackPixels(wide).isNull());
    for (const int height : {42, 44}) {
        QByteArray other = packPixels(noise(64, height, QImage::Format_RGB32));
        other.replace(0, 7, good.first(7));
        EXPECT_TRUE(unpackPixels(other).isNull()) << "the head tells of 43 rows";
    }
    QByteArray turned = good;  // as many pixels, in other rows
    std::swap(turned[1], turned[3]);
    EXPECT_TRUE(unpackPixels(turned).isNull());
    std::mt19937 random(2);
    for (int turn = 0; turn < 2000; ++turn) {
        QByteArray damaged = good;
        damaged[static_cast<qsizetype>(random() % static_cast<unsigned>(good.size()))] =
            static_cast<char>(random());
        const QImage image = unpackPixels(damaged);
        EXPECT_TRUE(image.isNull() || image == whole) << turn;
    }
}

}  // namespace
}  // namespace velorama

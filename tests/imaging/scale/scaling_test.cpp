#include "imaging/scale/scaling.h"

#include <gtest/gtest.h>

#include <QTimer>

#include <cmath>
#include <random>

namespace velorama {
namespace {

QImage noise(QSize size, QImage::Format format, unsigned seed) {
    std::mt19937 random(seed);
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            // Full and empty channels besides, for overshoot.
            const quint32 bits = random();
            image.setPixel(x, y, bits % 3 == 0 ? bits : bits % 3 == 1 ? 0xFF00FF00U : 0x00FFFFFFU);
        }
    }
    return image.convertToFormat(format);
}

double kernel(double x) {
    const double d = std::abs(x);
    if (d >= 2) {
        return 0;
    }
    return d < 1 ? 1.5 * d * d * d - 2.5 * d * d + 1 : -0.5 * d * d * d + 2.5 * d * d - 4 * d + 2;
}

int channelOf(const QImage& image, int x, int y, int c) {
    return image.constScanLine(y)[4 * x + c];
}

/// Weighted sum of `value(i)` over the kernel's reach, places beyond the edge repeating it.
template <typename Value>
double weighted(int place, int from, int to, Value value) {
    const double step = double(from) / to;
    const double width = std::max(1.0, step);
    const double centre = (place + 0.5) * step - 0.5;
    double sum = 0;
    double weights = 0;
    for (int i = int(std::floor(centre - 2 * width)); i <= int(std::ceil(centre + 2 * width));
         ++i) {
        const double weight = kernel((i - centre) / width);
        if (weight != 0) {
            sum += weight * value(std::clamp(i, 0, from - 1));
            weights += weight;
        }
    }
    return sum / weights;
}

/// All in double precision. Returns the largest difference of any channel.
double largestDifference(const QImage& source, const QImage& result) {
    const bool seeThrough = source.hasAlphaChannel();
    double largest = 0;
    for (int c = 3; c >= 0; --c) {
        std::vector<double> rows(size_t(source.width()) * size_t(result.height()));
        for (int y = 0; y < result.height(); ++y) {
            for (int x = 0; x < source.width(); ++x) {
                rows[size_t(y) * size_t(source.width()) + size_t(x)] =
                    weighted(y, source.height(), result.height(),
                             [&](int i) { return channelOf(source, x, i, c); });
            }
        }
        for (int y = 0; y < result.height(); ++y) {
            for (int x = 0; x < result.width(); ++x) {
                const double* row = rows.data() + size_t(y) * size_t(source.width());
                double wanted =
                    weighted(x, source.width(), result.width(), [&](int i) { return row[i]; });
                const double top = seeThrough && c < 3 ? channelOf(result, x, y, 3) : 255;
                wanted = std::clamp(wanted, 0.0, top);
                largest = std::max(largest, std::abs(wanted - channelOf(result, x, y, c)));
            }
        }
    }
    return largest;
}

class Resampling : public testing::TestWithParam<std::pair<QSize, QSize>> {};

TEST_P(Resampling, is_within_one_of_double_precision) {
    const auto [from, to] = GetParam();
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied}) {
        const QImage source = noise(from, format, 7);
        const QImage result = resampled(source, to);
        ASSERT_EQ(result.size(), to);
        ASSERT_EQ(result.format(), format);
        EXPECT_LE(largestDifference(source, result), 1.0);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Sizes, Resampling,
    testing::Values(std::pair{QSize(40, 30), QSize(97, 61)},
                    std::pair{QSize(97, 61), QSize(40, 30)},
                    std::pair{QSize(300, 201), QSize(7, 5)}, std::pair{QSize(1, 1), QSize(9, 4)},
                    std::pair{QSize(33, 1), QSize(5, 6)}, std::pair{QSize(1, 33), QSize(6, 5)},
                    std::pair{QSize(50, 40), QSize(1, 1)}, std::pair{QSize(1500, 2), QSize(1, 2)},
                    std::pair{QSize(2, 1500), QSize(3, 1)}, std::pair{QSize(20, 30), QSize(20, 11)},
                    std::pair{QSize(20, 30), QSize(41, 30)}, std::pair{QSize(3, 3), QSize(200, 2)},
                    std::pair{QSize(700, 600), QSize(650, 620)}));

TEST(Resampled, keeps_a_plain_picture_plain) {
    QImage source(123, 77, QImage::Format_RGB32);
    source.fill(qRgb(255, 1, 128));
    for (const QSize size : {QSize(1000, 3), QSize(50, 50), QSize(1, 1)}) {
        QImage plain(size, QImage::Format_RGB32);
        plain.fill(qRgb(255, 1, 128));
        EXPECT_EQ(resampled(source, size), plain);
    }
}

TEST(Resampled, to_its_own_size_is_the_source_itself) {
    const QImage source = noise({31, 17}, QImage::Format_RGB32, 3);
    EXPECT_EQ(resampled(source, {31, 17}).constBits(), source.constBits());
}

TEST(Resampled, of_nothing_or_to_nothing_is_null) {
    const QImage source = noise({3, 3}, QImage::Format_RGB32, 3);
    EXPECT_TRUE(resampled(QImage(), {3, 3}).isNull());
    EXPECT_TRUE(resampled(source, {0, 3}).isNull());
    EXPECT_TRUE(resampled(source, {3, -1}).isNull());
}

TEST(Resampled, never_lifts_a_colour_above_its_alpha) {
    const QImage source = noise({40, 40}, QImage::Format_ARGB32_Premultiplied, 11);
    const QImage result = resampled(source, {95, 63});
    for (int y = 0; y < result.height(); ++y) {
        for (int x = 0; x < result.width(); ++x) {
            const QRgb p = reinterpret_cast<const QRgb*>(result.constScanLine(y))[x];
            ASSERT_LE(std::max({qRed(p), qGreen(p), qBlue(p)}), qAlpha(p));
        }
    }
}

QImage plainBitmap(int width, int height, QRgb colour) {
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    image.fill(QColor::fromRgba(colour));
    return qAlpha(colour) == 255 ? image.convertToFormat(QImage::Format_RGB32) : image;
}

TEST(FittedBitmap, fills_what_the_picture_leaves_free) {
    const QImage wide = fittedBitmap(plainBitmap(20, 10, 0xFF0000FF), {8, 8}, 0x0000FF);
    EXPECT_EQ(wide.pixel(4, 1), qRgb(255, 0, 0));
    EXPECT_EQ(wide.pixel(0, 2), qRgb(0, 0, 255));
    EXPECT_EQ(wide.pixel(7, 5), qRgb(0, 0, 255));
    EXPECT_EQ(wide.pixel(4, 6), qRgb(255, 0, 0));
    const QImage tall = fittedBitmap(plainBitmap(10, 20, 0xFF0000FF), {8, 8}, 0x00FF00);
    EXPECT_EQ(tall.pixel(1, 4), qRgb(0, 255, 0));
    EXPECT_EQ(tall.pixel(2, 4), qRgb(0, 0, 255));
    EXPECT_EQ(tall.pixel(6, 4), qRgb(0, 255, 0));
}

TEST(FittedBitmap, lays_see_through_pictures_over_the_fill) {
    const QImage image = fittedBitmap(plainBitmap(4, 4, 0x80FF0000), {6, 6}, 0xFFFFFF);
    EXPECT_EQ(image.format(), QImage::Format_RGB32);
    EXPECT_EQ(image.pixel(3, 3), qRgb(255, 127, 127));
    const QImage clear = fittedBitmap(plainBitmap(4, 4, 0), {4, 4}, 0x102030);
    EXPECT_EQ(clear.pixel(0, 3), qRgb(0x30, 0x20, 0x10));
}

TEST(FittedBitmap, has_the_aspect_of_what_the_picture_fills_of_its_bitmap) {
    const QImage bitmap = plainBitmap(40, 30, 0xFF0000FF);
    const QImage whole = fittedBitmap(bitmap, {8, 8}, 0);
    EXPECT_EQ(whole.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(whole.pixel(0, 1), qRgb(0, 0, 255));
    const QImage part = fittedBitmap(bitmap, {8, 8}, 0, QRectF(0, 10, 40, 15));
    EXPECT_EQ(part.pixel(0, 1), qRgb(0, 0, 0));
    EXPECT_EQ(part.pixel(0, 3), qRgb(0, 0, 255));
}

TEST(FittedBitmap, of_its_own_size_is_the_bitmap_itself_where_the_picture_fills_it) {
    const QImage bitmap = noise({31, 17}, QImage::Format_RGB32, 3);
    EXPECT_EQ(fittedBitmap(bitmap, {31, 17}, 0).constBits(), bitmap.constBits());
    EXPECT_NE(fittedBitmap(bitmap, {31, 17}, 0, QRectF(0, 0, 30.5, 17)), bitmap);
}

TEST(FittedBitmap, survives_extreme_shapes) {
    EXPECT_EQ(fittedBitmap(plainBitmap(5000, 1, 0xFF0000FF), {8, 8}, 0).size(), QSize(8, 8));
    EXPECT_EQ(fittedBitmap(plainBitmap(1, 5000, 0xFF0000FF), {3, 8}, 0).size(), QSize(3, 8));
    EXPECT_TRUE(fittedBitmap(QImage(), {8, 8}, 0).isNull());
    EXPECT_TRUE(fittedBitmap(plainBitmap(5, 5, 0xFF0000FF), {8, 0}, 0).isNull());
}

TEST(PictureResize, gives_the_bitmap_fitted) {
    const QImage bitmap = plainBitmap(20, 10, 0xFF0000FF);
    EXPECT_EQ(PictureResize(bitmap, {8, 8}, 0xFFFFFF), fittedBitmap(bitmap, {8, 8}, 0xFFFFFF));
}

TEST(PictureResize, of_no_picture_is_nothing) {
    EXPECT_TRUE(PictureResize(QImage(), {8, 8}, 0xFFFFFF).isNull());
    EXPECT_TRUE(PictureResize(plainBitmap(3, 3, 0xFF000000), {0, 8}, 0xFFFFFF).isNull());
}

/// Number of times that pending events get to run in `step`; each run queues the next.
int yields(const std::function<void()>& step) {
    QObject context;
    int count = 0;
    std::function<void()> next = [&] {
        ++count;
        QTimer::singleShot(0, &context, next);
    };
    QTimer::singleShot(0, &context, next);
    step();
    return count;
}

TEST(PictureResize, yields_at_start_in_the_drawing_and_at_end) {
    const QImage bitmap = plainBitmap(20, 10, 0xFF0000FF);
    EXPECT_EQ(yields([&] { PictureResize(bitmap, {8, 8}, 0xFFFFFF); }), 3);
    EXPECT_EQ(yields([&] { PictureResize(QImage(), {8, 8}, 0xFFFFFF); }), 2);
    EXPECT_EQ(yields([&] { fittedBitmap(bitmap, {8, 8}, 0xFFFFFF); }), 0);
}

}  // namespace
}  // namespace velorama

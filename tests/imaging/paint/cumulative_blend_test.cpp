#include "imaging/paint/blend.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <QRandomGenerator>

#include <algorithm>
#include <ostream>
#include <set>

namespace velorama {
namespace {

constexpr int lastStep = 240;

QImage noise(QSize size, quint32 seed, QImage::Format format = QImage::Format_RGB32) {
    QImage image(size, format);
    QRandomGenerator random(seed);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y, random.generate() | (image.hasAlphaChannel() ? 0 : 0xFF000000));
        }
    }
    return image;
}

QImage gradient(QSize size, QRgb from, QRgb to) {
    QImage image(size, QImage::Format_RGB32);
    QLinearGradient shades(0, 0, size.width(), size.height());
    shades.setColorAt(0, from);
    shades.setColorAt(1, to);
    QPainter(&image).fillRect(image.rect(), shades);
    return image;
}

/// White but for the rows in the middle.
QImage barred(QSize size, int bar, quint32 seed) {
    QImage image = noise(size, seed);
    QPainter painter(&image);
    painter.fillRect(0, 0, size.width(), bar, Qt::white);
    painter.fillRect(0, size.height() - bar, size.width(), bar, Qt::white);
    return image;
}

QImage withDot(QImage image, QPoint at, QRgb change) {
    image.setPixel(at, image.pixel(at) ^ change);
    return image;
}

/// One step by the book, over the whole bitmap.
QImage blendedWhole(const QImage& target, const QImage& source, int alpha) {
    QImage result = target.copy();
    for (int y = 0; y < target.height(); ++y) {
        auto* out = result.scanLine(y);
        const auto* from = source.constScanLine(y);
        for (int i = 0; i < target.width() * 4; ++i) {
            out[i] = static_cast<uchar>((2 * (from[i] * alpha + out[i] * (255 - alpha)) + 255) /
                                        (2 * 255));
        }
    }
    return result;
}

bool isSameRow(const QImage& one, const QImage& other, int y) {
    const auto* row = one.constScanLine(y);
    return std::equal(row, row + one.bytesPerLine(), other.constScanLine(y));
}

struct Pair {
    const char* what;
    QImage from;
    QImage to;
    int steps = lastStep;
};

void PrintTo(const Pair& pair, std::ostream* out) {
    *out << pair.what;
}

const QSize odd(67, 53);
// More than a megabyte: worked on in two bands.
const QSize large(523, 521);

class EachStep : public testing::TestWithParam<Pair> {};

TEST_P(EachStep, IsToTheBitWhatTheWholeBlendGives) {
    QImage shown = GetParam().from.copy();
    const QImage& source = GetParam().to;
    QImage expected = shown.copy();
    CumulativeBlend blend;
    for (int step = 1; step <= GetParam().steps; ++step) {
        const QImage before = expected;
        expected = blendedWhole(expected, source, step);
        const QRegion changed = blend.AlphaBlend(shown, source, step);
        ASSERT_EQ(shown, expected) << step;
        ASSERT_EQ(changed.isEmpty(), before == expected) << step;
        for (int y = 0; y < shown.height(); ++y) {
            ASSERT_TRUE(changed.contains(QRect(0, y, shown.width(), 1)) ||
                        isSameRow(before, expected, y))
                << step;
        }
    }
    EXPECT_TRUE(shown == source || GetParam().steps < lastStep);
}

INSTANTIATE_TEST_SUITE_P(
    Pictures, EachStep,
    testing::Values(Pair{"noise", noise(odd, 1), noise(odd, 2)},
                    Pair{"noise in two bands", noise(large, 3), noise(large, 4), 12},
                    Pair{"gradients", gradient(odd, 0xFF000000, 0xFFFFFFFF),
                         gradient(odd, 0xFFFFFF00, 0xFF0000FF)},
                    Pair{"the same", noise(odd, 5), noise(odd, 5)},
                    Pair{"one pixel by 1", noise(odd, 6), withDot(noise(odd, 6), {66, 30}, 1)},
                    Pair{"one pixel by 128", noise(odd, 6), withDot(noise(odd, 6), {0, 52}, 128)},
                    Pair{"white bars", barred(odd, 11, 7), barred(odd, 5, 8)},
                    Pair{"with alpha", noise(odd, 9, QImage::Format_ARGB32),
                         noise(odd, 10, QImage::Format_ARGB32)}));

// Every difference of two channels there is.
TEST(Steps, OnlyThoseUpTo46And64And128ChangeAnything) {
    QImage shown(256, 256, QImage::Format_RGB32);
    QImage source(256, 256, QImage::Format_RGB32);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            shown.setPixel(x, y, qRgb(x, x, x));
            source.setPixel(x, y, qRgb(y, y, y));
        }
    }
    std::set<int> changing;
    std::set<int> expected = {64, 128};
    CumulativeBlend blend;
    for (int step = 1; step <= lastStep; ++step) {
        const QImage before = shown.copy();
        const QRegion changed = blend.AlphaBlend(shown, source, step);
        ASSERT_EQ(changed.isEmpty(), shown == before) << step;
        if (!changed.isEmpty()) {
            changing.insert(step);
        }
        if (step <= 46) {
            expected.insert(step);
        }
    }
    EXPECT_EQ(changing, expected);
    EXPECT_EQ(shown, source);
}

TEST(Steps, OfOnePixelByOneChangeItsRowOnce) {
    const QImage source = noise(odd, 11);
    QImage shown = withDot(source, {40, 21}, 0x000100);
    CumulativeBlend blend;
    for (int step = 1; step <= lastStep; ++step) {
        const QRegion changed = blend.AlphaBlend(shown, source, step);
        ASSERT_EQ(changed, step == 128 ? QRegion(0, 21, 67, 1) : QRegion()) << step;
    }
}

TEST(Steps, FarApartRowsAreBandsOfTheirOwn) {
    const QImage source = noise({9, 200}, 12);
    QImage shown = source;
    for (const int y : {10, 12, 150, 199}) {
        shown = withDot(shown, {4, y}, 0x800000);
    }
    CumulativeBlend blend;
    EXPECT_EQ(blend.AlphaBlend(shown, source, 1),
              QRegion(0, 10, 9, 3) + QRegion(0, 150, 9, 1) + QRegion(0, 199, 9, 1));
}

TEST(Steps, OfASharedTargetKeepTheRowsThatStay) {
    const QImage source = noise(odd, 13);
    QImage shown = withDot(source, {3, 50}, 0xFF);
    const QImage copy = shown;
    const QImage expected = blendedWhole(shown, source, 60);
    CumulativeBlend().AlphaBlend(shown, source, 60);
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(copy, withDot(source, {3, 50}, 0xFF));
}

TEST(Steps, SeeWhatOthersDrawBetweenThem) {
    QImage shown = noise(odd, 14);
    const QImage source = noise(odd, 15);
    CumulativeBlend blend;
    for (int i = 0; i < 3; ++i) {
        blend.AlphaBlend(shown, source, 240);
    }
    ASSERT_EQ(shown, source);
    ASSERT_TRUE(blend.AlphaBlend(shown, source, 240).isEmpty());
    shown.setPixel(5, 6, source.pixel(5, 6) ^ 0xFF);
    EXPECT_EQ(blend.AlphaBlend(shown, source, 255), QRegion(0, 6, 67, 1));
    const QImage other = withDot(source, {7, 8}, 0xFF);
    EXPECT_EQ(blend.AlphaBlend(shown, other, 240), QRegion(0, 8, 67, 1));
}

}  // namespace
}  // namespace velorama

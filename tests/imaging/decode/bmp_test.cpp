#include "imaging/bmp_samples.h"
#include "imaging/decode/decoding.h"
#include "imaging/samples.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

using namespace test::pixels;
using test::bmpFile;
using test::BmpSample;
using test::bytesOf;
using test::little;
using test::Pixels;
using test::pixelsOf;

const Pixels allFour{red, green, blue, black};

// Blue and black below red and green.
const QByteArray rows24 = bytesOf("FF0000 000000 0000 0000FF 00FF00 0000");
const QByteArray palette3 = bytesOf("000000 0000FF 00FF00 FF0000");
const QByteArray palette4 = bytesOf("00000000 0000FF00 00FF0000 FF000000");

TEST(BmpHeader, OfEverySizeIsRead) {
    EXPECT_EQ(pixelsOf(BmpSample{.content = rows24, .header = 12}), allFour);
    for (const quint32 header :
         {16, 18, 20, 24, 28, 32, 36, 38, 40, 42, 44, 46, 48, 52, 56, 60, 64, 108, 124}) {
        const BmpSample sample{.content = rows24, .header = header};
        EXPECT_EQ(pixelsOf(sample), allFour) << header;
    }
}

TEST(BmpHeader, OfAnotherSizeIsNotRead) {
    for (const quint32 header :
         {0U, 4U, 11U, 13U, 15U, 65U, 107U, 109U, 125U, 4000U, 0xFFFFFFFFU}) {
        QByteArray file = bmpFile({.content = rows24, .header = 124});
        file.replace(14, 4, little({header}));
        EXPECT_EQ(pixelsOf(file), Pixels()) << header;
    }
}

TEST(BmpHeader, OfASizeThatCannotBeIsNotRead) {
    for (const QSize size : {QSize(0, 2), QSize(2, 0), QSize(-2, 2), QSize(2, INT_MIN),
                             QSize(INT_MIN, 2), QSize(INT_MAX, INT_MAX)}) {
        const QByteArray file = bmpFile({.size = size, .content = rows24});
        EXPECT_TRUE(decodePicture(file).isNull()) << size.width() << " " << size.height();
    }
}

TEST(BmpHeader, CutOffAnywhereIsNotRead) {
    for (const quint32 header : {12, 16, 40, 52, 56, 64, 108, 124}) {
        const QByteArray file = bmpFile({.content = rows24, .header = header});
        for (qsizetype length = 0; length <= 14 + qsizetype(header); ++length) {
            EXPECT_TRUE(decodePicture(file.first(length)).isNull()) << header << " " << length;
        }
    }
}

TEST(BmpHeader, MayNotSayWhereThePixelsAre) {
    for (const qint64 offset : {0, 14, 53}) {
        const BmpSample sample{.content = rows24, .offset = offset};
        EXPECT_EQ(pixelsOf(sample), allFour) << offset;
    }
    EXPECT_EQ(
        pixelsOf(BmpSample{
            .depth = 2, .content = bytesOf("C0000000 60000000"), .palette = palette4, .offset = 0}),
        allFour);
    EXPECT_EQ(pixelsOf(BmpSample{.content = rows24, .offset = 0xFFFFFFFF}), Pixels());
}

TEST(BmpRows, OfIndicesGoThroughThePalette) {
    EXPECT_EQ(pixelsOf(BmpSample{.size = {9, 1},
                                 .depth = 1,
                                 .content = bytesOf("A5800000"),
                                 .palette = bytesOf("FFFFFF00 0000FF00")}),
              (Pixels{red, white, red, white, white, red, white, red, red}));
    EXPECT_EQ(pixelsOf(BmpSample{
                  .size = {5, 1}, .depth = 2, .content = bytesOf("1B800000"), .palette = palette4}),
              (Pixels{black, red, green, blue, green}));
    EXPECT_EQ(pixelsOf(BmpSample{.size = {3, 1},
                                 .depth = 4,
                                 .content = bytesOf("12300000"),
                                 .palette = palette4 + QByteArray(48, '\0')}),
              (Pixels{red, green, blue}));
    EXPECT_EQ(pixelsOf(BmpSample{
                  .size = {3, 1},
                  .depth = 8,
                  .content = bytesOf("01FF0300"),
                  .palette = palette4 + QByteArray(252 * 4 - 4, '\0') + bytesOf("33221100")}),
              (Pixels{red, 0xFF112233, blue}));
}

TEST(BmpRows, OfTheFirstHeaderHavePalettesOfThreeBytes) {
    EXPECT_EQ(pixelsOf(BmpSample{.depth = 2,
                                 .content = bytesOf("C0000000 60000000"),
                                 .header = 12,
                                 .palette = palette3}),
              allFour);
    EXPECT_EQ(pixelsOf(BmpSample{.depth = 8,
                                 .content = bytesOf("03000000 01020000"),
                                 .header = 12,
                                 .palette = palette3 + QByteArray(3, '\0').repeated(252),
                                 .offset = 0}),
              allFour);
}

TEST(BmpRows, GoFromTopToBottomForANegativeHeight) {
    const BmpSample sample{.size = {2, -2}, .content = rows24};
    EXPECT_EQ(pixelsOf(sample), (Pixels{blue, black, red, green}));
}

TEST(BmpPalette, EndsWhereThePixelsBegin) {
    // Four entries of the 256 that the depth allows.
    const BmpSample sample{
        .depth = 8, .content = bytesOf("03000000 01020000"), .palette = palette4};
    EXPECT_EQ(pixelsOf(sample), allFour);
    // The first index beyond them.
    const BmpSample beyond{
        .depth = 8, .content = bytesOf("03000000 01040000"), .palette = palette4};
    EXPECT_EQ(pixelsOf(beyond), (Pixels{red, black, blue, black}));
}

TEST(BmpPalette, MayBeLargerThanStatedOrThanTheDepthAllows) {
    BmpSample sample{.depth = 8, .content = bytesOf("03000000 01020000"), .palette = palette4};
    for (const quint32 stated : {1U, 2U, 4U, 5U, 256U, 257U, 300U, 0x12345678U, 0xFFFFFFFFU}) {
        sample.colours = stated;
        EXPECT_EQ(pixelsOf(sample), allFour) << stated;
    }
    sample.palette = palette4 + QByteArray(4, '\x55').repeated(296);
    sample.colours = 300;
    EXPECT_EQ(pixelsOf(sample), allFour);
    sample.offset = 0;
    EXPECT_EQ(pixelsOf(sample), allFour);
}

TEST(BmpPalette, BeforeFullColoursIsPassedOver) {
    const BmpSample sample{.content = rows24, .palette = palette4, .colours = 4};
    EXPECT_EQ(pixelsOf(sample), allFour);
    const BmpSample nowhere{.content = rows24, .palette = palette4, .colours = 4, .offset = 0};
    EXPECT_EQ(pixelsOf(nowhere), allFour);
}

TEST(BmpCut, ShowsThePixelsThatAreThere) {
    const QByteArray file = bmpFile({.size = {2, 4}, .content = rows24 + rows24});
    EXPECT_EQ(pixelsOf(file.chopped(8)),
              (Pixels{black, black, blue, black, red, green, blue, black}));
    EXPECT_EQ(pixelsOf(file.chopped(5)),
              (Pixels{red, black, blue, black, red, green, blue, black}));
    EXPECT_EQ(pixelsOf(file.chopped(2)).at(1), green);  // only what fills up the row
    EXPECT_EQ(pixelsOf(file.chopped(28)),
              (Pixels{black, black, black, black, black, black, blue, black}));
    EXPECT_EQ(pixelsOf(file.chopped(32)), Pixels());
    const BmpSample indices{.depth = 8,
                            .content = bytesOf("03000000 01"),
                            .palette = bytesOf("FFFFFF00 0000FF00 00FF0000 FF000000")};
    EXPECT_EQ(pixelsOf(indices), (Pixels{red, white, blue, white}));
}

TEST(BmpCut, ThatHasLostNearlyAllIsNotRead) {
    const QByteArray content(3200, '\x77');
    const BmpSample sixteenth{.size = {100, 128}, .depth = 32, .content = content};
    EXPECT_FALSE(decodePicture(bmpFile(sixteenth)).isNull());
    const BmpSample less{.size = {100, 129}, .depth = 32, .content = content};
    EXPECT_TRUE(decodePicture(bmpFile(less)).isNull());
}

TEST(BmpCover, ShowsTheFileInside) {
    const QImage image = test::landscape(30, 20);
    const BmpSample jpeg{.size = {30, 20},
                         .depth = 0,
                         .content = test::jpegBytes(image, {.orientation = 6}),
                         .compression = 4};
    EXPECT_EQ(decodePicture(bmpFile(jpeg)).bitmap, decodePicture(jpeg.content).bitmap);
    EXPECT_EQ(pixelsOf(jpeg).size(), 600U);
    const BmpSample png{
        .size = {3, 2}, .depth = 0, .content = test::toolkitBytes(image, "png"), .compression = 5};
    EXPECT_EQ(decodePicture(bmpFile(png)).bitmap, image);
    EXPECT_EQ(pixelsOf(png).size(), 600U);
}

TEST(BmpCover, OfAnotherKindIsNotRead) {
    const QByteArray inner = bmpFile({.content = rows24});
    const QByteArray png = test::toolkitBytes(test::landscape(30, 20), "png");
    for (const quint32 compression : {4, 5}) {
        const QByteArray file = bmpFile({.depth = 0, .content = inner, .compression = compression});
        EXPECT_TRUE(decodePicture(file).isNull());
        MemoryBytes source(file);
        EXPECT_EQ(pictureSize(source), QSize());
    }
    EXPECT_EQ(pixelsOf(BmpSample{.depth = 0, .content = png, .compression = 4}), Pixels());
    EXPECT_EQ(pixelsOf(BmpSample{.depth = 0, .content = {}, .compression = 5}), Pixels());
}

TEST(BmpKinds, ThatAreNotReadAreEmptyInSizeToo) {
    const struct {
        int depth;
        quint32 compression;
        quint32 header;
    } rows[] = {{0, 0, 40},          {3, 0, 40},   {5, 0, 12},   {48, 0, 40}, {65535, 0, 124},
                {8, 2, 40},          {4, 1, 40},   {24, 1, 40},  {1, 3, 64},  {1, 3, 40},
                {8, 3, 108},         {64, 3, 124}, {24, 4, 40},  {8, 4, 64},  {24, 5, 64},
                {32, 6, 64},         {32, 7, 40},  {32, 11, 40}, {8, 12, 40}, {4, 13, 40},
                {32, 0xFFFFFFFF, 40}};
    for (const auto& row : rows) {
        const QByteArray file = bmpFile({.depth = row.depth,
                                         .content = QByteArray(64, '\1'),
                                         .header = row.header,
                                         .compression = row.compression,
                                         .masks = little({0xFF0000, 0xFF00, 0xFF})});
        MemoryBytes source(file);
        EXPECT_TRUE(decodePicture(file).isNull()) << row.depth << " " << row.compression;
        EXPECT_EQ(pictureSize(source), QSize()) << row.depth << " " << row.compression;
    }
}

}  // namespace
}  // namespace velorama

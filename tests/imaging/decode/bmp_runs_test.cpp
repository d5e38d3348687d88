#include "imaging/bmp_samples.h"
#include "imaging/decode/decoding.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

using namespace test::pixels;
using test::bmpFile;
using test::BmpSample;
using test::bytesOf;
using test::Pixels;
using test::pixelsOf;

// White, red, green, blue.
const QByteArray palette = bytesOf("FFFFFF00 0000FF00 00FF0000 FF000000");

/// The pixels of a picture in run lengths.
Pixels runs(int depth, QSize size, const char* codes) {
    return pixelsOf(BmpSample{.size = size,
                              .depth = depth,
                              .content = bytesOf(codes),
                              .header = depth == 24 ? 64U : 40U,
                              .compression = depth == 24  ? 4U
                                             : depth == 8 ? 1U
                                                          : 2U,
                              .palette = depth == 24 ? QByteArray() : palette});
}

TEST(BmpRuns, RepeatAPixel) {
    const Pixels wanted{green, green, blue, red, red, red};
    EXPECT_EQ(runs(8, {3, 2}, "0301 0000 0202 0103 0001"), wanted);
    EXPECT_EQ(runs(24, {3, 2}, "030000FF 0000 0200FF00 01FF0000 0001"), wanted);
}

TEST(BmpRuns, OfHalfBytesTakeTurns) {
    EXPECT_EQ(runs(4, {5, 1}, "0512 0001"), (Pixels{red, green, red, green, red}));
    EXPECT_EQ(runs(4, {4, 1}, "0133 0312 0001"), (Pixels{blue, red, green, red}));
}

TEST(BmpRuns, WrittenOutFillUpToAnEvenNumberOfBytes) {
    const Pixels four{red, green, blue, green};
    EXPECT_EQ(runs(8, {4, 1}, "0003 010203EE 0102 0001"), four);
    EXPECT_EQ(runs(8, {5, 1}, "0004 01020301 0102 0001"), (Pixels{red, green, blue, red, green}));
    EXPECT_EQ(runs(4, {4, 1}, "0003 1230 0122 0001"), four);
    EXPECT_EQ(runs(4, {6, 1}, "0005 123120EE 0133 0001"),
              (Pixels{red, green, blue, red, green, blue}));
    EXPECT_EQ(runs(24, {4, 1}, "0003 0000FF 00FF00 FF0000EE 0100FF00 0001"), four);
    EXPECT_EQ(runs(24, {5, 1}, "0004 0000FF 00FF00 FF0000 0000FF 0100FF00 0001"),
              (Pixels{red, green, blue, red, green}));
}

TEST(BmpRuns, LeaveOutInThePalettesFirstColour) {
    EXPECT_EQ(runs(8, {3, 2}, "0101 0002 0101 0102 0001"),
              (Pixels{white, white, green, red, white, white}));
    EXPECT_EQ(runs(8, {2, 2}, "0101 0000 0102"), (Pixels{green, white, red, white}));
    EXPECT_EQ(runs(8, {2, 2}, "0001"), (Pixels{white, white, white, white}));
    EXPECT_EQ(runs(24, {2, 1}, "010000FF 0001"), (Pixels{red, black}));
}

TEST(BmpRuns, EndAtTheRowsEnd) {
    EXPECT_EQ(runs(8, {2, 2}, "FF01 0102 0000 0103 0001"), (Pixels{blue, white, red, red}));
    EXPECT_EQ(runs(8, {2, 2}, "0005 010203010200 0000 0003 03020100 0001"),
              (Pixels{blue, green, red, green}));
    EXPECT_EQ(runs(8, {2, 2}, "0101 0002 FE00 0103 0000 0202 0001"),
              (Pixels{green, green, red, white}));
}

TEST(BmpRuns, EndAtTheLastRow) {
    EXPECT_EQ(runs(8, {1, 1}, "0101 0000 0102 0001"), (Pixels{red}));
    EXPECT_EQ(runs(8, {1, 2}, "0002 0005 0101 0001"), (Pixels{white, white}));
    EXPECT_EQ(runs(8, {1, 2}, "0001 0101"), (Pixels{white, white}));
}

TEST(BmpRuns, GoFromTopToBottomForANegativeHeight) {
    EXPECT_EQ(runs(8, {1, -2}, "0101 0000 0102 0001"), (Pixels{red, green}));
}

TEST(BmpRuns, CutOffShowWhatIsThere) {
    EXPECT_EQ(runs(8, {2, 2}, "0201 0000 0102"), (Pixels{green, white, red, red}));
    EXPECT_EQ(runs(8, {2, 2}, "0201 0000 01"), (Pixels{white, white, red, red}));
    EXPECT_EQ(runs(8, {4, 1}, "0004 0102"), (Pixels{red, green, white, white}));
    EXPECT_EQ(runs(4, {4, 1}, "0004 12"), (Pixels{red, green, white, white}));
    EXPECT_EQ(runs(24, {3, 1}, "0003 0000FF FF"), (Pixels{red, black, black}));
    EXPECT_EQ(runs(8, {2, 1}, ""), Pixels());
}

TEST(BmpRuns, TooFewForTheSizeAreNotRead) {
    // Two bytes make 255 pixels at most; a sixteenth of that must be there.
    EXPECT_EQ(runs(8, {4080, 1}, "0001").size(), 4080U);
    EXPECT_EQ(runs(8, {4081, 1}, "0001"), Pixels());
    EXPECT_EQ(runs(24, {8000, 8000}, "0001"), Pixels());
}

TEST(BmpRuns, OfDamageAreSurvived) {
    const QByteArray whole = bmpFile({.size = {7, 5},
                                      .depth = 4,
                                      .content = bytesOf("0512 0000 0003 1230 0002 0201 0722 0001"),
                                      .compression = 2,
                                      .palette = palette});
    for (qsizetype i = 0; i < whole.size(); ++i) {
        for (int bit = 0; bit < 8; ++bit) {
            QByteArray wrong = whole;
            wrong[i] = static_cast<char>(wrong[i] ^ 1 << bit);
            const Picture picture = decodePicture(wrong);
            EXPECT_TRUE(picture.isNull() || picture.size == picture.bitmap.size()) << i;
        }
    }
}

}  // namespace
}  // namespace velorama

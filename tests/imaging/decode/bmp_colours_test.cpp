#include "imaging/bmp_samples.h"
#include "imaging/decode/decoding.h"

#include <gtest/gtest.h>

#include <QColorSpace>

namespace velorama {
namespace {

using namespace test::pixels;
using test::bmpFile;
using test::BmpSample;
using test::bytesOf;
using test::little;
using test::Pixels;
using test::pixelsOf;

TEST(BmpColours, OfSixteenBitsAreRounded) {
    // 31, 1 and 16 of 31 are 255, 8.2 and 131.6 of 255; the highest bit says nothing.
    const BmpSample sample{.size = {4, 1}, .depth = 16, .content = bytesOf("007C 2184 1042 FFFF")};
    EXPECT_EQ(pixelsOf(sample), (Pixels{0xFFFF0000, 0xFF080808, 0xFF848484, white}));
}

TEST(BmpColours, OfThirtyTwoBitsHaveNoAlphaUnlessTheySaySo) {
    const BmpSample sample{.size = {2, 1}, .depth = 32, .content = bytesOf("33221100 66554480")};
    EXPECT_EQ(pixelsOf(sample), (Pixels{0xFF112233, 0xFF445566}));
    for (const quint32 header : {56, 108, 124}) {
        BmpSample later = sample;
        later.header = header;
        later.masks = little({0xFF0000, 0xFF00, 0xFF, 0xFF000000});
        EXPECT_EQ(pixelsOf(later), (Pixels{0xFF112233, 0xFF445566})) << header;
    }
}

/// A file of one row whose pixels are these.
BmpSample masked(int depth, std::initializer_list<quint32> masks, const QByteArray& row) {
    return {.size = {static_cast<int>(row.size() * 8 / depth), 1},
            .depth = depth,
            .content = row,
            .compression = 3,
            .masks = little(masks)};
}

TEST(BmpMasks, MayBeOfAnyWidth) {
    const struct {
        const char* name;
        BmpSample sample;
        Pixels wanted;
    } rows[] = {
        {"565",
         masked(16, {0xF800, 0x07E0, 0x001F}, bytesOf("00F8 E007 1F00 1084")),
         {red, green, blue, 0xFF848284}},
        {"555", masked(16, {0x7C00, 0x03E0, 0x001F}, bytesOf("1042 0080")), {0xFF848484, black}},
        {"444", masked(16, {0x0F00, 0x00F0, 0x000F}, bytesOf("2301 FF0F")), {0xFF112233, white}},
        {"313",
         masked(16, {0x70, 0x08, 0x07}, bytesOf("7B00 3400 0800 1100")),
         // 7 1 3, 3 0 4, 0 1 0, 1 0 1 of 7, 1 and 7.
         {0xFFFFFF6D, 0xFF6D0092, green, 0xFF240024}},
        {"231", masked(16, {0x30, 0x0E, 0x01}, bytesOf("3F00 1500")), {white, 0xFF5549FF}},
        {"10 bits",
         masked(32, {0x3FF00000, 0x000FFC00, 0x3FF}, little({0x2007FC01, 0x3FF003FE})),
         // 512, 511 and 1, then 1023, 0 and 1022, of 1023.
         {0xFF807F00, 0xFFFF00FF}},
        {"11 bits",
         masked(32, {0xFFE00000, 0x001FFC00, 0x3FF}, little({0x801FFC02})),
         {0xFF80FF00}},
        {"17 bits",
         masked(32, {0xFFFF8000, 0x7F00, 0xFF}, little({0x80003F80, 0x7FFF8001})),
         // 65536 and 65535 of 131071, 63 of 127.
         {0xFF807E80, 0xFF7F0001}},
        {"32 bits",
         masked(32, {0xFFFFFFFF, 0, 0}, little({0x80000000, 0x7FFFFFFF, 0xFFFFFFFF})),
         {0xFF800000, 0xFF7F0000, red}},
        {"none", masked(32, {0, 0xFF00, 0}, little({0xFFFFFFFF})), {green}},
        {"turned", masked(32, {0xFF, 0xFF00, 0xFF0000}, little({0x00332211})), {0xFF112233}},
        {"high", masked(32, {0xFF000000, 0xFF0000, 0xFF00}, little({0x11223344})), {0xFF112233}},
        {"24 bits a pixel",
         masked(24, {0xFF, 0xFF00, 0xFF0000}, bytesOf("112233 445566 0000")),
         {0xFF112233, 0xFF445566}},
    };
    for (const auto& row : rows) {
        BmpSample sample = row.sample;
        sample.content = sample.content.leftJustified((sample.content.size() + 3) / 4 * 4, '\0');
        sample.size.setWidth(static_cast<int>(row.wanted.size()));
        for (const quint32 header : {40, 52, 56, 108, 124}) {
            sample.header = header;
            EXPECT_EQ(pixelsOf(sample), row.wanted) << row.name << " " << header;
        }
    }
}

TEST(BmpMasks, OfEveryWidthGiveWhatEightBitsCome) {
    for (int bits = 1; bits <= 32; ++bits) {
        const quint64 last = (quint64(1) << bits) - 1;
        for (const quint64 value :
             {quint64(0), quint64(1), last / 3, last / 2, last / 2 + 1, last}) {
            const auto mask = static_cast<quint32>(last);
            const auto wanted = static_cast<uint>((value * 510 + last) / (last * 2));
            const BmpSample sample = masked(32, {mask, 0, 0}, little({quint32(value)}));
            EXPECT_EQ(pixelsOf(sample), Pixels{black | wanted << 16}) << bits << " " << value;
        }
    }
}

TEST(BmpMasks, OfNothingAreNotRead) {
    EXPECT_EQ(pixelsOf(masked(32, {0, 0, 0}, little({1}))), Pixels());
    EXPECT_EQ(pixelsOf(masked(8, {0xE0, 0x1C, 0x03}, little({1}))), Pixels());
}

TEST(BmpAlpha, IsThereWhereItsMaskIs) {
    const QByteArray row = little({0x80FF0000, 0xFF00FF00, 0x00000000});
    for (const quint32 header : {56, 108, 124}) {
        BmpSample sample = masked(32, {0xFF0000, 0xFF00, 0xFF, 0xFF000000}, row);
        sample.header = header;
        const Picture picture = decodePicture(bmpFile(sample));
        EXPECT_EQ(picture.bitmap.format(), QImage::Format_ARGB32_Premultiplied);
        EXPECT_EQ(pixelsOf(sample), (Pixels{0x80FF0000, green, 0})) << header;
    }
    for (const quint32 header : {40, 52, 56}) {
        BmpSample sample = masked(32, {0xFF0000, 0xFF00, 0xFF, 0xFF000000}, row);
        sample.header = header;
        sample.compression = 6;
        EXPECT_EQ(pixelsOf(sample), (Pixels{0x80FF0000, green, 0})) << header;
    }
}

TEST(BmpAlpha, OfOneBitIsAllOrNothing) {
    BmpSample sample = masked(16, {0x7C00, 0x03E0, 0x001F, 0x8000}, bytesOf("00FC 007C"));
    sample.header = 56;
    EXPECT_EQ(pixelsOf(sample), (Pixels{red, 0}));
}

TEST(BmpAlpha, ThatIsTheSameThroughoutMeansOpaque) {
    for (const quint32 alpha : {0x00000000U, 0xFF000000U}) {
        BmpSample sample = masked(32, {0xFF0000, 0xFF00, 0xFF, 0xFF000000},
                                  little({alpha | 0xFF0000, alpha | 0x112233}));
        sample.header = 124;
        EXPECT_EQ(pixelsOf(sample), (Pixels{red, 0xFF112233}));
        EXPECT_EQ(decodePicture(bmpFile(sample)).bitmap.format(), QImage::Format_RGB32);
    }
}

TEST(BmpAlpha, OfMissingPixelsIsNone) {
    BmpSample sample = masked(32, {0xFF0000, 0xFF00, 0xFF, 0xFF000000}, little({0x80FF0000}));
    sample.header = 124;
    sample.size = {2, 1};
    EXPECT_EQ(pixelsOf(sample), (Pixels{0x80FF0000, 0}));
    sample.content = little({0x00FF0000});
    EXPECT_EQ(pixelsOf(sample), (Pixels{red, black}));
}

TEST(BmpColours, OfSixtyFourBitsAreLinearLight) {
    // Blue, green, red, alpha; 8192 is full light. A half is 188 on sRGB's curve, a hundredth 25
    // (its straight part ends at 25.67), and 26 of 8192 lie on the straight part: 10.46.
    const BmpSample sample{.size = {3, 1},
                           .depth = 64,
                           .content = bytesOf("0010 0020 0000 0020  5200 1A00 FF7F 0020"
                                              "FFFF 0080 0020 0020")};
    EXPECT_EQ(pixelsOf(sample), (Pixels{0xFF00FFBC, 0xFFFF0A19, red}));
}

TEST(BmpColours, OfSixtyFourBitsMayBeSeenThrough) {
    const BmpSample sample{.size = {2, 1},
                           .depth = 64,
                           .content = bytesOf("0000 0000 0020 0010  0000 0000 0020 0020")};
    EXPECT_EQ(pixelsOf(sample), (Pixels{0x80FF0000, red}));
}

QRgb fromAdobeRgb(QRgb pixel) {
    QImage image(1, 1, QImage::Format_RGB32);
    image.fill(pixel);
    image.setColorSpace(QColorSpace::AdobeRgb);
    image.convertToColorSpace(QColorSpace::SRgb);
    return image.pixel(0, 0);
}

/// Red, green and blue of Adobe's RGB in XYZ, as fractions of 30 bits, with these gammas.
QByteArray adobeRgb(std::initializer_list<quint32> gammas) {
    QByteArray fields = little({0});
    for (const double value :
         {0.5767, 0.2974, 0.0270, 0.1856, 0.6273, 0.0707, 0.1882, 0.0753, 0.9911}) {
        fields += little({static_cast<quint32>(value * (1 << 30))});
    }
    return fields + little(gammas);
}

/// One pixel of 100, 150, 100.
BmpSample calibrated(quint32 header, const QByteArray& fields) {
    return {
        .size = {1, 1}, .content = bytesOf("64966400"), .header = header, .colourFields = fields};
}

TEST(BmpProfile, OfAHeaderIsApplied) {
    const QRgb wanted = fromAdobeRgb(0xFF649664);
    for (const quint32 header : {108, 124}) {
        const Pixels found = pixelsOf(calibrated(header, adobeRgb({0x23333, 0x23333, 0x23333})));
        ASSERT_EQ(found.size(), 1U);
        EXPECT_NEAR(qRed(found[0]), qRed(wanted), 1);
        EXPECT_NEAR(qGreen(found[0]), qGreen(wanted), 1);
        EXPECT_NEAR(qBlue(found[0]), qBlue(wanted), 1);
        EXPECT_LT(qRed(found[0]), 80);
    }
}

TEST(BmpProfile, OfSeveralGammasIsPassedOver) {
    const Pixels plain{0xFF649664};
    EXPECT_EQ(pixelsOf(calibrated(108, adobeRgb({0x23333, 0x20000, 0x23333}))), plain);
    EXPECT_EQ(pixelsOf(calibrated(108, adobeRgb({0x23333, 0x23333, 0x20000}))), plain);
}

TEST(BmpProfile, OfImpossibleFieldsIsPassedOver) {
    for (const quint32 xyz : {0U, 1U, 0x20000000U, 0xFFFFFFFFU}) {
        for (const quint32 gamma : {0U, 1U, 0x23333U, 0xFFFFFFFFU}) {
            const BmpSample sample{.size = {1, 1},
                                   .content = bytesOf("64966400"),
                                   .header = 108,
                                   .colourFields = little({0, xyz, xyz, xyz, xyz, xyz, xyz, xyz,
                                                           xyz, xyz, gamma, gamma, gamma})};
            EXPECT_EQ(pixelsOf(sample), Pixels{0xFF649664}) << xyz << " " << gamma;
        }
    }
}

/// A file with a profile behind its one pixel.
QByteArray profiled(const QByteArray& profile, quint32 kind, quint32 length) {
    const QByteArray fields =
        little({kind}) + QByteArray(48, '\0') + little({4, 124 + 4, length, 0});
    return bmpFile({.size = {1, 1},
                    .content = bytesOf("64966400"),
                    .header = 124,
                    .colourFields = fields}) +
           profile;
}

TEST(BmpProfile, OfAnIccKindIsApplied) {
    constexpr quint32 embedded = 0x4D424544;
    constexpr quint32 linked = 0x4C494E4B;
    const QByteArray profile = QColorSpace(QColorSpace::AdobeRgb).iccProfile();
    const auto length = static_cast<quint32>(profile.size());
    const QRgb wanted = fromAdobeRgb(0xFF649664);
    EXPECT_NE(wanted, 0xFF649664);
    EXPECT_EQ(pixelsOf(profiled(profile, embedded, length)), Pixels{wanted});
    const Pixels plain{0xFF649664};
    EXPECT_EQ(pixelsOf(profiled(profile, linked, length)), plain);
    EXPECT_EQ(pixelsOf(profiled(profile, embedded, length + 1)), plain);
    EXPECT_EQ(pixelsOf(profiled(profile, embedded, 0xFFFFFFFF)), plain);
    EXPECT_EQ(pixelsOf(profiled(profile, embedded, 10)), plain);
    EXPECT_EQ(pixelsOf(profiled(QByteArray(3000, '\x7F'), embedded, 3000)), plain);
}

}  // namespace
}  // namespace velorama

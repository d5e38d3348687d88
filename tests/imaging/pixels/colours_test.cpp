#include "imaging/pixels/colours.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

QString page(const char* text) {
    return clsCOLRSTYLE()
        .ColorSTRtoHTML(QString::fromLatin1(text))
        .value_or(QStringLiteral("none"));
}

Colour edited(quint32 colour, qint32 amount, bool scale) {
    return clsCOLRSTYLE().funcCOLORVALEDIT(static_cast<Colour>(colour), amount, scale);
}

TEST(PageColour, puts_red_first_in_upper_case_pairs) {
    EXPECT_EQ(page("255"), QStringLiteral("#FF0000"));
    EXPECT_EQ(page("16711680"), QStringLiteral("#0000FF"));
    EXPECT_EQ(page("65280"), QStringLiteral("#00FF00"));
    EXPECT_EQ(page("0"), QStringLiteral("#000000"));
    EXPECT_EQ(page("16777168"), QStringLiteral("#D0FFFF"));
    EXPECT_EQ(page("4194304"), QStringLiteral("#000040"));
}

TEST(PageColour, keeps_the_leading_zero_of_each_channel) {
    EXPECT_EQ(page("658188"), QStringLiteral("#0C0B0A"));  // 0x0A0B0C
}

TEST(PageColour, leaves_what_stands_above_blue) {
    EXPECT_EQ(page("16777216"), QStringLiteral("#0000100"));
    // 0x8000000F: halves are cut toward zero, the blue part keeps all 32 bits.
    EXPECT_EQ(page("-2147483633"), QStringLiteral("#0F01FFFF8001"));
}

TEST(PageColour, of_no_number_is_nothing) {
    EXPECT_EQ(page(""), QStringLiteral("none"));
    EXPECT_EQ(page("blue"), QStringLiteral("none"));
    EXPECT_EQ(page("2147483648"), QStringLiteral("none"));
}

TEST(ColourEdit, scales_blue_by_192ths_or_adds_to_it) {
    EXPECT_EQ(edited(0xC08040, 42, true), 0xEAAA6A);   // 192 + 192 * 42 / 192
    EXPECT_EQ(edited(0x648040, 42, true), 0x79AA6A);   // 100 + 4200 / 192 = 121
    EXPECT_EQ(edited(0x648040, 32, false), 0x84A060);  // 100 + 32
}

TEST(ColourEdit, stops_at_both_ends) {
    EXPECT_EQ(edited(0x102030, -1000, false), 0);
    EXPECT_EQ(edited(0x102030, 1000, false), 0xFFFFFF);
    EXPECT_EQ(edited(0x102030, -193, true), 0);
    EXPECT_EQ(edited(0xFFFFFF, INT_MAX, true), 0xFFFFFF);
    EXPECT_EQ(edited(0xFFFFFF, INT_MIN, true), 0);
}

TEST(ColourEdit, of_a_system_colour_masks_a_blue_cut_toward_zero) {
    // -32767 And 2047 = 1, and And 255 = 1; green -8388607 And 255 = 1; red 15.
    EXPECT_EQ(edited(0x8000000F, 0, false), 0x01010F);
    EXPECT_EQ(edited(0x8000000F, 0, true), 0x01010F);
    // Blue of -256: And 2047 is 1792, which the limit brings to 255.
    EXPECT_EQ(edited(0xFF000000, 0, false), 0xFF0000);
}

TEST(ColourMix, ends_at_its_two_colours) {
    EXPECT_EQ(ColorMix(0x123456, 0xFEDCBA, 255), 0x123456);
    EXPECT_EQ(ColorMix(0x123456, 0xFEDCBA, 0), 0xFEDCBA);
}

TEST(ColourMix, rounds_each_channel_to_the_nearest) {
    EXPECT_EQ(ColorMix(0x0000FF, 0xFF0000, 77), 0xB2004D);
    EXPECT_EQ(ColorMix(0x0000FF, 0x000000, 1), 0x000001);
}

TEST(ColourMix, looks_system_colours_up) {
    const Colour face = GetSysColor(15);
    const Colour shadow = GetSysColor(16);
    EXPECT_EQ(ColorMix(systemColour(15), systemColour(16), 77), ColorMix(face, shadow, 77));
    EXPECT_EQ(ColorMix(systemColour(15), 0, 255), face);
}

TEST(ColourMix, takes_a_colour_that_does_not_exist_for_white) {
    EXPECT_EQ(ColorTranslate(systemColour(200)), -1);
    EXPECT_EQ(ColorMix(systemColour(200), 0, 255), 0xFFFFFF);
    EXPECT_EQ(ColorMix(systemColour(200), 0, 128), 0x808080);
}

TEST(RgbColour, swaps_red_and_blue) {
    EXPECT_EQ(toRgb(0x0000FF), qRgb(255, 0, 0));
    EXPECT_EQ(fromRgb(qRgba(255, 2, 1, 9)), 0x0102FF);
    EXPECT_EQ(fromRgb(toRgb(systemColour(15))), GetSysColor(15));
}

}  // namespace
}  // namespace velorama

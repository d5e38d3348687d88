#include "core/show_colours.h"

#include "core/globals.h"
#include "support/services.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

class ShowColours : public testing::Test {
protected:
    static void store(const char* name, const char* text) {
        saveSetting(QStringLiteral("\\frmTOOLSSETTINGS\\Items"), QString::fromLatin1(name),
                    QString::fromLatin1(text));
    }
    test::Services services;
};

TEST_F(ShowColours, AreDarkRedAndRedFromTheStart) {
    EXPECT_EQ(showBackground(), 0x40U);
    EXPECT_EQ(showGradient(), 0xFFU);
}

TEST_F(ShowColours, AreThoseStored) {
    store("picBACKGROUND", "16711680");
    store("picGRADCOLOR", "65280");
    EXPECT_EQ(showBackground(), 0xFF0000U);
    EXPECT_EQ(showGradient(), 0xFF00U);
}

TEST_F(ShowColours, TextThatIsNoNumberIsAsNone) {
    store("picBACKGROUND", "blue");
    store("picGRADCOLOR", "");
    EXPECT_EQ(showBackground(), 0x40U);
    EXPECT_EQ(showGradient(), 0xFFU);
}

/// Which of two far ends has more of a colour's channel.
TEST_F(ShowColours, TheGradientRunsFromTheFirstToTheSecondAtItsAngle) {
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(Qt::green);
    GradientPaint(image, 0, 0x0000FF, 0xFF0000);  // red, blue
    EXPECT_GT(qRed(image.pixel(0, 20)), 224);
    EXPECT_LT(qBlue(image.pixel(0, 20)), 32);
    EXPECT_LT(qRed(image.pixel(39, 20)), 32);
    EXPECT_GT(qBlue(image.pixel(39, 20)), 224);
    EXPECT_EQ(image.pixel(20, 0), image.pixel(20, 39));
    EXPECT_EQ(qGreen(image.pixel(20, 20)), 0);
    GradientPaint(image, 90, 0x0000FF, 0xFF0000);
    EXPECT_GT(qRed(image.pixel(20, 39)), 224);
    EXPECT_GT(qBlue(image.pixel(20, 0)), 224);
    EXPECT_EQ(image.pixel(0, 20), image.pixel(39, 20));
}

}  // namespace
}  // namespace velorama

#include "controls/geometry/caption_room.h"

#include "controls/buttons/push_button.h"
#include "controls/geometry/twips.h"
#include "controls/geometry/window_place.h"

#include <QFontMetrics>
#include <QScreen>

#include <gtest/gtest.h>

namespace velorama {
namespace {

QFont sized(qreal points) {
    QFont font;
    font.setPointSizeF(points);
    return font;
}

class CaptionRoom : public testing::Test {
protected:
    CaptionRoom() {
        first.setText(QStringLiteral("Open"));
        second.setText(QStringLiteral("Save under another name"));
        for (cbtn* button : {&first, &second}) {
            placeDesign(*button, 105, 90, 1440, 345);
        }
    }
    QWidget page;
    cbtn first{&page};
    cbtn second{&page};
};

TEST_F(CaptionRoom, TheDesignIsTheLeast) {
    giveRoom(first, 390);
    EXPECT_EQ(Width(first), 1440);
    EXPECT_EQ(Height(first), 345);
}

TEST_F(CaptionRoom, ALongCaptionWidensAndAShorterOneNarrowsAgain) {
    giveRoom(second, 390);
    EXPECT_EQ(second.width(), second.sizeHint().width());
    EXPECT_EQ(Left(second), 105);
    second.setText(QStringLiteral("As"));
    giveRoom(second, 390);
    EXPECT_EQ(Width(second), 1440);
}

TEST_F(CaptionRoom, HighLettersRaiseAsFarAsThereIsRoom) {
    first.setFont(sized(20));
    giveRoom(first, 390);
    EXPECT_EQ(Height(first), 390);
    giveRoom(first, 300);
    EXPECT_EQ(Height(first), 345);
}

TEST_F(CaptionRoom, WithoutADesignNothingChanges) {
    cbtn plain(&page);
    plain.setText(QStringLiteral("A caption"));
    plain.resize(10, 10);
    giveRoom(plain, 390);
    EXPECT_EQ(plain.size(), QSize(10, 10));
}

TEST_F(CaptionRoom, AColumnIsAsWideAsItsWidest) {
    const float right = giveRoomInColumn({&first, &second}, 45, 3000);
    EXPECT_EQ(first.width(), second.sizeHint().width());
    EXPECT_EQ(Width(second), Width(first));
    EXPECT_EQ(right, 105 + Width(first));
    EXPECT_EQ(Top(first), 90);
    EXPECT_EQ(Top(second), 90 + 345 + 45);
}

TEST_F(CaptionRoom, AColumnStaysAboveItsEnd) {
    for (cbtn* button : {&first, &second}) {
        button->setFont(sized(40));
    }
    giveRoomInColumn({&first, &second}, 45, 90 + 2 * 400 + 45);
    EXPECT_EQ(Height(first), 400);
    EXPECT_EQ(Top(second) + Height(second), 90 + 2 * 400 + 45);
    EXPECT_EQ(giveRoomInColumn({}, 45, 3000), 0);
}

TEST(FontForHeight, KeepsAFontThatFits) {
    const QFont font = sized(9);
    EXPECT_EQ(fontForHeight(font, QFontMetrics(font).height()), font);
    EXPECT_EQ(fontForHeight(font, 0), font);
}

TEST(FontForHeight, MakesALargerOneFit) {
    for (const qreal points : {11.0, 14.0, 20.0, 72.0}) {
        const QFont fitting = fontForHeight(sized(points), 14);
        EXPECT_LE(QFontMetrics(fitting).height(), 14) << points;
        EXPECT_GE(QFontMetrics(fitting).height(), 12) << points;
    }
    QFont inPixels;
    inPixels.setPixelSize(40);
    EXPECT_LE(QFontMetrics(fontForHeight(inPixels, 14)).height(), 14);
}

TEST(WindowPlace, AFirstWindowIsNoLargerThanItsScreen) {
    QWidget window;
    const QSize screen = window.screen()->availableSize();
    window.resize(300, 200);
    placeFirst(window);
    EXPECT_EQ(window.size(), QSize(300, 200));
    window.resize(screen * 2);
    placeFirst(window);
    EXPECT_LE(window.width(), screen.width());
    EXPECT_LT(window.height(), screen.height() - 10);
    EXPECT_GT(window.height(), screen.height() - 60);
}

// A frame is added below and above what the program places.
TEST(WindowPlace, AFirstWindowStandsOnItsScreenFrameAndAll) {
    QWidget window;
    const QRect screen = window.screen()->availableGeometry();
    for (const QSize size : {QSize(300, 200), screen.size() - QSize(40, 30), screen.size() * 2}) {
        window.resize(size);
        placeFirst(window);
        EXPECT_TRUE(screen.contains(QRect(window.pos(), window.size() + QSize(2, 37))))
            << size.height();
    }
    window.resize(300, 200);
    placeFirst(window);
    EXPECT_NEAR(window.geometry().center().y(), screen.center().y(), 1);
}

}  // namespace
}  // namespace velorama

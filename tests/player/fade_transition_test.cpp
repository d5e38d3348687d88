#include "controls/geometry/twips.h"
#include "player/player_world.h"

#include <cmath>

namespace velorama::test {
namespace {

/// A fade of its own over a picture area of 30 by 20 pixels.
class Fade : public PlayerTest {
protected:
    Fade() {
        area.setAutoSize(true);
        coming.setAutoSize(true);
        place(area, 0, 0, 450, 300);
        timer.setInterval(3600000);
    }
    void stepTo(int step) {
        while (fade.FadeAlpha < step) {
            fade.step();
        }
    }
    QString grey(const QString& name, int level) {
        return picture(name, QColor(level, level, level), {30, 20});
    }
    int level() { return qRed(middle(area.Image())); }

    QWidget window;
    PictureBox area{&window};
    PictureBox coming{&window};
    QTimer timer;
    LookAhead pictures;
    FadeTransition fade{area, coming, timer, pictures};
};

int blended(int from, int onto, int alpha) {
    return static_cast<int>(std::lround((from * alpha + onto * (255 - alpha)) / 255.0));
}

TEST_F(Fade, ThePictureAreaInPixels) {
    EXPECT_EQ(fade.areaSize(), QSize(30, 20));
}

TEST_F(Fade, LoadingStartsAtZeroAndStartsTheTimer) {
    fade.FadeAlpha = 77;
    fade.LoadFadeSource(grey("a.bmp", 10));
    EXPECT_EQ(fade.FadeAlpha, 0);
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(coming.Picture().size(), QSize(30, 20));
    EXPECT_EQ(middle(coming.Picture()), qRgb(10, 10, 10));
    EXPECT_EQ(level(), 255);
}

TEST_F(Fade, NoStepIsTakenBeforeItsPictureIsThere) {
    // To fit a picture lets events run: a timer that runs by then would blend the one before.
    bool begun = false;
    const AtYield fitting([&] { begun = begun || timer.isActive(); });
    fade.LoadFadeSource(grey("a.bmp", 10));
    ASSERT_GT(fitting.yields(), 0);
    EXPECT_FALSE(begun);
}

TEST_F(Fade, EveryStepBlendsOntoTheResultOfTheStepBefore) {
    QImage dotted(30, 20, QImage::Format_RGB32);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 30; ++x) {
            dotted.setPixel(x, y, qRgb(x * 8, y * 12, (x * y) % 256));
        }
    }
    ASSERT_TRUE(dotted.save(missing("dotted.bmp"), "BMP"));
    fade.LoadFadeSource(missing("dotted.bmp"));
    const QImage source = coming.Picture();
    QImage expected = area.Image().copy();
    for (int step = 1; step <= 240; ++step) {
        fade.step();
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 30; ++x) {
                const QRgb from = source.pixel(x, y);
                const QRgb onto = expected.pixel(x, y);
                expected.setPixel(x, y,
                                  qRgb(blended(qRed(from), qRed(onto), step),
                                       blended(qGreen(from), qGreen(onto), step),
                                       blended(qBlue(from), qBlue(onto), step)));
            }
        }
        ASSERT_EQ(area.Image().convertToFormat(QImage::Format_RGB32), expected) << step;
    }
    EXPECT_EQ(expected, source.convertToFormat(QImage::Format_RGB32));
}

TEST_F(Fade, TheShareOfTheOldPictureIsTheProductOfWhatEachStepLeaves) {
    fade.LoadFadeSource(grey("black.bmp", 0));
    double share = 1;
    double rounding = 0;
    for (int step = 1; step <= 240; ++step) {
        fade.step();
        share *= 1 - step / 255.0;
        rounding = rounding * (1 - step / 255.0) + 0.5;
        ASSERT_NEAR(level(), 255 * share, rounding) << step;
    }
    EXPECT_EQ(level(), 0);
}

TEST_F(Fade, TheShareAfter20And40And50Steps) {
    // White onto black, so that the level is the share in 255ths: 43 %, 3.3 % and 0.5 %.
    fade.LoadFadeSource(grey("black.bmp", 0));
    stepTo(20);
    EXPECT_NEAR(level(), 0.43 * 255, 3);
    stepTo(40);
    EXPECT_NEAR(level(), 0.033 * 255, 3);
    stepTo(50);
    EXPECT_NEAR(level(), 0.005 * 255, 2);
}

TEST_F(Fade, HasExactly240Steps) {
    fade.LoadFadeSource(grey("a.bmp", 10));
    for (int step = 1; step <= 239; ++step) {
        fade.step();
        ASSERT_EQ(fade.FadeAlpha, step);
        ASSERT_TRUE(timer.isActive()) << step;
    }
    fade.step();
    EXPECT_EQ(fade.FadeAlpha, 240);
    EXPECT_FALSE(timer.isActive());
}

TEST_F(Fade, TheBlendFunctionIsPackedWithTheAlphaInItsThirdByte) {
    fade.LoadFadeSource(grey("a.bmp", 10));
    stepTo(1);
    EXPECT_EQ(fade.BlendValue, 0x00010000);
    stepTo(100);
    EXPECT_EQ(fade.BlendValue, 0x00640000);
    stepTo(240);
    EXPECT_EQ(fade.BlendValue, 0x00F00000);
    fade.step();
    EXPECT_EQ(fade.BlendValue, 0x00F10000);
}

class FadeByHand : public Fade, public testing::WithParamInterface<qint32> {};

TEST_P(FadeByHand, GoesTo241ThatNeverEqualsTheEndAndTheTimerRunsOn) {
    fade.LoadFadeSource(grey("a.bmp", 10));
    fade.FadeAlpha = GetParam();
    for (int i = 0; i < 300; ++i) {
        fade.step();
        ASSERT_EQ(fade.FadeAlpha, 241);
        ASSERT_TRUE(timer.isActive());
    }
    EXPECT_EQ(level(), 10);
}

INSTANTIATE_TEST_SUITE_P(Starts, FadeByHand, testing::Values(240, 241, 242, 1000, 2147483647));

TEST_F(Fade, ByHandAt239EndsAtTheNextStep) {
    fade.LoadFadeSource(grey("a.bmp", 10));
    fade.FadeAlpha = 239;
    fade.step();
    EXPECT_EQ(fade.FadeAlpha, 240);
    EXPECT_FALSE(timer.isActive());
}

TEST_F(Fade, ANewFadeInTheMidstFreezesTheHalfDonePicture) {
    fade.LoadFadeSource(grey("a.bmp", 0));
    stepTo(10);
    const int half = level();
    ASSERT_GT(half, 100);
    ASSERT_LT(half, 255);
    fade.LoadFadeSource(grey("b.bmp", 200));
    EXPECT_EQ(fade.FadeAlpha, 0);
    EXPECT_EQ(middle(area.Picture()), qRgb(half, half, half));
    fade.step();
    EXPECT_EQ(level(), blended(200, half, 1));
}

TEST_F(Fade, ASmallPictureIsEnlargedAndTheBarsAreWhite) {
    fade.LoadFadeSource(picture("small.bmp", Qt::red, {5, 5}));
    const QImage fitted = coming.Picture();
    ASSERT_EQ(fitted.size(), QSize(30, 20));
    // 20 by 20 in the middle of 30 by 20: five columns of white on each side.
    EXPECT_EQ(fitted.pixel(4, 10), QColor(Qt::white).rgb());
    EXPECT_EQ(fitted.pixel(5, 10), QColor(Qt::red).rgb());
    EXPECT_EQ(fitted.pixel(24, 10), QColor(Qt::red).rgb());
    EXPECT_EQ(fitted.pixel(25, 10), QColor(Qt::white).rgb());
    EXPECT_EQ(fitted.pixel(10, 0), QColor(Qt::red).rgb());
    EXPECT_EQ(fitted.pixel(10, 19), QColor(Qt::red).rgb());
}

TEST_F(Fade, AWidePictureHasWhiteBarsAboveAndBelow) {
    fade.LoadFadeSource(picture("wide.bmp", Qt::red, {300, 100}));
    const QImage fitted = coming.Picture();
    // 30 by 10: five rows of white above and below.
    EXPECT_EQ(fitted.pixel(15, 4), QColor(Qt::white).rgb());
    EXPECT_EQ(fitted.pixel(15, 5), QColor(Qt::red).rgb());
    EXPECT_EQ(fitted.pixel(15, 14), QColor(Qt::red).rgb());
    EXPECT_EQ(fitted.pixel(15, 15), QColor(Qt::white).rgb());
}

TEST_F(Fade, AnUnreadableFileKeepsTheSourceBefore) {
    fade.LoadFadeSource(grey("a.bmp", 10));
    stepTo(5);
    const QImage before = coming.Picture();
    fade.LoadFadeSource(unreadable("bad.gif"));
    EXPECT_EQ(coming.Picture(), before);
    EXPECT_EQ(fade.FadeAlpha, 0);
    EXPECT_TRUE(timer.isActive());
}

TEST_F(Fade, AStepWithNothingToBlendStillCounts) {
    place(area, 0, 0, 0, 0);
    fade.step();
    EXPECT_EQ(fade.FadeAlpha, 1);
    EXPECT_EQ(fade.BlendValue, 0x00010000);
}

using FadeOfShow = PlayerTest;

TEST_F(FadeOfShow, TheFirstSlideFadesInOverWhite) {
    setSlides({picture("black.bmp", Qt::black)});
    frmSLIDESHOW& show = open();
    fadeSteps(show, 1);
    EXPECT_EQ(middle(show.picPREVIEW.Image()), qRgb(254, 254, 254));
    fadeSteps(show, 1);
    EXPECT_EQ(middle(show.picPREVIEW.Image()), qRgb(252, 252, 252));
    fadeSteps(show, 238);
    EXPECT_EQ(middle(show.picPREVIEW.Image()), qRgb(0, 0, 0));
    EXPECT_FALSE(show.tmrFADETRANS.isActive());
}

TEST_F(FadeOfShow, ATickInStep100StartsAnewFromWhatTheScreenShows) {
    makeSlides(3);
    frmSLIDESHOW& show = openFaded();
    show.tmrSLIDESHOW_Timer();
    fadeSteps(show, 100);
    EXPECT_EQ(show.fade().FadeAlpha, 100);
    const QImage half = show.picPREVIEW.Image().copy();
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(show.fade().FadeAlpha, 0);
    EXPECT_TRUE(show.tmrFADETRANS.isActive());
    EXPECT_EQ(show.picPREVIEW.Picture(), half);
    EXPECT_EQ(show.picPREVIEW.Image(), half);
    fadeSteps(show, 239);
    EXPECT_TRUE(show.tmrFADETRANS.isActive());
    fadeSteps(show, 1);
    EXPECT_FALSE(show.tmrFADETRANS.isActive());
}

TEST_F(FadeOfShow, ATickInStep10FreezesAMixOfBothPictures) {
    setSlides(
        {picture("a.bmp", Qt::white), picture("b.bmp", Qt::black), picture("c.bmp", Qt::red)});
    frmSLIDESHOW& show = openFaded();
    show.tmrSLIDESHOW_Timer();
    fadeSteps(show, 10);
    const QRgb half = middle(show.picPREVIEW.Image());
    EXPECT_GT(qRed(half), 150);
    EXPECT_LT(qRed(half), 240);
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(middle(show.picPREVIEW.Picture()), half);
}

TEST_F(FadeOfShow, SourceAndDestinationHaveTheSameSize) {
    makeSlides(2);
    frmSLIDESHOW& show = open();
    EXPECT_EQ(show.picSLIDERESIZE.scaleSize(), show.picPREVIEW.scaleSize());
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(show.picSLIDERESIZE.scaleSize(), show.picPREVIEW.scaleSize());
}

}  // namespace
}  // namespace velorama::test

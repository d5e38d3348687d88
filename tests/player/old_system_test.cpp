#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "player/player_world.h"

namespace velorama::test {
namespace {

/// A system whose version is 4.99 or below: no scaling, no fade.
class OldSystem : public PlayerTest {
protected:
    OldSystem() { SystemVersion = QStringLiteral("4.0"); }

    /// Every way to advance, from a fresh show, onto the only slide.
    void forEachAdvance(const std::function<void(frmSLIDESHOW&)>& check) {
        const std::function<void(frmSLIDESHOW&)> ways[] = {
            [](frmSLIDESHOW&) {}, [](frmSLIDESHOW& show) { show.tmrSLIDESHOW_Timer(); },
            [](frmSLIDESHOW& show) { show.Form_KeyDown(KeyRight, 0); },
            [](frmSLIDESHOW& show) { show.Form_KeyDown(KeyLeft, 0); }};
        int number = 0;
        for (const auto& way : ways) {
            SCOPED_TRACE(number++);
            frmSLIDESHOW& show = open();
            way(show);
            check(show);
            endShow();
        }
    }
};

TEST_F(OldSystem, ShowsOnlyCaptionAndCounter) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    EXPECT_EQ(caption(show), "a");
    EXPECT_EQ(counter(show), "1 of 3");
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(caption(show), "b");
    EXPECT_EQ(counter(show), "2 of 3");
    EXPECT_FALSE(show.tmrFADETRANS.isActive());
    EXPECT_FALSE(show.picPREVIEW.isVisible());
    EXPECT_FALSE(show.imgPREVIEW98.isVisible());
    EXPECT_FALSE(show.picBORDERFRAME.isVisible());
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "3 of 3");
    EXPECT_EQ(show.slides.SlideIndex, 0);
}

TEST_F(OldSystem, NoAdvanceEnablesTheFade) {
    makeSlides(1);
    forEachAdvance([](frmSLIDESHOW& show) {
        EXPECT_FALSE(show.tmrFADETRANS.isActive());
        EXPECT_EQ(show.fade().FadeAlpha, 0);
    });
}

TEST_F(OldSystem, TheVersionThatParts) {
    makeSlides(1);
    const std::pair<const char*, bool> versions[] = {
        {"", false},     {"4.0", false}, {"4.90", false}, {"4.99", false},
        {"4.991", true}, {"5.0", true},  {"6.1", true},   {"10.0", true}};
    for (const auto& [version, fades] : versions) {
        SystemVersion = QString::fromLatin1(version);
        EXPECT_EQ(open().tmrFADETRANS.isActive(), fades) << version;
        endShow();
    }
}

TEST_F(OldSystem, ALandscapePictureGivesTheBoxItsHeight) {
    setSlides({picture("wide.bmp", Qt::red, {200, 100})});
    forEachAdvance([](frmSLIDESHOW& show) {
        const float width = Width(show) - 3650;
        EXPECT_FLOAT_EQ(Width(show.picPREVIEW), width);
        EXPECT_FLOAT_EQ(Height(show.picPREVIEW), width * 0.5F);
        EXPECT_FLOAT_EQ(Left(show.picPREVIEW), 1825);
        EXPECT_FLOAT_EQ(Top(show.picPREVIEW), (screenHeight(show) - width * 0.5F - 250) * 0.5F);
        EXPECT_FLOAT_EQ(Width(show.imgPREVIEW98), width);
        EXPECT_FLOAT_EQ(Height(show.imgPREVIEW98), width * 0.5F);
    });
}

TEST_F(OldSystem, ALandscapePictureDoesNotMoveTheFrame) {
    setSlides({picture("wide.bmp", Qt::red, {200, 100})});
    forEachAdvance([](frmSLIDESHOW& show) {
        EXPECT_FLOAT_EQ(Left(show.picBORDERFRAME), 1075);
        EXPECT_FLOAT_EQ(Top(show.picBORDERFRAME), 800);
        EXPECT_FLOAT_EQ(Width(show.picBORDERFRAME), Width(show) - 2150);
        EXPECT_FLOAT_EQ(Height(show.picBORDERFRAME), Height(show) - 1700);
    });
}

TEST_F(OldSystem, APortraitPictureGivesTheBoxItsWidthAndCentresTheFrame) {
    setSlides({picture("tall.bmp", Qt::red, {100, 200})});
    forEachAdvance([](frmSLIDESHOW& show) {
        const float height = Height(show) - 3000;
        const float width = height * 0.5F;
        EXPECT_FLOAT_EQ(Width(show.picPREVIEW), width);
        EXPECT_FLOAT_EQ(Height(show.picPREVIEW), height);
        EXPECT_FLOAT_EQ(Left(show.picPREVIEW), (screenWidth(show) - width) * 0.5F);
        EXPECT_FLOAT_EQ(Top(show.picPREVIEW), 1375);
        EXPECT_FLOAT_EQ(Left(show.picBORDERFRAME), (screenWidth(show) - width) * 0.5F - 250);
        EXPECT_FLOAT_EQ(Top(show.picBORDERFRAME), 1300);
        EXPECT_FLOAT_EQ(Width(show.picBORDERFRAME), width + 500);
        EXPECT_FLOAT_EQ(Height(show.picBORDERFRAME), height + 300);
    });
}

TEST_F(OldSystem, ASquarePictureTakesThePortraitBranch) {
    setSlides({picture("square.bmp", Qt::red, {100, 100})});
    forEachAdvance([](frmSLIDESHOW& show) {
        const float height = Height(show) - 3000;
        EXPECT_FLOAT_EQ(Width(show.picPREVIEW), height);
        EXPECT_FLOAT_EQ(Height(show.picPREVIEW), height);
        EXPECT_FLOAT_EQ(Width(show.picBORDERFRAME), height + 500);
    });
}

TEST_F(OldSystem, TheStretchingImageGetsTheUnscaledPicture) {
    setSlides({picture("wide.bmp", Qt::red, {200, 100})});
    forEachAdvance([](frmSLIDESHOW& show) {
        EXPECT_EQ(show.imgPREVIEW98.Picture().size(), QSize(200, 100));
        EXPECT_EQ(middle(show.imgPREVIEW98.Picture()), QColor(Qt::red).rgb());
        EXPECT_EQ(show.picSLIDERESIZE.scaleSize(), QSize(200, 100));
    });
}

TEST_F(OldSystem, AFadeStepByHandShowsTheStretchedImageOverItsWholeBox) {
    setSlides({picture("wide.bmp", Qt::red, {200, 100})});
    frmSLIDESHOW& show = open();
    show.tmrFADETRANS_Timer();
    EXPECT_TRUE(show.picBORDERFRAME.isVisible());
    EXPECT_TRUE(show.imgPREVIEW98.isVisible());
    EXPECT_FALSE(show.picPREVIEW.isVisible());
    const QImage seen = show.imgPREVIEW98.grab().toImage();
    EXPECT_EQ(seen.pixel(1, 1), QColor(Qt::red).rgb());
    EXPECT_EQ(seen.pixel(seen.width() - 2, seen.height() - 2), QColor(Qt::red).rgb());
}

TEST_F(OldSystem, TickAndRightHideTheImageFirstAndLeftDoesNot) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.tmrFADETRANS_Timer();
    ASSERT_TRUE(show.imgPREVIEW98.isVisible());
    show.Form_KeyDown(KeyLeft, 0);
    EXPECT_TRUE(show.imgPREVIEW98.isVisible());
    EXPECT_FALSE(show.picPREVIEW.isVisible());
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_FALSE(show.imgPREVIEW98.isVisible());
    show.tmrFADETRANS_Timer();
    show.tmrSLIDESHOW_Timer();
    EXPECT_FALSE(show.imgPREVIEW98.isVisible());
}

TEST_F(OldSystem, AnUnreadableFileKeepsThePictureBefore) {
    setSlides({picture("wide.bmp", Qt::red, {200, 100}), unreadable("bad.jpg")});
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(caption(show), "bad");
    EXPECT_EQ(counter(show), "2 of 2");
    EXPECT_EQ(show.imgPREVIEW98.Picture().size(), QSize(200, 100));
    EXPECT_FLOAT_EQ(Height(show.picPREVIEW), (Width(show) - 3650) * 0.5F);
}

TEST_F(OldSystem, AnUnreadableFirstFileDoesNoHarm) {
    setSlides({unreadable("bad.jpg"), picture("wide.bmp", Qt::red, {200, 100})});
    frmSLIDESHOW& show = open();
    EXPECT_EQ(caption(show), "bad");
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(caption(show), "wide");
    EXPECT_EQ(show.imgPREVIEW98.Picture().size(), QSize(200, 100));
}

}  // namespace
}  // namespace velorama::test

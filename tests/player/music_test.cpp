#include "controls/input/keys.h"
#include "player/player_world.h"

#include <QTest>

#include <gtest/gtest.h>

namespace velorama {
namespace {

class ShowMusic : public test::PlayerTest {
protected:
    void SetUp() override {
        makeSlides(3);
        host.trackPath = QStringLiteral("/music/A long song.mp3");
        host.length = QStringLiteral("240");
        host.position = QStringLiteral("12");
    }
};

TEST_F(ShowMusic, StartsWithTheShow) {
    frmSLIDESHOW& show = open();
    EXPECT_EQ(host.music, QStringList(QStringLiteral("play")));
    EXPECT_EQ(show.picCONTROLBAR.lblPLAYING.Caption(), QStringLiteral("A long song.mp3"));
    EXPECT_EQ(show.picCONTROLBAR.prgPLAY.Max(), 240);
    EXPECT_EQ(show.picCONTROLBAR.prgPLAY.Value(), 12);
    EXPECT_FALSE(show.picCONTROLBAR.prgPLAY.isHidden());
    EXPECT_EQ(show.tmrMUSIC.interval(), 100);
}

TEST_F(ShowMusic, ATrackChangeIsFollowedByTheNextTick) {
    frmSLIDESHOW& show = open();
    host.trackPath = QStringLiteral("/music/Next.wav");
    host.length = QStringLiteral("5");
    host.position = QStringLiteral("1");
    show.tmrMUSIC_Timer();
    EXPECT_EQ(show.picCONTROLBAR.lblPLAYING.Caption(), QStringLiteral("Next.wav"));
    EXPECT_EQ(show.picCONTROLBAR.prgPLAY.Max(), 5);
    EXPECT_EQ(show.picCONTROLBAR.prgPLAY.Value(), 1);
}

TEST_F(ShowMusic, ALengthOfNothingChangesNoBar) {
    frmSLIDESHOW& show = open();
    host.length = QStringLiteral("0");
    host.position = QStringLiteral("7");
    show.tmrMUSIC_Timer();
    EXPECT_EQ(show.picCONTROLBAR.prgPLAY.Max(), 240);
    EXPECT_EQ(show.picCONTROLBAR.prgPLAY.Value(), 12);
}

TEST_F(ShowMusic, AnEmptyListLeavesLabelEmptyAndBarHidden) {
    host.trackPath.clear();
    host.length.clear();
    host.position.clear();
    frmSLIDESHOW& show = open();
    EXPECT_EQ(show.picCONTROLBAR.lblPLAYING.Caption(), QString());
    EXPECT_TRUE(show.picCONTROLBAR.prgPLAY.isHidden());
}

TEST_F(ShowMusic, ItsTimerRunsFromTheLoadToTheEnd) {
    frmSLIDESHOW& show = open();
    EXPECT_TRUE(show.tmrMUSIC.isActive());
    show.Form_MouseUp();
    ASSERT_TRUE(show.Paused);
    EXPECT_TRUE(show.tmrMUSIC.isActive());
    host.trackPath = QStringLiteral("/music/Next.wav");
    host.position = QStringLiteral("13");
    show.tmrMUSIC_Timer();
    EXPECT_EQ(show.picCONTROLBAR.lblPLAYING.Caption(), QStringLiteral("Next.wav"));
    EXPECT_EQ(show.picCONTROLBAR.prgPLAY.Value(), 13);
}

// Other than by the timer.
TEST_F(ShowMusic, AClickAndASizeTakeThePositionWithoutALengthToo) {
    frmSLIDESHOW& show = open();
    const ProgressBar& bar = show.picCONTROLBAR.prgPLAY;
    host.length = QStringLiteral("0");
    host.position = QStringLiteral("7");
    show.Form_MouseUp();
    EXPECT_EQ(bar.Value(), 7);
    host.position = QStringLiteral("8");
    show.Form_Resize();
    EXPECT_EQ(bar.Value(), 8);
    host.position = QStringLiteral("9");
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(bar.Value(), 9);
    EXPECT_EQ(bar.Max(), 240);
}

TEST_F(ShowMusic, TheLoadEndsWithAPositionWithoutALengthToo) {
    host.length = QStringLiteral("0");
    int position = 0;
    const test::AtYield watch([this, &position] { host.position = QString::number(++position); });
    frmSLIDESHOW& show = open();
    // After the last slide's picture has been fitted its caption is looked for, which yields.
    ASSERT_GT(position, 2);
    EXPECT_EQ(show.picCONTROLBAR.prgPLAY.Value(), static_cast<float>(position));
}

TEST_F(ShowMusic, ItsNameIsThatOfTheMomentWhenTheSlideIsTold) {
    frmSLIDESHOW& show = open();
    int number = 0;
    const test::AtYield watch(
        [this, &number] { host.trackPath = QStringLiteral("/music/%1.mp3").arg(++number); });
    show.Form_KeyDown(KeyRight, 0);
    ASSERT_GT(number, 1);
    EXPECT_EQ(show.picCONTROLBAR.lblPLAYING.Caption(), QStringLiteral("%1.mp3").arg(number));
}

TEST_F(ShowMusic, ItsBarStaysAsTheLoadHasShownIt) {
    const auto turn = [](frmSLIDESHOW& show) {
        show.tmrMUSIC_Timer();
        show.Form_Resize();
        show.Form_KeyDown(KeyRight, 0);
        show.Form_MouseUp();
    };
    const QString track = host.trackPath;
    frmSLIDESHOW& first = open();
    host.trackPath.clear();
    turn(first);
    EXPECT_EQ(first.picCONTROLBAR.lblPLAYING.Caption(), QString());
    EXPECT_FALSE(first.picCONTROLBAR.prgPLAY.isHidden());
    endShow();
    frmSLIDESHOW& second = open();
    host.trackPath = track;
    turn(second);
    EXPECT_EQ(second.picCONTROLBAR.lblPLAYING.Caption(), QStringLiteral("A long song.mp3"));
    EXPECT_TRUE(second.picCONTROLBAR.prgPLAY.isHidden());
}

TEST_F(ShowMusic, PausesAndGoesOnWithTheShow) {
    frmSLIDESHOW& show = open();
    show.Form_MouseUp();
    show.Form_MouseUp();
    EXPECT_EQ(host.music, QStringList({QStringLiteral("play"), QStringLiteral("pause"),
                                       QStringLiteral("play")}));
}

TEST_F(ShowMusic, TheShowsEndStopsNoMusic) {
    frmSLIDESHOW& show = open();
    show.Unload();
    EXPECT_EQ(host.music, QStringList(QStringLiteral("play")));
    EXPECT_FALSE(show.tmrMUSIC.isActive());
}

class BarButtons : public ShowMusic {
protected:
    static void press(picbtn& button) {
        QTest::mouseClick(&button, Qt::LeftButton, {}, button.rect().center());
    }
};

TEST_F(BarButtons, MoveThroughTheShow) {
    frmSLIDESHOW& show = open();
    show.picCONTROLBAR.show();
    press(show.picCONTROLBAR.btnNEXT);
    EXPECT_EQ(show.slides.SlideIndex, 2);
    press(show.picCONTROLBAR.btnPREV);
    EXPECT_EQ(show.slides.SlideIndex, 1);
}

TEST_F(BarButtons, PauseAndPlayTakeEachOthersPlace) {
    frmSLIDESHOW& show = open();
    show.picCONTROLBAR.show();
    EXPECT_TRUE(show.picCONTROLBAR.btnPAUSE.isVisible());
    EXPECT_FALSE(show.picCONTROLBAR.btnPLAY.isVisible());
    press(show.picCONTROLBAR.btnPAUSE);
    EXPECT_TRUE(show.Paused);
    EXPECT_FALSE(show.picCONTROLBAR.btnPAUSE.isVisible());
    EXPECT_TRUE(show.picCONTROLBAR.btnPLAY.isVisible());
    press(show.picCONTROLBAR.btnPLAY);
    EXPECT_FALSE(show.Paused);
}

TEST_F(BarButtons, ExitStopsAllAndLeaves) {
    frmSLIDESHOW& show = open();
    show.picCONTROLBAR.show();
    press(show.picCONTROLBAR.btnEXIT);
    EXPECT_TRUE(show.isUnloaded());
    EXPECT_EQ(show.fade().FadeAlpha, 242);
    EXPECT_FALSE(show.tmrFADETRANS.isActive());
    EXPECT_FALSE(show.tmrSLIDESHOW.isActive());
    EXPECT_FALSE(show.tmrMUSIC.isActive());
}

TEST_F(BarButtons, HaveTheirTooltipsAndNoFocus) {
    frmSLIDESHOW& show = open();
    EXPECT_EQ(show.picCONTROLBAR.btnPREV.toolTip(), QStringLiteral("Click to Previous Slide"));
    EXPECT_EQ(show.picCONTROLBAR.btnNEXT.toolTip(), QStringLiteral("Click to Next Slide"));
    EXPECT_EQ(show.picCONTROLBAR.btnPAUSE.toolTip(),
              QStringLiteral("Click to Pause the Slideshow"));
    EXPECT_EQ(show.picCONTROLBAR.btnPLAY.toolTip(), QStringLiteral("Click to Play Slideshow"));
    EXPECT_EQ(show.picCONTROLBAR.btnEXIT.toolTip(),
              QStringLiteral("Click to Exit Slideshow (Esc)"));
    for (const picbtn* button : show.picCONTROLBAR.findChildren<picbtn*>()) {
        EXPECT_EQ(button->focusPolicy(), Qt::NoFocus);
    }
}

}  // namespace
}  // namespace velorama

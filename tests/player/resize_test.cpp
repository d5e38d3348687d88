#include "controls/geometry/twips.h"
#include "player/player_world.h"

namespace velorama::test {
namespace {

/// A show whose screen changes under it.
class ShowResized : public PlayerTest {
protected:
    static void expectAreaOf(const frmSLIDESHOW& show) {
        const QSize area(toPixels(Width(show) - 2650), toPixels(Height(show) - 2000));
        EXPECT_EQ(show.picPREVIEW.scaleSize(), area);
        EXPECT_EQ(show.picPREVIEW.Picture().size(), area);
    }
    static QRgb shown(frmSLIDESHOW& show) { return middle(show.picPREVIEW.Image()); }
};

TEST_F(ShowResized, KeepsTheSlideThatIsTold) {
    makeSlides(3);
    frmSLIDESHOW& show = openFaded();
    show.tmrSLIDESHOW_Timer();
    fadeSteps(show, 240);
    ASSERT_EQ(counter(show), "2 of 3");
    ASSERT_EQ(shown(show), slideColour(2).rgb());
    show.resize(500, 600);
    show.Form_Resize();
    expectAreaOf(show);
    EXPECT_EQ(shown(show), slideColour(2).rgb());
}

TEST_F(ShowResized, InsideAStepKeepsItsNewArea) {
    makeSlides(3);
    for (int yield = 1; yield <= 20; ++yield) {
        SCOPED_TRACE(yield);
        frmSLIDESHOW& show = openFaded();
        {
            const AtYield watch(yield, [&show] { show.resize(500, 600); });
            show.tmrSLIDESHOW_Timer();
        }
        ASSERT_EQ(show.size(), QSize(500, 600));
        expectAreaOf(show);
        fadeSteps(show, 240);
        EXPECT_EQ(shown(show), slideColour(2).rgb());
        endShow();
    }
}

// 60 by 40 pixels in an area of 123 by 567 are 123 by 82, in its middle.
TEST_F(ShowResized, InTheMidstOfAFadeKeepsTheShapeOfTheSlide) {
    makeSlides(3);
    frmSLIDESHOW& show = openFaded();
    show.tmrSLIDESHOW_Timer();
    fadeSteps(show, 20);
    show.resize(300, 700);
    show.Form_Resize();
    fadeSteps(show, 220);
    EXPECT_EQ(shown(show), slideColour(2).rgb());
    EXPECT_EQ(show.picPREVIEW.Image().pixel(60, 150), QColor(Qt::white).rgb());
}

}  // namespace
}  // namespace velorama::test

#include "player/player_world.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

namespace velorama::test {
namespace {

/// For a run on screens of unlike scale, some of them of the same size in logical pixels. Elsewhere
/// its tests are skipped.
class UnlikeScreens : public PlayerTest {
protected:
    void SetUp() override {
        QStringList screens;
        for (const QScreen* screen : QGuiApplication::screens()) {
            screens.append(QStringLiteral("%1 %2 x %3 at %4")
                               .arg(screen->name())
                               .arg(screen->size().width())
                               .arg(screen->size().height())
                               .arg(screen->devicePixelRatio()));
        }
        if (screens.size() != 3) {
            GTEST_SKIP() << "has a run of its own, on three screens";
        }
        screens.sort();
        ASSERT_EQ(screens.join(u';').toStdString(),
                  "fine 640 x 480 at 2;plain 640 x 480 at 1;wide 800 x 400 at 1.5");
        makeSlides(3);
    }

    /// Runs `check` on a show that has stood on one screen, with `steps` of the fade to its second
    /// slide done, and that the desktop has put over another, for each pair of them.
    void onTheWay(int steps, const std::function<void(frmSLIDESHOW&)>& check) {
        for (QScreen* from : QGuiApplication::screens()) {
            for (QScreen* to : QGuiApplication::screens()) {
                SCOPED_TRACE(from->name().toStdString() + " to " + to->name().toStdString());
                form = new frmSLIDESHOW(host, screenSaver);
                form->load(from);
                fadeSteps(*form, 240);
                form->tmrSLIDESHOW_Timer();
                fadeSteps(*form, steps);
                form->windowHandle()->setScreen(to);
                form->setGeometry(to->geometry());
                QCoreApplication::processEvents();
                ASSERT_EQ(form->devicePixelRatioF(), to->devicePixelRatio());
                check(*form);
                endShow();
            }
        }
    }
};

TEST_F(UnlikeScreens, AShowTakesItsSlideAlong) {
    onTheWay(240, [](frmSLIDESHOW& show) {
        EXPECT_EQ(middle(show.picPREVIEW.Image()), slideColour(2).rgb());
    });
}

TEST_F(UnlikeScreens, AShowGoesOnWithItsFade) {
    onTheWay(10, [](frmSLIDESHOW& show) {
        EXPECT_NE(middle(show.picPREVIEW.Image()), QColor(Qt::white).rgb());
        EXPECT_NE(middle(show.picPREVIEW.Image()), slideColour(1).rgb());
        EXPECT_NE(middle(show.picPREVIEW.Image()), slideColour(2).rgb());
        fadeSteps(show, 230);
        EXPECT_EQ(middle(show.picPREVIEW.Image()), slideColour(2).rgb());
        EXPECT_EQ(show.picPREVIEW.Image().size(), show.picPREVIEW.scaleSize());
        EXPECT_EQ(show.picSLIDERESIZE.Picture().size(), show.picPREVIEW.scaleSize());
    });
}

}  // namespace
}  // namespace velorama::test

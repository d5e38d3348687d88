#include "player/player_world.h"

#include "support/waiting.h"

#include <QTest>

namespace velorama::test {
namespace {

class PauseSign : public PlayerTest {
protected:
    PauseMark& mark() { return *form->findChild<PauseMark*>(); }
};

TEST_F(PauseSign, ComesUpInTheMiddleWhereTheBarIsHiddenAndGoesByItself) {
    makeSlides(2);
    frmSLIDESHOW& show = openFaded();
    EXPECT_TRUE(mark().isHidden());
    show.Form_MouseUp();
    EXPECT_TRUE(mark().isVisible());
    EXPECT_LE((mark().geometry().center() - show.rect().center()).manhattanLength(), 2);
    EXPECT_TRUE(comesTrue([&] { return mark().isHidden(); }));
    EXPECT_TRUE(show.Paused);
}

TEST_F(PauseSign, GoesAtOnceWithThePause) {
    makeSlides(2);
    frmSLIDESHOW& show = openFaded();
    show.Form_MouseUp();
    show.Form_MouseUp();
    EXPECT_TRUE(mark().isHidden());
}

TEST_F(PauseSign, DoesNotComeBesideTheBar) {
    makeSlides(2);
    frmSLIDESHOW& show = openFaded();
    show.Form_MouseMove(Height(show));
    show.Form_MouseUp();
    EXPECT_TRUE(mark().isHidden());
}

TEST_F(PauseSign, StandsOverThePictureAndTakesNoClicks) {
    makeSlides(2);
    frmSLIDESHOW& show = openFaded();
    show.Form_MouseUp();
    const QPoint middle = mark().geometry().center();
    EXPECT_EQ(show.grab().toImage().pixelColor(middle - QPoint(12, 0)), QColor(Qt::white));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&show));
    QTest::mouseClick(show.windowHandle(), Qt::LeftButton, {}, middle);
    QCoreApplication::processEvents();
    EXPECT_FALSE(show.Paused);
}

}  // namespace
}  // namespace velorama::test

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

/// Two white bars on a dark plate with round corners.
TEST_F(PauseSign, IsTwoBarsOnADarkPlate) {
    makeSlides(1);
    QWidget& sign = *openFaded().findChild<PauseMark*>();
    ASSERT_EQ(sign.size(), QSize(96, 96));
    QImage seen(sign.size(), QImage::Format_ARGB32);
    seen.fill(Qt::transparent);
    sign.render(&seen, {}, {}, QWidget::RenderFlags());
    const QColor plate(24, 24, 28, 200);
    QRect white;
    QRect dark;
    for (int y = 0; y < 96; ++y) {
        for (int x = 0; x < 96; ++x) {
            const QColor colour = seen.pixelColor(x, y);
            white |= colour == QColor(Qt::white) ? QRect(x, y, 1, 1) : QRect();
            dark |= colour.alpha() == plate.alpha() ? QRect(x, y, 1, 1) : QRect();
        }
    }
    EXPECT_EQ(white, QRect(30, 26, 36, 44));
    EXPECT_EQ(dark, QRect(0, 0, 96, 96));
    for (const int x : {29, 42, 48, 53, 66}) {
        EXPECT_EQ(seen.pixelColor(x, 48).name(QColor::HexArgb).toStdString(), "#c818181c") << x;
    }
    for (const int x : {30, 41, 54, 65}) {
        EXPECT_EQ(seen.pixelColor(x, 48), QColor(Qt::white)) << x;
    }
    // A circle of 16 round (16, 16): on the diagonal it runs through 4.69, which is smooth.
    for (const QPoint corner : {QPoint(0, 0), QPoint(95, 0), QPoint(0, 95), QPoint(95, 95)}) {
        const QPoint inwards(corner.x() == 0 ? 1 : -1, corner.y() == 0 ? 1 : -1);
        EXPECT_EQ(seen.pixelColor(corner + 3 * inwards).alpha(), 0);
        EXPECT_GT(seen.pixelColor(corner + 4 * inwards).alpha(), 10);
        EXPECT_LT(seen.pixelColor(corner + 4 * inwards).alpha(), 100);
        EXPECT_EQ(seen.pixelColor(corner + 6 * inwards).alpha(), plate.alpha());
    }
}

TEST_F(PauseSign, StandsForASecond) {
    makeSlides(1);
    const QTimer& timer = *openFaded().findChild<PauseMark*>()->findChild<QTimer*>();
    EXPECT_EQ(mark().accessibleName(), QString::fromLatin1(pausedText));
    EXPECT_EQ(timer.interval(), 1000);
    EXPECT_TRUE(timer.isSingleShot());
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

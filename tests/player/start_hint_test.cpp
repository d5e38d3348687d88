#include "player/start_hint.h"

#include "core/globals.h"
#include "player/player_world.h"

#include "support/waiting.h"

#include <QTest>

namespace velorama::test {
namespace {

class StartHintTest : public PlayerTest {
protected:
    StartHint& hint() { return *form->findChild<StartHint*>(); }
    frmSLIDESHOW& begin() {
        makeSlides(2);
        return openFaded();
    }
};

TEST_F(StartHintTest, ComesUpOverTheStatusLineAndGoesByItself) {
    const frmSLIDESHOW& show = begin();
    ASSERT_TRUE(hint().isVisible());
    EXPECT_EQ(hint().height(), 18);
    EXPECT_EQ(show.rect().bottom() - hint().geometry().bottom(), 2);
    // No picture and no frame is that low.
    EXPECT_GT(hint().y(), show.picBORDERFRAME.geometry().bottom());
    // Where the bar comes up its caption stays whole.
    const QRect caption =
        show.picCONTROLBAR.lblDESC.geometry().translated(show.picCONTROLBAR.pos());
    EXPECT_GT(hint().y(), caption.bottom());
    EXPECT_TRUE(comesTrue([&] { return hint().isHidden(); }));
}

TEST_F(StartHintTest, IsWhiteOnADarkPlateWithRoundCorners) {
    begin();
    QImage seen(hint().size(), QImage::Format_ARGB32);
    seen.fill(Qt::transparent);
    hint().render(&seen, {}, {}, QWidget::RenderFlags());
    const QColor plate(24, 24, 28);
    const int right = seen.width() - 1;
    const int bottom = seen.height() - 1;
    int light = 0;
    for (int x = 0; x <= right; ++x) {
        const bool isInside = x >= 5 && x <= right - 5;
        EXPECT_TRUE(!isInside || seen.pixelColor(x, 0) == plate) << x;
        EXPECT_TRUE(!isInside || seen.pixelColor(x, bottom) == plate) << x;
        for (int y = 0; y <= bottom; ++y) {
            light += seen.pixelColor(x, y).lightness() > 200 ? 1 : 0;
        }
    }
    EXPECT_GT(light, 40);
    // A circle of 5 round (5, 5), whose edge is smooth.
    for (const QPoint corner :
         {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)}) {
        const QPoint inwards(corner.x() == 0 ? 1 : -1, corner.y() == 0 ? 1 : -1);
        EXPECT_LT(seen.pixelColor(corner).alpha(), 40);
        EXPECT_GT(seen.pixelColor(corner + inwards).alpha(), 40);
        EXPECT_LT(seen.pixelColor(corner + inwards).alpha(), 255);
        EXPECT_EQ(seen.pixelColor(corner + 3 * inwards).rgba(), plate.rgba());
    }
}

TEST_F(StartHintTest, StandsForItsTime) {
    begin();
    const QTimer& timer = *hint().findChild<QTimer*>();
    EXPECT_EQ(timer.interval(), 3000);
    EXPECT_TRUE(timer.isSingleShot());
}

TEST_F(StartHintTest, SaysLessWhereTheBarHasLittleRoom) {
    const frmSLIDESHOW& show = begin();
    const QString all = hint().accessibleName();
    hint().hide();
    hint().showBriefly(show.width());
    EXPECT_EQ(hint().accessibleName(), all);
    const int whole = hint().width();
    int last = whole;
    for (const int room : {whole - 1, 304, 150}) {
        hint().showBriefly(room);
        EXPECT_LE(hint().width(), room);
        EXPECT_LT(hint().width(), last);
        EXPECT_NEAR(hint().geometry().center().x(), show.rect().center().x(), 1);
        EXPECT_TRUE(hint().accessibleName().startsWith(QStringLiteral("Esc leaves")));
        last = hint().width();
    }
    hint().hide();
    hint().showBriefly(20);
    EXPECT_TRUE(hint().isHidden());
}

TEST_F(StartHintTest, KeepsClearOfTheTextsAtTheSidesOfABarThatStays) {
    saveSetting(QStringLiteral("\\frmCONFIG\\Items"), QStringLiteral("TBAR"), QStringLiteral("0"));
    const frmSLIDESHOW& show = begin();
    ASSERT_TRUE(show.picCONTROLBAR.isVisible());
    const QRect middle =
        show.picCONTROLBAR.lblSTATUS.geometry().translated(show.picCONTROLBAR.pos());
    if (hint().isVisible()) {
        EXPECT_GE(hint().geometry().left(), middle.left());
        EXPECT_LE(hint().geometry().right(), middle.right());
    }
    EXPECT_LT(middle.width(), show.width());
}

TEST_F(StartHintTest, AKeyEndsItForGood) {
    frmSLIDESHOW& show = begin();
    ASSERT_TRUE(hint().isVisible());
    EXPECT_FALSE(StartHint::areKeysKnown());
    QTest::keyClick(&show, Qt::Key_Right);
    EXPECT_TRUE(hint().isHidden());
    EXPECT_TRUE(StartHint::areKeysKnown());
}

TEST_F(StartHintTest, WhoKnowsTheKeysIsNotTold) {
    begin();
    QTest::keyClick(form.get(), Qt::Key_Escape);
    begin();
    EXPECT_TRUE(hint().isHidden());
}

TEST_F(StartHintTest, TheMouseIsNoKey) {
    frmSLIDESHOW& show = begin();
    show.Form_MouseUp();
    EXPECT_FALSE(StartHint::areKeysKnown());
    EXPECT_TRUE(hint().isHidden()) << "the bar says that the show is paused";
}

}  // namespace
}  // namespace velorama::test

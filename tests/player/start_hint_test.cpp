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
    EXPECT_TRUE(show.rect().contains(hint().geometry()));
    // No picture and no frame is that low.
    EXPECT_GT(hint().y(), show.picBORDERFRAME.geometry().bottom());
    // Where the bar comes up its caption stays whole.
    const QRect caption =
        show.picCONTROLBAR.lblDESC.geometry().translated(show.picCONTROLBAR.pos());
    EXPECT_GT(hint().y(), caption.bottom());
    EXPECT_TRUE(comesTrue([&] { return hint().isHidden(); }));
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

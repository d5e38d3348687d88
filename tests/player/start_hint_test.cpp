#include "player/start_hint.h"

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

#include "core/globals.h"
#include "player/player_world.h"

#include <QFile>
#include <QTest>

namespace velorama::test {
namespace {

using Keys = PlayerTest;

TEST_F(Keys, RightGoesRoundAndLeavesTheNumberOnTheLastSlide) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(counter(show), "2 of 3");
    EXPECT_EQ(show.slides.SlideIndex, 2);
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(counter(show), "3 of 3");
    EXPECT_EQ(show.slides.SlideIndex, 3);
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(counter(show), "1 of 3");
    EXPECT_EQ(show.slides.SlideIndex, 1);
    EXPECT_EQ(caption(show), "a");
}

TEST_F(Keys, LeftGoesRoundBackwards) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.Form_KeyDown(KeyLeft, 0);
    EXPECT_EQ(counter(show), "3 of 3");
    EXPECT_EQ(show.slides.SlideIndex, 3);
    show.Form_KeyDown(KeyLeft, 0);
    EXPECT_EQ(counter(show), "2 of 3");
    show.Form_KeyDown(KeyLeft, 0);
    EXPECT_EQ(counter(show), "1 of 3");
    EXPECT_EQ(caption(show), "a");
}

TEST_F(Keys, LeftAfterATickShowedTheLastSlideShowsItAgain) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW_Timer();
    show.tmrSLIDESHOW_Timer();
    ASSERT_EQ(show.slides.SlideIndex, 0);
    show.Form_KeyDown(KeyLeft, 0);
    EXPECT_EQ(counter(show), "3 of 3");
    EXPECT_EQ(show.slides.SlideIndex, 3);
    show.Form_KeyDown(KeyLeft, 0);
    EXPECT_EQ(counter(show), "2 of 3");
}

TEST_F(Keys, LeftAfterRightShowedTheLastSlideShowsTheOneBefore) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.Form_KeyDown(KeyRight, 0);
    show.Form_KeyDown(KeyRight, 0);
    show.Form_KeyDown(KeyLeft, 0);
    EXPECT_EQ(counter(show), "2 of 3");
}

TEST_F(Keys, RightAfterATickShowedTheLastSlideShowsTheFirst) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW_Timer();
    show.tmrSLIDESHOW_Timer();
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(counter(show), "1 of 3");
}

TEST_F(Keys, ATickAfterRightShowedTheLastSlideShowsTheFirst) {
    makeSlides(2);
    frmSLIDESHOW& show = open();
    show.Form_KeyDown(KeyRight, 0);
    show.tmrSLIDESHOW_Timer();
    EXPECT_EQ(counter(show), "1 of 2");
    EXPECT_EQ(show.slides.SlideIndex, 1);
}

TEST_F(Keys, RightGoesOnOverAMissingSlide) {
    setSlides({picture("a.bmp", Qt::red), missing("b.bmp"), picture("c.bmp", Qt::blue),
               picture("d.bmp", Qt::green)});
    frmSLIDESHOW& show = open();
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(counter(show), "3 of 4");
    EXPECT_EQ(caption(show), "c");
}

TEST_F(Keys, LeftGoesOnOverMissingSlidesRoundTheEnd) {
    setSlides({picture("a.bmp", Qt::red), picture("b.bmp", Qt::blue), missing("c.bmp"),
               missing("d.bmp")});
    frmSLIDESHOW& show = open();
    show.Form_KeyDown(KeyLeft, 0);
    EXPECT_EQ(counter(show), "2 of 4");
}

TEST_F(Keys, RightStopsOnAMissingLastSlideAndShowsNothing) {
    setSlides({picture("a.bmp", Qt::red), picture("b.bmp", Qt::blue), missing("c.bmp"),
               missing("d.bmp")});
    frmSLIDESHOW& show = openFaded();
    show.Form_KeyDown(KeyRight, 0);
    fadeSteps(show, 30);
    const QImage half = show.picPREVIEW.Image().copy();
    show.tmrSLIDESHOW.stop();
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(show.slides.SlideIndex, 4);
    EXPECT_EQ(show.slides.SlidePath, missing("d.bmp"));
    EXPECT_EQ(caption(show), "b");
    EXPECT_EQ(counter(show), "2 of 4");
    EXPECT_EQ(show.picPREVIEW.Image(), half);
    EXPECT_FALSE(show.tmrFADETRANS.isActive());
    EXPECT_TRUE(show.tmrSLIDESHOW.isActive());
    EXPECT_EQ(show.fade().FadeAlpha, 30);
}

TEST_F(Keys, RightAfterStoppingOnAMissingLastSlideShowsTheFirst) {
    setSlides({picture("a.bmp", Qt::red), missing("b.bmp")});
    frmSLIDESHOW& show = open();
    show.Form_KeyDown(KeyRight, 0);
    ASSERT_EQ(show.slides.SlideIndex, 2);
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(counter(show), "1 of 2");
    EXPECT_EQ(show.slides.SlideIndex, 1);
}

TEST_F(Keys, RightWithOneSlideThatIsMissingEndsTheHandler) {
    const QString path = makeSlides(1).first();
    frmSLIDESHOW& show = openFaded();
    ASSERT_TRUE(QFile::remove(path));
    const QImage before = show.picPREVIEW.Image().copy();
    const int reads = store.slideReads;
    show.Form_KeyDown(KeyRight, 0);
    EXPECT_EQ(store.slideReads - reads, 1);
    EXPECT_EQ(show.slides.SlideIndex, 1);
    EXPECT_EQ(counter(show), "1 of 1");
    EXPECT_EQ(show.picPREVIEW.Image(), before);
    EXPECT_FALSE(show.tmrFADETRANS.isActive());
}

TEST_F(Keys, AnAdvanceRestartsThePeriodOfTheShow) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    for (const int key : {KeyRight, KeyLeft}) {
        show.tmrSLIDESHOW.stop();
        show.Form_KeyDown(key, 0);
        EXPECT_TRUE(show.tmrSLIDESHOW.isActive());
        EXPECT_EQ(show.tmrSLIDESHOW.interval(), 3600000);
    }
}

TEST_F(Keys, ATickDoesNotTouchThePeriod) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.tmrSLIDESHOW.stop();
    show.tmrSLIDESHOW_Timer();
    EXPECT_FALSE(show.tmrSLIDESHOW.isActive());
}

TEST_F(Keys, AnAdvanceInTheMidstOfAFadeStartsANewOne) {
    makeSlides(4);
    frmSLIDESHOW& show = openFaded();
    for (const int key : {KeyRight, KeyLeft}) {
        show.Form_KeyDown(key, 0);
        fadeSteps(show, 12);
        const QImage half = show.picPREVIEW.Image().copy();
        show.Form_KeyDown(key, 0);
        EXPECT_TRUE(show.tmrFADETRANS.isActive());
        EXPECT_EQ(show.fade().FadeAlpha, 0);
        EXPECT_EQ(show.picPREVIEW.Picture(), half);
    }
}

TEST_F(Keys, WorkWhilePausedAndTheStatusStays) {
    makeSlides(3);
    frmSLIDESHOW& show = openFaded();
    show.Form_MouseUp();
    for (const int key : {KeyRight, KeyLeft}) {
        show.Form_KeyDown(key, 0);
        EXPECT_TRUE(show.Paused);
        EXPECT_EQ(status(show), pausedText);
        EXPECT_TRUE(show.tmrFADETRANS.isActive());
        fadeSteps(show, 240);
        EXPECT_FALSE(show.tmrFADETRANS.isActive());
    }
    EXPECT_EQ(counter(show), "1 of 3");
    EXPECT_EQ(middle(show.picPREVIEW.Image()), slideColour(1).rgb());
}

TEST_F(Keys, TheHandlerDoesNotLookAtTheShiftKeys) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    show.Form_KeyDown(KeyRight, ShiftDown | CtrlDown | AltDown);
    EXPECT_EQ(counter(show), "2 of 3");
    EXPECT_FALSE(show.isUnloaded());
}

TEST_F(Keys, AnyOtherKeyStopsTheFadeAndLeaves) {
    makeSlides(2);
    frmSLIDESHOW& show = open();
    ASSERT_TRUE(show.tmrFADETRANS.isActive());
    show.Form_KeyDown(KeyEscape, 0);
    EXPECT_TRUE(show.isUnloaded());
    EXPECT_FALSE(show.tmrFADETRANS.isActive());
    EXPECT_TRUE(host.visibilities.last());
}

TEST_F(Keys, OnTheKeyboardRightAndLeftMoveThroughTheShow) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    QTest::keyClick(&show, Qt::Key_Right);
    EXPECT_EQ(counter(show), "2 of 3");
    QTest::keyClick(&show, Qt::Key_Left);
    EXPECT_EQ(counter(show), "1 of 3");
    QTest::keyClick(&show, Qt::Key_Right, Qt::KeypadModifier);
    EXPECT_EQ(counter(show), "2 of 3");
    EXPECT_FALSE(show.isUnloaded());
}

// F5 or Enter, still held down from the start of the show, repeats into it.
TEST_F(Keys, AKeyHeldSinceBeforeTheShowDoesNotEndIt) {
    makeSlides(2);
    frmSLIDESHOW& show = open();
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(&show, &repeated);
    EXPECT_FALSE(show.isUnloaded());
    QTest::keyPress(&show, Qt::Key_Return);
    EXPECT_TRUE(show.isUnloaded());
}

// Each waits for the step that runs, none inside another; the last one's slide is shown.
TEST_F(Keys, ArrowsThatComeFasterThanTheirSlidesAllCount) {
    makeSlides(9);
    frmSLIDESHOW& show = open();
    for (const int key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Left, Qt::Key_Right}) {
        QCoreApplication::postEvent(&show, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
    }
    QTest::keyPress(&show, Qt::Key_Right);
    EXPECT_EQ(counter(show), "4 of 9");
    EXPECT_FALSE(show.isUnloaded());
}

TEST_F(Keys, AKeyThatLeavesDoesNotWaitForArrows) {
    makeSlides(9);
    frmSLIDESHOW& show = open();
    for (const int key : {Qt::Key_Right, Qt::Key_Escape, Qt::Key_Right}) {
        QCoreApplication::postEvent(&show, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
    }
    QTest::keyPress(&show, Qt::Key_Right);
    EXPECT_TRUE(show.isUnloaded());
}

TEST_F(Keys, AnArrowHeldDownGoesOnAtEachRepeat) {
    makeSlides(3);
    frmSLIDESHOW& show = open();
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(&show, &repeated);
    QCoreApplication::sendEvent(&show, &repeated);
    EXPECT_EQ(counter(show), "3 of 3");
}

struct LeavingKey {
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

class Leaving : public PlayerTest, public testing::WithParamInterface<LeavingKey> {};

TEST_P(Leaving, AnyOtherKeyOfTheKeyboard) {
    makeSlides(2);
    frmSLIDESHOW& show = open();
    QTest::keyPress(&show, GetParam().key, GetParam().modifiers);
    EXPECT_TRUE(show.isUnloaded());
    EXPECT_TRUE(host.visibilities.last());
}

INSTANTIATE_TEST_SUITE_P(
    KeyPresses, Leaving,
    testing::Values(
        LeavingKey{Qt::Key_Escape, Qt::NoModifier}, LeavingKey{Qt::Key_A, Qt::NoModifier},
        LeavingKey{Qt::Key_7, Qt::NoModifier}, LeavingKey{Qt::Key_Space, Qt::NoModifier},
        LeavingKey{Qt::Key_Return, Qt::NoModifier}, LeavingKey{Qt::Key_Tab, Qt::NoModifier},
        LeavingKey{Qt::Key_Backtab, Qt::ShiftModifier}, LeavingKey{Qt::Key_Up, Qt::NoModifier},
        LeavingKey{Qt::Key_Down, Qt::NoModifier}, LeavingKey{Qt::Key_F1, Qt::NoModifier},
        LeavingKey{Qt::Key_Shift, Qt::ShiftModifier},
        LeavingKey{Qt::Key_Control, Qt::ControlModifier}, LeavingKey{Qt::Key_Alt, Qt::AltModifier},
        LeavingKey{Qt::Key_VolumeUp, Qt::NoModifier}));

}  // namespace
}  // namespace velorama::test

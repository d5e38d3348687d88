#include "core/globals.h"
#include "player/player_world.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>

namespace velorama::test {
namespace {

struct Turn {
    QPoint angle;
    QPoint pixels = {};
    Qt::ScrollPhase phase = Qt::NoScrollPhase;
    /// Milliseconds after the one before.
    quint64 after = 10;
};

QWheelEvent eventOf(const Turn& turn, QPointF at = {}, QPointF global = {}) {
    return {at, global, turn.pixels, turn.angle, Qt::NoButton, Qt::NoModifier, turn.phase, false};
}

QList<int> stepsOf(const QList<Turn>& turns) {
    WheelSteps wheel;
    QList<int> steps;
    quint64 now = 5000;
    for (const Turn& turn : turns) {
        QWheelEvent event = eventOf(turn);
        now += turn.after;
        event.setTimestamp(now);
        steps.append(wheel.take(event));
    }
    return steps;
}

TEST(WheelStepsTest, DownAndToTheRightGoForward) {
    EXPECT_EQ(stepsOf({{{0, -120}}, {{0, 120}}, {{-120, 0}}, {{120, 0}}}),
              QList<int>({1, -1, 1, -1}));
}

TEST(WheelStepsTest, SeveralNotchesInOneEventAllCount) {
    EXPECT_EQ(stepsOf({{{0, -360}}, {{0, 240}}}), QList<int>({3, -2}));
}

// The X server's scroll valuators tell pixels too, 120 or, in older drivers, 15 to a notch.
TEST(WheelStepsTest, ANotchIsOneWhateverItsPixels) {
    EXPECT_EQ(stepsOf({{{0, -120}, {0, -120}}, {{0, -120}, {0, -15}}}), QList<int>({1, 1}));
}

TEST(WheelStepsTest, SmallPiecesAreCollectedToANotch) {
    EXPECT_EQ(stepsOf({{{0, -50}}, {{0, -50}}, {{0, -50}}, {{0, -50}}, {{0, -50}}}),
              QList<int>({0, 0, 1, 0, 1}));
}

TEST(WheelStepsTest, TurningRoundBeginsANewNotch) {
    EXPECT_EQ(stepsOf({{{0, -100}}, {{0, 100}}, {{0, 30}}, {{0, -100}}, {{0, -30}}}),
              QList<int>({0, 0, -1, 0, 1}));
}

TEST(WheelStepsTest, ARestForgetsTheBeginningOfANotch) {
    EXPECT_EQ(stepsOf({{{0, -100}}, {{0, -100}, {}, Qt::NoScrollPhase, 301}}), QList<int>({0, 0}));
    EXPECT_EQ(stepsOf({{{0, -100}}, {{0, -100}, {}, Qt::NoScrollPhase, 300}}), QList<int>({0, 1}));
}

TEST(WheelStepsTest, ATouchpadCountsByItsPixels) {
    const QList<Turn> fingers = {{{}, {}, Qt::ScrollBegin},
                                 {{0, -720}, {0, -60}, Qt::ScrollUpdate},
                                 {{0, -720}, {0, -60}, Qt::ScrollUpdate},
                                 {{0, -720}, {0, -60}, Qt::ScrollUpdate},
                                 {{}, {}, Qt::ScrollEnd},
                                 {{}, {}, Qt::ScrollBegin},
                                 {{0, -720}, {0, -60}, Qt::ScrollUpdate}};
    EXPECT_EQ(stepsOf(fingers), QList<int>({0, 0, 1, 0, 0, 0, 0}));
}

TEST(WheelStepsTest, ASwipeToTheSideIsOneStep) {
    QList<Turn> swipes;
    for (const int way : {-40, 40}) {
        swipes.append({{}, {}, Qt::ScrollBegin});
        for (int i = 0; i < 12; ++i) {
            swipes.append({{way * 12, 3}, {way, 1}, Qt::ScrollUpdate});
        }
        swipes.append({{}, {}, Qt::ScrollEnd});
    }
    const QList<int> steps = stepsOf(swipes);
    EXPECT_EQ(steps.count(1), 1);
    EXPECT_EQ(steps.count(-1), 1);
    EXPECT_EQ(steps.count(0), steps.size() - 2);
    EXPECT_LT(steps.indexOf(1), steps.indexOf(-1));
}

TEST(WheelStepsTest, WithoutPhasesARestEndsASwipe) {
    QList<Turn> swipes(12, {{-30, 0}, {-30, 0}});
    EXPECT_EQ(stepsOf(swipes).count(1), 1);
    swipes.append({{-30, 0}, {-30, 0}, Qt::NoScrollPhase, 301});
    swipes.append(QList<Turn>(11, {{-30, 0}, {-30, 0}}));
    EXPECT_EQ(stepsOf(swipes).count(1), 2);
}

TEST(WheelStepsTest, WhatRollsOnAfterTheFingersIsNoStep) {
    EXPECT_EQ(stepsOf({{{}, {}, Qt::ScrollBegin},
                       {{0, -240}, {0, -119}, Qt::ScrollUpdate},
                       {{0, -2400}, {0, -600}, Qt::ScrollMomentum},
                       {{-2400, 0}, {-600, 0}, Qt::ScrollMomentum}}),
              QList<int>({0, 0, 0, 0}));
}

class Wheel : public PlayerTest {
protected:
    static bool turn(QWidget& target, const Turn& turn) {
        const QPointF at = target.rect().center();
        QWheelEvent event = eventOf(turn, at, target.mapToGlobal(at));
        // Only what comes from outside goes on to the widget behind.
        QSpontaneKeyEvent::setSpontaneous(&event);
        return qApp->notify(&target, &event) && event.isAccepted();
    }
};

TEST_F(Wheel, StepsTheShowAsTheArrowsDo) {
    makeSlides(4);
    frmSLIDESHOW& show = openFaded();
    show.tmrSLIDESHOW.stop();
    turn(show, {{0, -120}});
    EXPECT_EQ(counter(show), "2 of 4");
    EXPECT_TRUE(show.tmrSLIDESHOW.isActive());
    EXPECT_EQ(show.fade().FadeAlpha, 0);
    turn(show, {{0, 240}});
    EXPECT_EQ(counter(show), "4 of 4");
    EXPECT_EQ(caption(show), "d");
    EXPECT_FALSE(show.isUnloaded());
}

TEST_F(Wheel, TurnsOverThePictureItsFrameAndTheBar) {
    makeSlides(9);
    saveSetting("\\frmCONFIG\\Items", "TBAR", "0");
    frmSLIDESHOW& show = openFaded();
    int number = 1;
    for (QWidget* target : std::initializer_list<QWidget*>{
             &show.picPREVIEW, &show.picBORDERFRAME, &show.picCONTROLBAR,
             &show.picCONTROLBAR.lblDESC, &show.picCONTROLBAR.btnNEXT}) {
        EXPECT_TRUE(turn(*target, {{0, -120}}));
        EXPECT_EQ(counter(show), std::to_string(++number) + " of 9");
    }
    EXPECT_FALSE(show.Paused);
}

TEST_F(Wheel, WorksInAPauseAndLeavesIt) {
    makeSlides(3);
    frmSLIDESHOW& show = openFaded();
    show.Form_MouseUp();
    turn(show.picPREVIEW, {{0, -120}});
    EXPECT_EQ(counter(show), "2 of 3");
    EXPECT_TRUE(show.Paused);
    EXPECT_EQ(status(show), pausedText);
}

TEST_F(Wheel, ThatSpinsOnWhileASlideLoadsIsOneStep) {
    makeSlides(9);
    frmSLIDESHOW& show = openFaded();
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::postEvent(&show, eventOf({{0, -120}}).clone());
    }
    turn(show, {{0, -120}});
    EXPECT_EQ(counter(show), "3 of 9");
}

TEST_F(Wheel, OfAShowThatHasEndedDoesNothing) {
    makeSlides(3);
    frmSLIDESHOW& show = openFaded();
    show.Unload();
    const int reads = store.slideReads;
    turn(show, {{0, -120}});
    EXPECT_EQ(store.slideReads, reads);
}

}  // namespace
}  // namespace velorama::test

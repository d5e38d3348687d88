#include "music_world.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QTimerEvent>

namespace velorama {
namespace {

using namespace test;

const QString a = QStringLiteral("/m/a.mp3");
const QString b = QStringLiteral("/m/b.wav");
const QString c = QStringLiteral("/m/c.mid");

class AudioEngineTest : public MusicWorld {};

TEST_F(AudioEngineTest, BeginsStoppedAndSendsNothing) {
    expectStopped();
    EXPECT_EQ(tmrMUSIC.interval(), 1000);
    EXPECT_EQ(device.taken(), QStringList());
}

TEST_F(AudioEngineTest, PlayOpensAndPlaysTheSelectedRow) {
    fill({a, b}, 1);
    cbtnAUDIO[2]->setEnabled(false);
    lstMUSIC.setEnabled(false);
    engine->AudioPlay();
    EXPECT_EQ(device.taken(), QStringList({openCommand(b), playCommand}));
    expectPlaying();
}

TEST_F(AudioEngineTest, PlayOfAnOpenTrackSendsTheSameAndLeavesTheTimersBeat) {
    fill({a}, 0);
    engine->AudioPlay();
    const int timer = tmrMUSIC.timerId();
    engine->AudioPlay();
    EXPECT_EQ(device.taken(),
              QStringList({openCommand(a), playCommand, openCommand(a), playCommand}));
    EXPECT_EQ(tmrMUSIC.timerId(), timer);
}

TEST_F(AudioEngineTest, PlayWithoutARowSendsAnEmptyPath) {
    engine->AudioPlay();
    EXPECT_EQ(device.taken(), QStringList({openCommand(QString()), playCommand}));
    expectPlaying();
    poll(QString(), QString());
    EXPECT_EQ(device.taken(),
              pollCommands + QStringList({closeCommand, openCommand(QString()), playCommand}));
    EXPECT_EQ(lstMUSIC.ListIndex(), -1);
    expectPlaying();
}

TEST_F(AudioEngineTest, PausePressedTwicePausesAndResumes) {
    fill({a}, 0);
    engine->AudioPlay();
    device.taken();
    cbtnAUDIO[2]->setEnabled(false);
    press(3);
    EXPECT_EQ(device.taken(), QStringList({pauseCommand}));
    EXPECT_FALSE(lstMUSIC.Enabled());
    EXPECT_TRUE(enabled(2));
    EXPECT_TRUE(tmrMUSIC.isActive());
    cbtnAUDIO[2]->setEnabled(false);
    press(3);
    EXPECT_EQ(device.taken(), QStringList({resumeCommand}));
    EXPECT_TRUE(lstMUSIC.Enabled());
    EXPECT_TRUE(enabled(2));
}

TEST_F(AudioEngineTest, APauseIsEndedByPlay) {
    fill({a}, 0);
    engine->AudioPlay();
    engine->AudioPause();
    device.taken();
    engine->AudioPlay();
    EXPECT_EQ(device.taken(), QStringList({openCommand(a), playCommand}));
    expectPlaying();
    engine->AudioPause();
    EXPECT_EQ(device.taken(), QStringList({pauseCommand}));
}

// The pause is the list's own state; a hidden or disabled window is none.
TEST_F(AudioEngineTest, ADisabledWindowIsNoPause) {
    page.setEnabled(false);
    engine->AudioPause();
    EXPECT_EQ(device.taken(), QStringList({pauseCommand}));
    engine->AudioPause();
    EXPECT_EQ(device.taken(), QStringList({resumeCommand}));
}

TEST_F(AudioEngineTest, StopEndsAnyState) {
    fill({a}, 0);
    for (const bool paused : {false, true}) {
        engine->AudioPlay();
        if (paused) {
            engine->AudioPause();
        }
        device.taken();
        cbtnAUDIO[2]->setEnabled(false);
        press(4);
        EXPECT_EQ(device.taken(), QStringList({closeCommand}));
        expectStopped();
        EXPECT_TRUE(enabled(2));
    }
}

TEST_F(AudioEngineTest, CloseDeviceLeavesTheControlsAlone) {
    fill({a}, 0);
    engine->AudioPlay();
    device.taken();
    engine->closeDevice();
    EXPECT_EQ(device.taken(), QStringList({closeCommand}));
    expectPlaying();
}

TEST_F(AudioEngineTest, APollShowsWholeSeconds) {
    fill({a, b}, 0);
    engine->AudioPlay();
    device.taken();
    prgPLAY.hide();
    poll(QStringLiteral("7250"), QStringLiteral("3999"));
    EXPECT_EQ(device.taken(), pollCommands);
    EXPECT_EQ(controls.lblM1->Caption(), QStringLiteral("7"));
    EXPECT_EQ(controls.lblM2->Caption(), QStringLiteral("3"));
    EXPECT_FALSE(prgPLAY.isHidden());
    EXPECT_EQ(prgPLAY.Max(), 7);
    EXPECT_EQ(prgPLAY.Value(), 3);
    EXPECT_EQ(lstMUSIC.ListIndex(), 0);
}

TEST_F(AudioEngineTest, AnswersAreRoundedBeforeTheyAreCut) {
    poll(QStringLiteral("5999.5"), QStringLiteral("2999.4"));
    EXPECT_EQ(controls.lblM1->Caption(), QStringLiteral("6"));
    EXPECT_EQ(controls.lblM2->Caption(), QStringLiteral("2"));
}

TEST_F(AudioEngineTest, ALengthOfZeroLeavesTheBarsMaximum) {
    fill({a, b}, 0);
    engine->AudioPlay();
    poll(QStringLiteral("9000"), QStringLiteral("4000"));
    poll(QStringLiteral("999"), QStringLiteral("1000"));
    EXPECT_EQ(controls.lblM1->Caption(), QStringLiteral("0"));
    EXPECT_EQ(controls.lblM2->Caption(), QStringLiteral("1"));
    EXPECT_EQ(prgPLAY.Max(), 9);
    EXPECT_EQ(prgPLAY.Value(), 1);
    EXPECT_EQ(lstMUSIC.ListIndex(), 0);
}

TEST_F(AudioEngineTest, TheEndIsSeenInTheLastSecond) {
    fill({a, b, c}, 0);
    engine->AudioPlay();
    poll(QStringLiteral("7250"), QStringLiteral("6999"));
    EXPECT_EQ(lstMUSIC.ListIndex(), 0);
    device.taken();
    poll(QStringLiteral("7250"), QStringLiteral("7000"));
    EXPECT_EQ(device.taken(),
              pollCommands + QStringList({closeCommand, openCommand(b), playCommand}));
    EXPECT_EQ(lstMUSIC.ListIndex(), 1);
    EXPECT_EQ(controls.lblFile->Caption(), b);
    expectPlaying();
}

// Equality and nothing else.
TEST_F(AudioEngineTest, APositionBehindTheLengthIsNoEnd) {
    fill({a, b}, 0);
    engine->AudioPlay();
    poll(QStringLiteral("7250"), QStringLiteral("8000"));
    EXPECT_EQ(lstMUSIC.ListIndex(), 0);
    EXPECT_EQ(controls.lblM2->Caption(), QStringLiteral("8"));
}

TEST_F(AudioEngineTest, AfterTheLastRowComesTheFirst) {
    fill({a, b, c}, 2);
    engine->AudioPlay();
    device.taken();
    poll(QStringLiteral("5500"), QStringLiteral("5500"));
    EXPECT_EQ(device.taken(),
              pollCommands + QStringList({closeCommand, openCommand(a), playCommand}));
    EXPECT_EQ(lstMUSIC.ListIndex(), 0);
    EXPECT_EQ(controls.lblFile->Caption(), a);
}

TEST_F(AudioEngineTest, OneRowRepeatsForEver) {
    fill({a}, 0);
    engine->AudioPlay();
    for (int i = 0; i < 3; ++i) {
        device.taken();
        poll(QStringLiteral("5500"), QStringLiteral("5100"));
        EXPECT_EQ(device.taken(),
                  pollCommands + QStringList({closeCommand, openCommand(a), playCommand}));
        EXPECT_EQ(lstMUSIC.ListIndex(), 0);
    }
}

TEST_F(AudioEngineTest, TheNextTrackIsToldOnceItIsNamed) {
    fill({a, b}, 0);
    engine->AudioPlay();
    QStringList told;
    QObject::connect(engine.get(), &AudioEngine::Changed, &page,
                     [&] { told.append(controls.lblFile->Caption()); });
    poll(QStringLiteral("5500"), QStringLiteral("5100"));
    ASSERT_FALSE(told.isEmpty());
    EXPECT_EQ(told.last(), b);
}

TEST_F(AudioEngineTest, WithoutASelectedRowTheFirstFollows) {
    fill({a, b}, -1);
    engine->AudioPlay();
    poll(QStringLiteral("0"), QStringLiteral("0"));
    EXPECT_EQ(lstMUSIC.ListIndex(), 0);
}

TEST_F(AudioEngineTest, UnopenableFilesAreWalkedARowAPollEndlessly) {
    fill({a, b, c}, 0);
    device.succeeds = false;
    engine->AudioPlay();
    for (const int row : {1, 2, 0, 1, 2, 0}) {
        poll(QString(), QString());
        EXPECT_EQ(lstMUSIC.ListIndex(), row);
        EXPECT_EQ(device.commands.at(device.commands.size() - 2), openCommand(lstMUSIC.List(row)));
        EXPECT_TRUE(tmrMUSIC.isActive());
        EXPECT_EQ(controls.lblM1->Caption(), QStringLiteral("0"));
    }
}

TEST_F(AudioEngineTest, AStandingPositionOfAPausedTrackChangesNothing) {
    fill({a, b}, 0);
    engine->AudioPlay();
    engine->AudioPause();
    device.taken();
    for (int i = 0; i < 3; ++i) {
        poll(QStringLiteral("7250"), QStringLiteral("3000"));
    }
    EXPECT_EQ(device.taken(), pollCommands + pollCommands + pollCommands);
    EXPECT_FALSE(lstMUSIC.Enabled());
}

TEST_F(AudioEngineTest, APauseInTheLastSecondHoldsUntilItIsEnded) {
    fill({a, b}, 0);
    engine->AudioPlay();
    press(3);
    device.taken();
    poll(QStringLiteral("7250"), QStringLiteral("7100"));
    poll(QStringLiteral("7250"), QStringLiteral("7100"));
    EXPECT_EQ(device.taken(), pollCommands + pollCommands);
    EXPECT_EQ(lstMUSIC.ListIndex(), 0);
    EXPECT_FALSE(lstMUSIC.Enabled());
    EXPECT_EQ(controls.lblM2->Caption(), QStringLiteral("7"));
    press(3);
    poll(QStringLiteral("7250"), QStringLiteral("7100"));
    EXPECT_EQ(lstMUSIC.ListIndex(), 1);
    expectPlaying();
}

TEST_F(AudioEngineTest, APauseHoldsOnAFileThatDoesNotOpenToo) {
    fill({a, b}, 0);
    device.succeeds = false;
    engine->AudioPlay();
    press(3);
    poll(QString(), QString());
    EXPECT_EQ(lstMUSIC.ListIndex(), 0);
    EXPECT_FALSE(lstMUSIC.Enabled());
    engine->AudioPlay();
    poll(QString(), QString());
    EXPECT_EQ(lstMUSIC.ListIndex(), 1);
}

TEST_F(AudioEngineTest, ADoubleClickStartsItsRow) {
    fill({a, b}, 0);
    engine->AudioPlay();
    device.taken();
    lstMUSIC.setListIndex(1);
    emit lstMUSIC.DblClick();
    EXPECT_EQ(device.taken(), QStringList({closeCommand, openCommand(b), playCommand}));
    expectPlaying();
}

TEST_F(AudioEngineTest, Button2StartsTheSelectedRowAgain) {
    fill({a, b}, 1);
    engine->AudioPlay();
    engine->AudioPause();
    device.taken();
    press(2);
    EXPECT_EQ(device.taken(), QStringList({closeCommand, openCommand(b), playCommand}));
    expectPlaying();
}

TEST_F(AudioEngineTest, Button5StopsAndClears) {
    fill({a, b}, 1);
    engine->AudioPlay();
    device.taken();
    press(5);
    EXPECT_EQ(device.taken(), QStringList({closeCommand}));
    EXPECT_EQ(lstMUSIC.ListCount(), 0);
    expectStopped();
}

TEST_F(AudioEngineTest, TheTimerPolls) {
    fill({a}, 0);
    engine->AudioPlay();
    device.taken();
    device.length = QStringLiteral("7250");
    QTimerEvent tick(tmrMUSIC.timerId());
    QCoreApplication::sendEvent(&tmrMUSIC, &tick);
    EXPECT_EQ(device.taken(), pollCommands);
}

class MusicFocus : public MusicWorld {
protected:
    MusicFocus() {
        page.show();
        fill({a, b}, 0);
        engine->AudioPlay();
    }

    QPushButton elsewhere{&page};
};

TEST_F(MusicFocus, APauseTakesItFromTheListToThePauseButton) {
    lstMUSIC.setFocus();
    engine->AudioPause();
    EXPECT_FALSE(lstMUSIC.isEnabled());
    EXPECT_EQ(page.focusWidget(), cbtnAUDIO[3]);
    engine->AudioPause();
    EXPECT_TRUE(lstMUSIC.isEnabled());
    EXPECT_EQ(page.focusWidget(), cbtnAUDIO[3]);
}

TEST_F(MusicFocus, StaysOnAButtonThatStaysEnabled) {
    cbtnAUDIO[3]->setFocus();
    engine->AudioPause();
    EXPECT_EQ(page.focusWidget(), cbtnAUDIO[3]);
    elsewhere.setFocus();
    engine->AudioPause();
    engine->AudioStop();
    EXPECT_EQ(page.focusWidget(), &elsewhere);
}

TEST_F(MusicFocus, AStopTakesItToTheButtonThatStartsAgain) {
    for (const size_t pressed : {3U, 4U}) {
        engine->AudioPlay();
        cbtnAUDIO.at(pressed)->setFocus();
        engine->AudioStop();
        EXPECT_FALSE(cbtnAUDIO.at(pressed)->isEnabled());
        EXPECT_EQ(page.focusWidget(), cbtnAUDIO[2]);
    }
}

TEST_F(MusicFocus, ATrackChangeLeavesItWhereItIs) {
    cbtnAUDIO[4]->setFocus();
    engine->tmrMUSIC_Timer();
    EXPECT_EQ(lstMUSIC.ListIndex(), 1);
    EXPECT_EQ(page.focusWidget(), cbtnAUDIO[4]);
}

TEST_F(AudioEngineTest, AStepToAnotherRowPlaysItAsADoubleClickDoes) {
    fill({a, b, c}, 1);
    engine->AudioPlay();
    device.taken();
    engine->stepRow(1);
    EXPECT_EQ(lstMUSIC.ListIndex(), 2);
    EXPECT_EQ(device.taken(), QStringList({closeCommand, openCommand(c), playCommand}));
    expectPlaying();
    engine->stepRow(-1);
    EXPECT_EQ(lstMUSIC.ListIndex(), 1);
    EXPECT_EQ(device.taken(), QStringList({closeCommand, openCommand(b), playCommand}));
}

TEST_F(AudioEngineTest, StepsGoRoundTheListsEnds) {
    struct Step {
        int rows;
        int from;
        int by;
        int to;
    };
    for (const Step& step : {Step{3, 2, 1, 0},
                             {3, 0, -1, 2},
                             {1, 0, 1, 0},
                             {1, 0, -1, 0},
                             {3, -1, 1, 0},
                             {3, -1, -1, 2}}) {
        lstMUSIC.clear();
        fill(QStringList({a, b, c}).mid(0, step.rows), step.from);
        engine->stepRow(step.by);
        EXPECT_EQ(lstMUSIC.ListIndex(), step.to) << step.from << " by " << step.by;
        EXPECT_EQ(device.taken(), QStringList()) << "what is stopped stays so";
    }
    lstMUSIC.clear();
    engine->AudioPlay();
    device.taken();
    engine->stepRow(1);
    EXPECT_EQ(device.taken(), QStringList()) << "in an empty list there is none";
}

TEST_F(AudioEngineTest, AStepLeavesAPauseAtTheNewTracksStart) {
    fill({a, b}, 0);
    engine->AudioPlay();
    engine->AudioPause();
    device.taken();
    engine->stepRow(1);
    EXPECT_EQ(device.taken(),
              QStringList({closeCommand, openCommand(b), playCommand, pauseCommand}));
    EXPECT_EQ(engine->state(), AudioEngine::State::Paused);
    EXPECT_FALSE(lstMUSIC.Enabled());
}

TEST_F(AudioEngineTest, TellsItsStateAndWhenItChanges) {
    int changes = 0;
    QObject::connect(engine.get(), &AudioEngine::Changed, &page, [&changes] { ++changes; });
    const auto changed = [&changes] { return std::exchange(changes, 0) > 0; };
    fill({a, b}, 0);
    EXPECT_EQ(engine->state(), AudioEngine::State::Stopped);
    engine->AudioPlay();
    EXPECT_TRUE(changed());
    EXPECT_EQ(engine->state(), AudioEngine::State::Playing);
    engine->AudioPause();
    EXPECT_TRUE(changed());
    EXPECT_EQ(engine->state(), AudioEngine::State::Paused);
    poll(QStringLiteral("61500"), QStringLiteral("1250"));
    EXPECT_TRUE(changed());
    EXPECT_EQ(engine->length(), 61500);
    EXPECT_EQ(engine->position(), 1250);
    engine->AudioStop();
    EXPECT_TRUE(changed());
    EXPECT_EQ(engine->state(), AudioEngine::State::Stopped);
}

}  // namespace
}  // namespace velorama

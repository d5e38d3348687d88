#include "ui/window_world.h"

namespace velorama {
namespace {

/// A show over the window whose music it plays.
class ShowOverWindow : public test::WithWindow {
protected:
    ShowOverWindow() {
        start(album(2));
        music().lstMUSIC->addItem(QStringLiteral("/music/first.mp3"));
        music().lstMUSIC->addItem(QStringLiteral("/music/Second Song.wav"));
        music().lstMUSIC->setListIndex(1);
        music().lblM1->setCaption(QStringLiteral("200"));
        music().lblM2->setCaption(QStringLiteral("50"));
    }
    ~ShowOverWindow() override {
        if (show) {
            show->Unload();
        }
    }
    ControlBar& begin() {
        device.commands.clear();
        commands().start.trigger();
        show = window->slideShow();
        return show->picCONTROLBAR;
    }

    QPointer<frmSLIDESHOW> show;
};

TEST_F(ShowOverWindow, ItsBarTellsTheTrackOfThePageMusicAndHowFarItIs) {
    ControlBar& bar = begin();
    EXPECT_EQ(bar.lblPLAYING.Caption(), QStringLiteral("Second Song.wav"));
    EXPECT_EQ(bar.prgPLAY.Max(), 200);
    EXPECT_EQ(bar.prgPLAY.Value(), 50);
    EXPECT_FALSE(bar.prgPLAY.isHidden());

    music().lstMUSIC->setListIndex(0);
    music().lblM1->setCaption(QStringLiteral("90"));
    music().lblM2->setCaption(QStringLiteral("1"));
    show->tmrMUSIC_Timer();
    EXPECT_EQ(bar.lblPLAYING.Caption(), QStringLiteral("first.mp3"));
    EXPECT_EQ(bar.prgPLAY.Max(), 90);
    EXPECT_EQ(bar.prgPLAY.Value(), 1);
}

TEST_F(ShowOverWindow, WithoutMusicItsBarTellsNothing) {
    music().lstMUSIC->clear();
    ControlBar& bar = begin();
    EXPECT_EQ(bar.lblPLAYING.Caption(), QString());
    EXPECT_TRUE(bar.prgPLAY.isHidden());
}

TEST_F(ShowOverWindow, ItPlaysPausesAndGoesOnOnTheWindowsDevice) {
    const QString opened =
        QStringLiteral("open \"/music/Second Song.wav\" type MPEGVideo alias CURRFILE");
    const QString played = QStringLiteral("play CURRFILE ");
    begin();
    EXPECT_EQ(device.commands, QStringList({opened, played}));
    device.commands.clear();
    show->Form_MouseUp();
    EXPECT_EQ(device.commands, QStringList(QStringLiteral("pause CURRFILE")));
    EXPECT_FALSE(music().lstMUSIC->Enabled());
    device.commands.clear();
    show->Form_MouseUp();
    EXPECT_EQ(device.commands, QStringList({opened, played}));
    EXPECT_TRUE(music().lstMUSIC->Enabled());
}

TEST_F(ShowOverWindow, LeftWhilePausedItLeavesThePauseToTheWindow) {
    begin();
    show->Form_MouseUp();
    device.commands.clear();
    show->Form_KeyDown(KeyEscape, 0);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(device.commands, QStringList());
    EXPECT_FALSE(music().lstMUSIC->Enabled());
    music().cbtnAUDIO[3]->click();
    EXPECT_EQ(device.commands, QStringList(QStringLiteral("Resume CURRFILE")));
    EXPECT_TRUE(music().lstMUSIC->Enabled());
}

// Its first key ends a show, and what is still held then is not for the window behind it.
TEST_F(ShowOverWindow, TheKeysThatEndItAreNotForTheWindow) {
    slideControls().lvwSLIDEBAR->setSelectedItem(1);
    commands().remove.trigger();
    ASSERT_EQ(slides().size(), 1);
    begin();
    show->Form_KeyDown(KeyControl, 0);
    QApplication::setActiveWindow(window.get());
    const auto comes = [this](Qt::Key key, Qt::KeyboardModifiers held, bool isPress) {
        QTest::simulateEvent(window.get(), isPress, key, held, {}, false);
    };
    comes(Qt::Key_Z, Qt::ControlModifier, true);
    comes(Qt::Key_Z, Qt::ControlModifier, false);
    EXPECT_EQ(slides().size(), 1);
    comes(Qt::Key_Control, Qt::ControlModifier, false);
    comes(Qt::Key_Control, Qt::NoModifier, true);
    comes(Qt::Key_Z, Qt::ControlModifier, true);
    EXPECT_EQ(slides().size(), 2);
    comes(Qt::Key_Control, Qt::ControlModifier, false);
}

TEST_F(ShowOverWindow, AKeyThatEndsItAndRepeatsIsNotForTheWindow) {
    begin();
    show->Form_KeyDown(KeyDelete, 0);
    QApplication::setActiveWindow(window.get());
    ListView& slideBar = *slideControls().lvwSLIDEBAR;
    slideBar.setFocus();
    slideBar.setSelectedItem(1);
    const auto comes = [&](bool isRepeat) {
        QTest::simulateEvent(&slideBar, true, Qt::Key_Delete, Qt::ControlModifier, {}, isRepeat);
    };
    QTest::keyPress(&slideBar, Qt::Key_Control);
    comes(true);
    comes(true);
    EXPECT_EQ(slides().size(), 2);
    comes(false);
    EXPECT_EQ(slides().size(), 1);
    QTest::keyRelease(&slideBar, Qt::Key_Control);
}

}  // namespace
}  // namespace velorama

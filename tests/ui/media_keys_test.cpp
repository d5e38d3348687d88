#include "ui/window_world.h"

namespace velorama {
namespace {

using Playback = MediaState::Playback;

/// A panel that asks the window directly.
class Panel : public MediaRemote {
public:
    void attach(MediaTarget& wanted) override { target = &wanted; }
    void detach() override { target = nullptr; }
    void refresh() override { ++refreshes; }
    MediaTarget* target = nullptr;
    int refreshes = 0;
};

QString opened(const QString& path) {
    return u"open \"" + path + u"\" type MPEGVideo alias CURRFILE";
}
const QString first = QStringLiteral("/music/first.mp3");
const QString second = QStringLiteral("/music/Second Song.wav");
const QString played = QStringLiteral("play CURRFILE ");
const QString paused = QStringLiteral("pause CURRFILE");
const QString resumed = QStringLiteral("Resume CURRFILE");
const QString closed = QStringLiteral("close CURRFILE");

/// Without the queries, which change nothing.
QStringList orders(QStringList& commands) {
    QStringList kept;
    for (const QString& command : std::exchange(commands, {})) {
        if (!command.startsWith(QStringLiteral("status"))) {
            kept.append(command);
        }
    }
    return kept;
}

class MediaKeysOnWindow : public test::WithWindow {
protected:
    void open(const QString& commandLine = {}) {
        MainServices with = services();
        with.mediaRemote = panel;
        window = std::make_unique<mfrmPRGMAIN>(std::move(with));
        window->Form_Load(commandLine);
        ASSERT_NE(panel->target, nullptr);
    }
    void fill() {
        music().lstMUSIC->addItem(first);
        music().lstMUSIC->addItem(second);
        music().lstMUSIC->setListIndex(0);
        music().cbtnAUDIO[2]->setEnabled(true);
    }
    QStringList ask(MediaRequest request) {
        device.commands.clear();
        panel->target->obey(request);
        return orders(device.commands);
    }
    Playback playback() { return panel->target->state().playback; }
    frmSLIDESHOW& beginShow() {
        commands().start.trigger();
        return *window->slideShow();
    }
    static bool isOf(const frmSLIDESHOW& show, const char* counter) {
        return show.picCONTROLBAR.lblNOCOUNT.Caption() == QLatin1String(counter);
    }

    std::shared_ptr<Panel> panel = std::make_shared<Panel>();
};

TEST_F(MediaKeysOnWindow, PlayPauseAndStopAreTheButtons) {
    open();
    fill();
    EXPECT_EQ(playback(), Playback::Stopped);
    EXPECT_EQ(ask(MediaRequest::Pause), QStringList());
    EXPECT_EQ(ask(MediaRequest::Stop), QStringList()) << "the button is off";
    EXPECT_EQ(ask(MediaRequest::Play), QStringList({closed, opened(first), played}));
    EXPECT_EQ(playback(), Playback::Playing);
    EXPECT_EQ(ask(MediaRequest::Play), QStringList());
    EXPECT_EQ(ask(MediaRequest::Pause), QStringList(paused));
    EXPECT_EQ(playback(), Playback::Paused);
    EXPECT_EQ(ask(MediaRequest::Pause), QStringList());
    EXPECT_EQ(ask(MediaRequest::Play), QStringList(resumed));
    EXPECT_EQ(ask(MediaRequest::PlayPause), QStringList(paused));
    EXPECT_EQ(ask(MediaRequest::PlayPause), QStringList(resumed));
    EXPECT_EQ(ask(MediaRequest::Stop), QStringList(closed));
    EXPECT_EQ(playback(), Playback::Stopped);
    EXPECT_EQ(ask(MediaRequest::PlayPause), QStringList({closed, opened(first), played}));
}

TEST_F(MediaKeysOnWindow, NextAndPreviousChangeTheRow) {
    open();
    fill();
    music().lstMUSIC->addItem(QStringLiteral("/music/third.mid"));
    ask(MediaRequest::Play);
    EXPECT_EQ(ask(MediaRequest::Next), QStringList({closed, opened(second), played}));
    EXPECT_EQ(music().lstMUSIC->ListIndex(), 1);
    EXPECT_EQ(ask(MediaRequest::Previous), QStringList({closed, opened(first), played}));
    EXPECT_EQ(music().lstMUSIC->ListIndex(), 0);
}

TEST_F(MediaKeysOnWindow, AnEmptyListPlaysNothing) {
    open();
    const MediaState state = panel->target->state();
    EXPECT_FALSE(state.canPlay);
    EXPECT_FALSE(state.canStep);
    EXPECT_EQ(state.track, -1);
    EXPECT_EQ(ask(MediaRequest::Play), QStringList()) << "the button is off";
    EXPECT_EQ(ask(MediaRequest::Next), QStringList());
}

TEST_F(MediaKeysOnWindow, TheTrackIsTheSelectedRowAndItsFile) {
    open();
    const QString folder = test::temporaryFolder();
    QFile file(folder + QStringLiteral("/Song.WAV"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    // As a drop leaves it.
    music().lstMUSIC->addItem(folder + QStringLiteral("/song.wav"));
    music().lstMUSIC->setListIndex(0);
    const MediaState state = panel->target->state();
    EXPECT_EQ(state.track, 0);
    EXPECT_EQ(state.title, QStringLiteral("song.wav"));
    EXPECT_EQ(state.path, QString()) << "no disk is waited for";
    EXPECT_TRUE(state.canPlay);
    EXPECT_TRUE(state.canStep);
    panel->refreshes = 0;
    EXPECT_TRUE(QTest::qWaitFor([this] { return panel->refreshes > 0; }, 20000));
    EXPECT_EQ(panel->target->state().path, file.fileName());
}

TEST_F(MediaKeysOnWindow, ARowThatIsLeftTellsNoFile) {
    open();
    fill();
    EXPECT_EQ(panel->target->state().path, QString());
    music().lstMUSIC->setListIndex(1);
    EXPECT_EQ(panel->target->state().path, QString());
    EXPECT_TRUE(QTest::qWaitFor([this] { return panel->target->state().path == second; }, 20000));
    music().lstMUSIC->setListIndex(0);
    EXPECT_EQ(panel->target->state().path, QString());
    EXPECT_TRUE(QTest::qWaitFor([this] { return panel->target->state().path == first; }, 20000));
}

TEST_F(MediaKeysOnWindow, WhateverChangesIsToldToLookAgain) {
    open();
    const auto refreshed = [this] { return std::exchange(panel->refreshes, 0) > 0; };
    refreshed();
    music().lstMUSIC->addItem(first);
    EXPECT_TRUE(refreshed()) << "a row more";
    music().lstMUSIC->setListIndex(0);
    EXPECT_TRUE(refreshed()) << "another row";
    music().lstMUSIC->setList(0, second);
    EXPECT_TRUE(refreshed()) << "another text";
    music().cbtnAUDIO[2]->setEnabled(true);
    ask(MediaRequest::Play);
    EXPECT_TRUE(refreshed()) << "play";
    music().lstMUSIC->RemoveItem(0);
    EXPECT_TRUE(refreshed()) << "a row less";
    music().lstMUSIC->clear();
    EXPECT_TRUE(refreshed()) << "no rows";
}

TEST_F(MediaKeysOnWindow, InAShowTheyStepTheSlides) {
    open(album(3));
    fill();
    frmSLIDESHOW& show = beginShow();
    ASSERT_TRUE(isOf(show, "1 of 3"));
    EXPECT_EQ(ask(MediaRequest::Next), QStringList());
    EXPECT_TRUE(isOf(show, "2 of 3"));
    EXPECT_EQ(ask(MediaRequest::Previous), QStringList());
    EXPECT_TRUE(isOf(show, "1 of 3"));
    EXPECT_EQ(music().lstMUSIC->ListIndex(), 0);
    show.Unload();
}

TEST_F(MediaKeysOnWindow, InAShowTheyPauseIt) {
    open(album(2));
    fill();
    frmSLIDESHOW& show = beginShow();
    EXPECT_EQ(playback(), Playback::Playing);
    EXPECT_EQ(ask(MediaRequest::Play), QStringList());
    EXPECT_EQ(ask(MediaRequest::Pause), QStringList(paused));
    EXPECT_TRUE(show.Paused);
    EXPECT_EQ(playback(), Playback::Paused);
    EXPECT_EQ(ask(MediaRequest::Pause), QStringList());
    EXPECT_EQ(ask(MediaRequest::PlayPause), QStringList({opened(first), played}));
    EXPECT_FALSE(show.Paused);
    ask(MediaRequest::PlayPause);
    EXPECT_EQ(ask(MediaRequest::Play), QStringList({opened(first), played}));
    EXPECT_FALSE(show.Paused);
    show.Unload();
}

TEST_F(MediaKeysOnWindow, StopEndsTheShowAndItsMusic) {
    open(album(2));
    fill();
    const frmSLIDESHOW& show = beginShow();
    panel->refreshes = 0;
    EXPECT_EQ(ask(MediaRequest::Stop), QStringList(closed));
    EXPECT_TRUE(show.isUnloaded());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(playback(), Playback::Stopped);
    EXPECT_GT(panel->refreshes, 0);
}

TEST_F(MediaKeysOnWindow, AShowWithoutMusicCanBePaused) {
    open(album(2));
    panel->refreshes = 0;
    frmSLIDESHOW& show = beginShow();
    EXPECT_GT(panel->refreshes, 0);
    EXPECT_TRUE(panel->target->state().canPlay);
    EXPECT_TRUE(panel->target->state().canStep);
    ask(MediaRequest::Pause);
    EXPECT_TRUE(show.Paused);
    show.Unload();
    EXPECT_FALSE(panel->target->state().canPlay);
}

TEST_F(MediaKeysOnWindow, AHeadsetThatIsPulledPauses) {
    open(album(2));
    fill();
    device.commands.clear();
    device.pulled();
    EXPECT_EQ(orders(device.commands), QStringList()) << "nothing plays";
    ask(MediaRequest::Play);
    device.pulled();
    EXPECT_EQ(orders(device.commands), QStringList(paused));
    device.pulled();
    EXPECT_EQ(orders(device.commands), QStringList()) << "a pause is not ended by it";
    frmSLIDESHOW& show = beginShow();
    device.pulled();
    EXPECT_TRUE(show.Paused);
    device.pulled();
    EXPECT_TRUE(show.Paused);
    show.Unload();
    window->close();
    EXPECT_FALSE(device.pulled) << "nobody is told any more";
}

TEST_F(MediaKeysOnWindow, APauseIsEndedByNoOtherWhileTheShowLoadsEither) {
    open(album(2));
    fill();
    QTimer inside;
    QObject::connect(&inside, &QTimer::timeout, &inside, [&] {
        if (window->slideShow() != nullptr) {
            inside.stop();
            EXPECT_EQ(ask(MediaRequest::Pause), QStringList()) << "it waits for the load";
            device.pulled();
        }
    });
    inside.start(0);
    frmSLIDESHOW& show = beginShow();
    ASSERT_FALSE(inside.isActive());
    EXPECT_TRUE(show.Paused);
    EXPECT_EQ(ask(MediaRequest::Play), QStringList({opened(first), played}));
    show.Unload();
}

TEST_F(MediaKeysOnWindow, QuitClosesTheWindowAlsoInAShow) {
    open(album(2));
    beginShow();
    panel->target->obey(MediaRequest::Quit);
    EXPECT_TRUE(window->isUnloaded());
    EXPECT_EQ(panel->target, nullptr) << "nobody is asked any more";
}

TEST_F(MediaKeysOnWindow, QuitAsksAboutUnsavedChanges) {
    open(album(2));
    commands().remove.trigger();
    ASSERT_TRUE(commands().save.isEnabled());
    test::Presser cancel(QStringLiteral("btnCANCEL"));
    panel->target->obey(MediaRequest::Quit);
    EXPECT_EQ(cancel.forms, QStringList(QStringLiteral("frmHELPMESSAGEBOX")));
    EXPECT_FALSE(window->isUnloaded());
    EXPECT_NE(panel->target, nullptr);
}

}  // namespace
}  // namespace velorama

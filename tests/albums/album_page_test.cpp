#include "albums/album_world.h"

#include <QtTest/QTest>

namespace velorama {
namespace {

const QString details = QStringLiteral("mfrmPRGMAIN\\Details");

class AlbumPage : public test::WithAlbums {
protected:
    void add(const QStringList& paths) {
        for (const QString& path : paths) {
            albums->AlbumListAdd(path);
        }
    }
    /// A changed list of one slide in the open album `path`.
    void work(const QString& path) {
        fill({p[0]});
        file->setTag(path);
        modify();
    }
    /// As a slide added by hand does.
    void change() {
        fill({p[0]});
        modify();
    }
    /// Once the first question has been answered.
    static void whenAsked(const test::MessageWatch& watch, const std::function<void()>& action) {
        test::atNextYield([&watch, action] {
            const bool isAnswered =
                !watch.messages.empty() && QApplication::activeModalWidget() == nullptr;
            isAnswered ? action() : whenAsked(watch, action);
        });
    }
    static QString folderOf(const QString& path) { return path.left(path.lastIndexOf(u'/') + 1); }
    bool isOpen(const QString& path) const {
        return file->Tag() == path && form.windowTitle() == path + QStringLiteral(" - Velorama") &&
               storedSlideshow() == path;
    }

    QStringList p = pictures({QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    const QString one = album(formA(p), QStringLiteral("one.vlr"));
    const QString two = album(formA({p[1]}), QStringLiteral("two.vlr"));
    const QString gone = QStringLiteral("/none/gone.vlr");
};

TEST_F(AlbumPage, addAsksForAnAlbum) {
    saveSetting(details, QStringLiteral("CMD Open Folder"), folderOf(one).chopped(1));
    chosen = two;
    albumControls.btnADD->click();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_FALSE(asked[0].save);
    EXPECT_EQ(asked[0].title, QStringLiteral("Insert a Slideshow album"));
    EXPECT_EQ(asked[0].kinds,
              fileKinds(QStringLiteral("Velorama Album File (*.vlr)|*.vlr|All Files|*.*")));
    EXPECT_EQ(asked[0].folder, folderOf(one).chopped(1));
    EXPECT_FALSE(asked[0].several);
    EXPECT_EQ(cdlDIALOG.Flags, 2621444);
    EXPECT_TRUE(hookedInDialog);
    EXPECT_FALSE(gDlgHook->isHooked());
}

TEST_F(AlbumPage, addJoinsTheListAndOpensNothing) {
    setProjectList(QStringLiteral("0"));
    chosen = two;
    albumControls.btnADD->click();
    albumControls.btnADD->click();
    EXPECT_EQ(albumKeys(), QStringList(two));
    EXPECT_EQ(selectedAlbum(), two);
    EXPECT_EQ(cdlDIALOG.InitDir, folderOf(two));
    EXPECT_EQ(storedFolder(), folderOf(two));
    EXPECT_EQ(file->Tag(), QString());
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(storedTotal(), std::nullopt);
    EXPECT_EQ(storedSlideshow(), std::nullopt);
}

TEST_F(AlbumPage, aFirstCancelOfAddGoesOnWithNoName) {
    saveSetting(details, QStringLiteral("CMD Open Folder"), folderOf(one));
    albumControls.btnADD->click();
    EXPECT_EQ(lvwALBUMS->Count(), 0);
    EXPECT_FALSE(cdlDIALOG.CancelError);
    EXPECT_EQ(cdlDIALOG.InitDir, QString());
    EXPECT_EQ(storedFolder(), QString());
    EXPECT_FALSE(gDlgHook->isHooked());
}

TEST_F(AlbumPage, aFirstCancelOfAddTakesNoFileOfAnotherCommand) {
    cdlDIALOG.FileName = QStringLiteral("/music/one.mp3");
    albumControls.btnADD->click();
    EXPECT_EQ(lvwALBUMS->Count(), 0);
    EXPECT_EQ(cdlDIALOG.FileName, QString());
}

TEST_F(AlbumPage, aCancelOfAddEndsItOnceOpenOrSaveAsRan) {
    for (const bool saving : {false, true}) {
        cdlDIALOG.CancelError = false;
        saveSetting(details, QStringLiteral("CMD Open Folder"), folderOf(one));
        saving ? file->mnuFILESAVEAS_Click() : file->mnuFILEOPEN_Click();
        albumControls.btnADD->click();
        EXPECT_EQ(lvwALBUMS->Count(), 0);
        EXPECT_EQ(storedFolder(), folderOf(one));
        EXPECT_EQ(cdlDIALOG.InitDir, folderOf(one));
        EXPECT_FALSE(gDlgHook->isHooked());
    }
}

TEST_F(AlbumPage, removeTakesTheSelectedAlbumFromTheListAlone) {
    add({one, two});
    albums->SlideshowListSave(*lvwALBUMS, QStringLiteral("mfrmPRGMAIN"));
    file->openFromList(one);
    albums->AlbumListSelect(one);
    albumControls.btnREMOVE->click();
    EXPECT_EQ(albumKeys(), QStringList(two));
    EXPECT_TRUE(QFile::exists(one));
    EXPECT_EQ(storedTotal(), QStringLiteral("2"));
    EXPECT_EQ(storedAlbum(1), one);
    EXPECT_TRUE(isOpen(one));
    EXPECT_EQ(keys(), p);
}

TEST_F(AlbumPage, removeOfNothingDoesNothing) {
    albumControls.btnREMOVE->click();
    EXPECT_EQ(lvwALBUMS->Count(), 0);
    add({one});
    albumControls.btnREMOVE->click();
    albumControls.btnREMOVE->click();
    EXPECT_EQ(lvwALBUMS->Count(), 0);
}

TEST_F(AlbumPage, threeWaysOpen) {
    const std::vector<std::pair<const char*, std::function<void()>>> ways = {
        {"view", [this] { albumControls.btnView->click(); }},
        {"double click", [this] { emit lvwALBUMS->DblClick(); }},
        {"key press", [this] { emit lvwALBUMS->KeyPress(13); }},
        {"return", [this] { QTest::keyClick(lvwALBUMS, Qt::Key_Return); }}};
    add({one, two});
    for (const auto& [name, open] : ways) {
        file->mnuFILENEW_Click();
        albums->AlbumListSelect(one);
        open();
        EXPECT_TRUE(isOpen(one)) << name;
        EXPECT_EQ(keys(), p) << name;
        EXPECT_EQ(selected(), std::vector<int>({1})) << name;
        EXPECT_TRUE(isUnmodified()) << name;
        EXPECT_TRUE(commands.start.isEnabled()) << name;
        EXPECT_EQ(albumKeys(), QStringList({one, two})) << name;
    }
    EXPECT_EQ(storedFolder(), std::nullopt);
    EXPECT_TRUE(asked.empty());
}

TEST_F(AlbumPage, otherKeysOpenNothing) {
    add({one});
    for (const int key : {27, 32, 65, 10}) {
        emit lvwALBUMS->KeyPress(key);
    }
    EXPECT_EQ(file->Tag(), QString());
}

TEST_F(AlbumPage, anUnchangedListIsNotAskedAbout) {
    add({one});
    fill({p[1]});
    const test::MessageWatch watch;
    albumControls.btnView->click();
    EXPECT_TRUE(watch.messages.empty());
    EXPECT_TRUE(isOpen(one));
}

TEST_F(AlbumPage, noOpensWithoutSaving) {
    add({one});
    work(two);
    const test::MessageWatch watch(QStringLiteral("btnNO"));
    albumControls.btnView->click();
    EXPECT_EQ(watch.messages, std::vector({test::saveQuestion(two)}));
    EXPECT_EQ(test::contentOf(two), formA({p[1]}));
    EXPECT_TRUE(isOpen(one));
    EXPECT_TRUE(isUnmodified());
}

TEST_F(AlbumPage, cancelStops) {
    add({one});
    work(two);
    const test::MessageWatch watch(QStringLiteral("btnCANCEL"));
    albumControls.btnView->click();
    EXPECT_EQ(watch.messages, std::vector({test::saveQuestion(two)}));
    EXPECT_EQ(file->Tag(), two);
    EXPECT_TRUE(isModified());
    EXPECT_EQ(keys(), QStringList(p[0]));
    EXPECT_EQ(test::contentOf(two), formA({p[1]}));
}

TEST_F(AlbumPage, yesSavesAndOpens) {
    add({one});
    work(two);
    SaveCancelled = true;
    const test::MessageWatch watch(QStringLiteral("btnYES"));
    albumControls.btnView->click();
    EXPECT_EQ(watch.messages.size(), 1U);
    EXPECT_EQ(test::contentOf(two), "1| \r\n" + formA({p[0]}).mid(3));
    EXPECT_FALSE(SaveCancelled);
    // The save read the list back and selected its last album; the one asked for is opened.
    EXPECT_EQ(albumKeys(), QStringList({one, two}));
    EXPECT_TRUE(isOpen(one));
}

TEST_F(AlbumPage, yesForANewListAsksForItsFile) {
    add({one});
    work(QString());
    chosen = test::temporaryFolder() + QStringLiteral("/new.vlr");
    const test::MessageWatch watch(QStringLiteral("btnYES"));
    albumControls.btnView->click();
    EXPECT_EQ(watch.messages, std::vector({test::saveQuestion(QString())}));
    EXPECT_EQ(test::contentOf(chosen), formA({p[0]}));
    EXPECT_TRUE(isOpen(one));
}

TEST_F(AlbumPage, yesWithACancelledSaveAsStops) {
    add({one});
    work(QString());
    const test::MessageWatch watch(QStringLiteral("btnYES"));
    albumControls.btnView->click();
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_TRUE(SaveCancelled);
    EXPECT_EQ(file->Tag(), QString());
    EXPECT_TRUE(isModified());
    EXPECT_EQ(keys(), QStringList(p[0]));
}

TEST_F(AlbumPage, anAlbumThatHasGoneIsReportedAndRemoved) {
    add({one, two, gone});
    file->openFromList(two);
    albums->AlbumListSelect(gone);
    const test::MessageWatch watch;
    albumControls.btnView->click();
    EXPECT_EQ(watch.messages, std::vector({test::cannotOpen(gone)}));
    EXPECT_EQ(albumKeys(), QStringList({one, two}));
    EXPECT_TRUE(isOpen(two));
    EXPECT_EQ(keys(), QStringList(p[1]));
}

TEST_F(AlbumPage, aChangedListIsAskedAboutBeforeThatReport) {
    add({gone});
    work(two);
    const test::MessageWatch watch(QStringLiteral("btnNO"));
    emit lvwALBUMS->DblClick();
    EXPECT_EQ(watch.messages, std::vector({test::saveQuestion(two), test::cannotOpen(gone)}));
    EXPECT_EQ(lvwALBUMS->Count(), 0);
    EXPECT_EQ(file->Tag(), two);
    EXPECT_TRUE(isModified());
}

TEST_F(AlbumPage, slidesChangedWhileTheAlbumIsLookedForAreAskedAbout) {
    add({one});
    fill({p[1]});
    file->setTag(two);
    const test::MessageWatch watch(QStringLiteral("btnCANCEL"));
    test::atNextYield([&] { change(); });
    albumControls.btnView->click();
    EXPECT_EQ(watch.messages, std::vector({test::saveQuestion(two)}));
    EXPECT_EQ(file->Tag(), two);
    EXPECT_EQ(keys(), QStringList({p[1], p[0]}));
    EXPECT_TRUE(isModified());
}

TEST_F(AlbumPage, slidesChangedAfterTheQuestionAreAskedAboutOnceMore) {
    add({one});
    work(two);
    lvwSLIDEBAR->Clear();
    const test::MessageWatch watch(QStringLiteral("btnNO"));
    whenAsked(watch, [&] { change(); });
    albumControls.btnView->click();
    EXPECT_EQ(watch.messages, std::vector({test::saveQuestion(two), test::saveQuestion(two)}));
    EXPECT_TRUE(isOpen(one));
}

TEST_F(AlbumPage, slidesChangedInTheMidstOfTheSaveAreAskedAboutOnceMore) {
    add({one});
    work(two);
    lvwSLIDEBAR->Clear();
    std::vector<bool> wasUnmodified;
    test::MessageWatch watch(QStringLiteral("btnYES"));
    whenAsked(watch, [&] {
        wasUnmodified.push_back(isUnmodified());
        change();
    });
    albumControls.btnView->click();
    EXPECT_EQ(wasUnmodified, std::vector({true}));
    EXPECT_EQ(watch.messages, std::vector({test::saveQuestion(two), test::saveQuestion(two)}));
    EXPECT_EQ(test::contentOf(two), "1| \r\n" + formA({p[0]}).mid(3));
    EXPECT_TRUE(isOpen(one));
}

TEST_F(AlbumPage, anAlbumThatHasGoneIsRemovedWhicheverIsSelectedByThen) {
    add({one, gone, two});
    albums->AlbumListSelect(gone);
    const test::MessageWatch watch;
    test::atNextYield([&] { albums->AlbumListSelect(one); });
    albumControls.btnView->click();
    EXPECT_EQ(watch.messages, std::vector({test::cannotOpen(gone)}));
    EXPECT_EQ(albumKeys(), QStringList({one, two}));
    EXPECT_EQ(selectedAlbum(), one);
}

TEST_F(AlbumPage, viewOfAnEmptyListReportsNoName) {
    const test::MessageWatch watch;
    albumControls.btnView->click();
    EXPECT_EQ(watch.messages, std::vector({test::cannotOpen(QString())}));
    EXPECT_EQ(file->Tag(), QString());
}

TEST_F(AlbumPage, anEmptyAlbumOpensToAnEmptyList) {
    const QString empty = album(formA({}));
    add({empty});
    fill(p);
    albumControls.btnView->click();
    EXPECT_TRUE(isOpen(empty));
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_FALSE(commands.start.isEnabled());
}

}  // namespace
}  // namespace velorama

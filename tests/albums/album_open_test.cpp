#include "albums/album_world.h"

namespace velorama {
namespace {

const QString filter = QStringLiteral("Velorama Album Files (*.vlr)|*.vlr|All Files|*.*");

class AlbumOpen : public test::WithAlbums {
protected:
    void open(const QString& target) {
        chosen = target;
        file->mnuFILEOPEN_Click();
    }
    QString captionOf(const QString& target) const {
        return target + QStringLiteral(" - Velorama");
    }
    static QString folderOf(const QString& target) {
        return target.left(target.lastIndexOf(u'/') + 1);
    }

    QStringList p =
        pictures({QStringLiteral("a.jpg"), QStringLiteral("b.jpg"), QStringLiteral("c.jpg")});
    QString path = album(formA(p));
};

TEST_F(AlbumOpen, asksForTheFile) {
    const QString folder = test::temporaryFolder();
    saveSetting(QStringLiteral("mfrmPRGMAIN\\Details"), QStringLiteral("CMD Open Folder"), folder);
    cdlDIALOG.FileName = QStringLiteral("/old/name.vlr");
    open(path);
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_FALSE(asked[0].save);
    EXPECT_EQ(asked[0].title, QStringLiteral("Open"));
    EXPECT_EQ(asked[0].kinds, fileKinds(filter));
    EXPECT_EQ(asked[0].folder, folder);
    EXPECT_EQ(asked[0].fileName, QString());
    EXPECT_FALSE(asked[0].several);
    EXPECT_EQ(cdlDIALOG.Filter, filter);
    EXPECT_EQ(cdlDIALOG.Flags, 524294);
    EXPECT_TRUE(cdlDIALOG.CancelError);
    EXPECT_TRUE(hookedInDialog);
    EXPECT_FALSE(gDlgHook->isHooked());
}

TEST_F(AlbumOpen, startsInTheApplicationsFolderAtFirst) {
    open(QString());
    EXPECT_EQ(cdlDIALOG.InitDir, applicationFolder());
}

TEST_F(AlbumOpen, leavesTheAlbumOpen) {
    open(path);
    EXPECT_EQ(keys(), p);
    EXPECT_EQ(file->Tag(), path);
    EXPECT_EQ(form.windowTitle(), captionOf(path));
    EXPECT_EQ(storedFolder(), folderOf(path));
    EXPECT_EQ(storedSlideshow(), path);
    EXPECT_EQ(albumKeys(), QStringList(path));
    EXPECT_EQ(selectedAlbum(), path);
    EXPECT_EQ(selected(), std::vector<int>({1}));
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    EXPECT_TRUE(isUnmodified());
    EXPECT_TRUE(commands.start.isEnabled());
    EXPECT_FALSE(commands.moveBack.isEnabled());
    EXPECT_TRUE(commands.moveForward.isEnabled());
}

TEST_F(AlbumOpen, cancelChangesNothing) {
    fill({p[0]});
    modify();
    file->setTag(QStringLiteral("/p/old.vlr"));
    open(QString());
    EXPECT_EQ(keys(), QStringList(p[0]));
    EXPECT_TRUE(isModified());
    EXPECT_EQ(file->Tag(), QStringLiteral("/p/old.vlr"));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("untouched"));
    EXPECT_EQ(storedSlideshow(), std::nullopt);
    EXPECT_EQ(storedFolder(), std::nullopt);
    EXPECT_FALSE(SaveCancelled);
    EXPECT_FALSE(gDlgHook->isHooked());
}

TEST_F(AlbumOpen, neverAsksAboutChanges) {
    fill({p[0]});
    modify();
    const test::MessageWatch watch(QStringLiteral("btnCANCEL"));
    open(path);
    EXPECT_TRUE(watch.messages.empty());
    EXPECT_EQ(keys(), p);
    EXPECT_TRUE(isUnmodified());
}

TEST_F(AlbumOpen, newNeverAsksEither) {
    fill(p);
    modify();
    file->setTag(path);
    const test::MessageWatch watch(QStringLiteral("btnCANCEL"));
    file->mnuFILENEW_Click();
    QCoreApplication::processEvents();
    EXPECT_TRUE(watch.messages.empty());
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
}

TEST_F(AlbumOpen, newEmptiesEverything) {
    open(path);
    modify();
    list->SELECTIONSAVE();
    ActiveList = QStringLiteral("FOUND");
    file->mnuFILENEW_Click();
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(file->Tag(), QString());
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Velorama"));
    EXPECT_EQ(storedSlideshow(), QString());
    EXPECT_EQ(storedCount(), QStringLiteral("0"));
    EXPECT_EQ(storedSlides(3), QStringList({"", "", ""}));
    EXPECT_TRUE(isUnmodified());
    EXPECT_TRUE(commands.saveAs.isEnabled());
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    EXPECT_FALSE(commands.start.isEnabled());
    EXPECT_FALSE(commands.remove.isEnabled());
    EXPECT_FALSE(lvwSLIDEBAR->isHidden());
    // The album list and the images stay.
    EXPECT_EQ(albumKeys(), QStringList(path));
    EXPECT_EQ(imlTHUMBNAILS.Count(), 3);
}

TEST_F(AlbumOpen, newComesBeforeTheRead) {
    file->setTag(QStringLiteral("/p/old.vlr"));
    QString title;
    QString tag = QStringLiteral("none");
    std::optional<QString> slideshow;
    QStringList known;
    test::atNextYield([&] {
        title = form.windowTitle();
        tag = file->Tag();
        slideshow = storedSlideshow();
        known = albumKeys();
    });
    open(path);
    EXPECT_EQ(title, QStringLiteral("Velorama"));
    EXPECT_EQ(tag, QString());
    EXPECT_EQ(slideshow, QString());
    EXPECT_EQ(known, QStringList(path));
    EXPECT_EQ(form.windowTitle(), captionOf(path));
}

TEST_F(AlbumOpen, joinsTheAlbumListUnlessSwitchedOff) {
    setProjectList(QStringLiteral("0"));
    open(path);
    EXPECT_TRUE(albumKeys().isEmpty());
    setProjectList(QStringLiteral("1"));
    open(path);
    open(path);
    EXPECT_EQ(albumKeys(), QStringList(path));
    // Nothing but a save writes the list.
    EXPECT_EQ(storedTotal(), std::nullopt);
}

TEST_F(AlbumOpen, selectsAKnownAlbum) {
    const QString other = album(formA({}));
    albums->AlbumListAdd(path);
    albums->AlbumListAdd(other);
    ASSERT_EQ(selectedAlbum(), other);
    setProjectList(QStringLiteral("0"));
    open(path);
    EXPECT_EQ(selectedAlbum(), path);
    EXPECT_EQ(albumKeys(), QStringList({path, other}));
}

TEST_F(AlbumOpen, anAlbumThatHasGoneLeavesAnEmptyList) {
    fill(p);
    const QString gone = QStringLiteral("/none/gone.vlr");
    const test::MessageWatch watch;
    open(gone);
    QCoreApplication::processEvents();
    EXPECT_TRUE(watch.messages.empty());
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(file->Tag(), gone);
    EXPECT_EQ(form.windowTitle(), captionOf(gone));
    EXPECT_EQ(storedSlideshow(), gone);
    EXPECT_FALSE(prgBARSLIDES->isHidden());
    EXPECT_FALSE(commands.start.isEnabled());
}

TEST_F(AlbumOpen, fromTheListDoesNotAskNorRememberTheFolder) {
    modify();
    file->openFromList(path);
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(keys(), p);
    EXPECT_EQ(file->Tag(), path);
    EXPECT_EQ(form.windowTitle(), captionOf(path));
    EXPECT_EQ(storedSlideshow(), path);
    EXPECT_EQ(storedFolder(), std::nullopt);
    EXPECT_TRUE(albumKeys().isEmpty());
    EXPECT_EQ(selected(), std::vector<int>({1}));
    EXPECT_TRUE(isUnmodified());
    EXPECT_TRUE(commands.start.isEnabled());
}

TEST_F(AlbumOpen, atStartTheCaptionBeginsWithTheProduct) {
    file->openAtStart(path);
    EXPECT_EQ(keys(), p);
    EXPECT_EQ(file->Tag(), path);
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Velorama - ") + path);
    EXPECT_EQ(storedSlideshow(), std::nullopt);
    file->mnuFILESAVE_Click();
    EXPECT_EQ(form.windowTitle(), captionOf(path));
}

TEST_F(AlbumOpen, atStartWithoutAnAlbumNothingIsRead) {
    fill({p[0]});
    file->setTag(path);
    file->openAtStart(QString());
    EXPECT_EQ(file->Tag(), QString());
    EXPECT_EQ(keys(), QStringList(p[0]));
    EXPECT_TRUE(prgBARSLIDES->isHidden());
}

TEST_F(AlbumOpen, theModifiedFlagIsBothOrNothing) {
    modify();
    EXPECT_TRUE(file->isModified());
    file->setUnmodified();
    EXPECT_FALSE(file->isModified());
    EXPECT_TRUE(isUnmodified());
    EXPECT_TRUE(commands.saveAs.isEnabled());
}

TEST_F(AlbumOpen, changesOfTheListSetTheFlag) {
    const std::vector<std::pair<const char*, std::function<void()>>> changes = {
        {"Add", [this] { list->Add(); }},
        {"AddAll", [this] { list->AddAll(); }},
        {"Clear", [this] { list->Clear(); }},
        {"MoveForward", [this] { list->MoveForward(); }},
        {"MoveBack", [this] { list->MoveBack(); }},
        {"edit", [this] { list->lvwSLIDEBAR_AfterLabelEdit(QStringLiteral("x")); }},
        {"ClearAll", [this] { list->ClearAll(); }}};
    open(path);
    for (const auto& [name, change] : changes) {
        if (QLatin1String(name) == QLatin1String("MoveBack")) {
            lvwSLIDEBAR->setSelectedItem(2);
        }
        file->setUnmodified();
        change();
        EXPECT_TRUE(file->isModified()) << name;
    }
    open(path);
    EXPECT_FALSE(file->isModified());
}

}  // namespace
}  // namespace velorama

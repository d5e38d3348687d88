#include "albums/album_world.h"

namespace velorama {
namespace {

const QString a = QStringLiteral("C:\\Pictures\\a.jpg");
const QString b = QStringLiteral("C:\\Pictures\\b.gif");
const QString rome = QStringLiteral("D:\\Trips\\Rome, Italy.bmp");

const QString filter = QStringLiteral("Velorama Album Files (*.vlr)|*.vlr|All Files|*.*");

class AlbumSave : public test::WithAlbums {
protected:
    QString folder = test::temporaryFolder();
    QString path = folder + QStringLiteral("/trip.vlr");

    void saveAs(const QString& target) {
        chosen = target;
        file->mnuFILESAVEAS_Click();
    }
};

TEST_F(AlbumSave, saveAsWritesTheCountAlone) {
    fill({a, b, rome});
    saveAs(path);
    EXPECT_EQ(test::contentOf(path),
              QByteArray("3\r\nC:\\Pictures\\a.jpg\r\nC:\\Pictures\\b.gif\r\n"
                         "D:\\Trips\\Rome, Italy.bmp\r\n\r\n"));
}

TEST_F(AlbumSave, saveWritesABarAndABlankBehindTheCount) {
    fill({a, b, rome});
    saveAs(path);
    file->mnuFILESAVE_Click();
    EXPECT_EQ(test::contentOf(path),
              QByteArray("3| \r\nC:\\Pictures\\a.jpg\r\nC:\\Pictures\\b.gif\r\n"
                         "D:\\Trips\\Rome, Italy.bmp\r\n\r\n"));
}

TEST_F(AlbumSave, saveAsTurnsTheFirstLineBack) {
    fill({a});
    saveAs(path);
    file->mnuFILESAVE_Click();
    saveAs(path);
    EXPECT_EQ(test::contentOf(path), QByteArray("1\r\nC:\\Pictures\\a.jpg\r\n\r\n"));
}

TEST_F(AlbumSave, anEmptyListIsANoughtAndTwoLineEnds) {
    saveAs(path);
    EXPECT_EQ(test::contentOf(path), QByteArray("0\r\n\r\n"));
    file->mnuFILESAVE_Click();
    EXPECT_EQ(test::contentOf(path), QByteArray("0| \r\n\r\n"));
}

TEST_F(AlbumSave, keysAreWrittenAsTheyStand) {
    fill({QStringLiteral("/p/\"a\" .jpg"), QString::fromUtf8("/p/Z\u00fcrich.jpg"),
          QStringLiteral("/p/m.jpg, /p/b.jpg,/p/b.jpg")});
    saveAs(path);
    EXPECT_EQ(test::contentOf(path), QByteArray("3\r\n/p/\"a\" .jpg\r\n/p/Z\xc3\xbcrich.jpg\r\n"
                                                "/p/m.jpg, /p/b.jpg,/p/b.jpg\r\n\r\n"));
}

TEST_F(AlbumSave, captionsEditedByTheUserAreNotWritten) {
    fill({a});
    lvwSLIDEBAR->item(1)->setText(QStringLiteral("My caption"));
    saveAs(path);
    EXPECT_EQ(test::contentOf(path), QByteArray("1\r\nC:\\Pictures\\a.jpg\r\n\r\n"));
}

TEST_F(AlbumSave, saveAsAsksForTheFile) {
    cdlDIALOG.InitDir = folder;
    cdlDIALOG.FileName = QStringLiteral("/old/name.vlr");
    saveAs(path);
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_TRUE(asked[0].save);
    EXPECT_EQ(asked[0].title, QStringLiteral("Save"));
    EXPECT_EQ(asked[0].kinds, fileKinds(filter));
    EXPECT_EQ(asked[0].fileName, QString());
    EXPECT_TRUE(asked[0].overwritePrompt);
    EXPECT_FALSE(asked[0].several);
    EXPECT_EQ(cdlDIALOG.Filter, filter);
    EXPECT_EQ(cdlDIALOG.Flags, 524294);
    EXPECT_TRUE(cdlDIALOG.CancelError);
    EXPECT_EQ(cdlDIALOG.InitDir, folder);
    EXPECT_TRUE(hookedInDialog);
    EXPECT_FALSE(gDlgHook->isHooked());
}

TEST_F(AlbumSave, saveAsLeavesTheAlbumOpen) {
    modify();
    saveAs(path);
    EXPECT_EQ(file->Tag(), path);
    EXPECT_EQ(form.windowTitle(), path + QStringLiteral(" - Velorama"));
    EXPECT_EQ(storedSlideshow(), path);
    EXPECT_EQ(storedFolder(), std::nullopt);
    EXPECT_EQ(albumKeys(), QStringList(path));
    EXPECT_TRUE(isUnmodified());
    EXPECT_TRUE(commands.saveAs.isEnabled());
    EXPECT_FALSE(SaveCancelled);
}

TEST_F(AlbumSave, theNameStandsAsTyped) {
    const QString bare = folder + QStringLiteral("/trip");
    saveAs(bare);
    EXPECT_EQ(file->Tag(), bare);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList("trip"));
}

TEST_F(AlbumSave, anAlbumOfOtherCaseStays) {
    const QString other = test::saved(folder, QStringLiteral("Trip.vlr"), "old");
    fill({a});
    saveAs(path);
    EXPECT_EQ(test::contentOf(other), QByteArray("old"));
    EXPECT_EQ(test::contentOf(path), QByteArray("1\r\nC:\\Pictures\\a.jpg\r\n\r\n"));
    file->setTag(folder + QStringLiteral("/TRIP.vlr"));
    file->mnuFILESAVE_Click();
    EXPECT_EQ(test::contentOf(other), QByteArray("old"));
    EXPECT_EQ(test::contentOf(folder + QStringLiteral("/TRIP.vlr")),
              QByteArray("1| \r\nC:\\Pictures\\a.jpg\r\n\r\n"));
}

TEST_F(AlbumSave, aCancelledSaveAsChangesNothingButTheSign) {
    fill({a});
    modify();
    file->setTag(QStringLiteral("/p/old.vlr"));
    saveAs(QString());
    EXPECT_TRUE(SaveCancelled);
    EXPECT_EQ(file->Tag(), QStringLiteral("/p/old.vlr"));
    EXPECT_EQ(form.windowTitle(), QStringLiteral("untouched"));
    EXPECT_EQ(storedSlideshow(), std::nullopt);
    EXPECT_TRUE(albumKeys().isEmpty());
    EXPECT_TRUE(isModified());
    EXPECT_EQ(keys(), QStringList(a));
    EXPECT_FALSE(gDlgHook->isHooked());
}

TEST_F(AlbumSave, theSignIsUpWhileTheDialogIs) {
    bool inDialog = false;
    CommonDialog::answerWith([&](const FileDialogRequest&) {
        inDialog = SaveCancelled;
        return FileDialogAnswer{{path}, 1};
    });
    file->mnuFILESAVEAS_Click();
    EXPECT_TRUE(inDialog);
    EXPECT_FALSE(SaveCancelled);
}

TEST_F(AlbumSave, saveOfANewListIsSaveAs) {
    fill({a});
    modify();
    chosen = path;
    file->mnuFILESAVE_Click();
    EXPECT_EQ(test::contentOf(path), QByteArray("1\r\nC:\\Pictures\\a.jpg\r\n\r\n"));
    EXPECT_EQ(file->Tag(), path);
    EXPECT_TRUE(isUnmodified());
    EXPECT_FALSE(SaveCancelled);
    EXPECT_EQ(storedTotal(), QStringLiteral("1"));
    EXPECT_EQ(storedAlbum(1), path);
}

TEST_F(AlbumSave, saveOfANewListCanBeCancelled) {
    fill({a});
    modify();
    file->mnuFILESAVE_Click();
    EXPECT_EQ(asked.size(), 1U);
    EXPECT_TRUE(SaveCancelled);
    EXPECT_TRUE(isModified());
    EXPECT_EQ(file->Tag(), QString());
    // The album list is written all the same.
    EXPECT_EQ(storedTotal(), QStringLiteral("0"));
}

TEST_F(AlbumSave, saveAsksNothingWhereAnAlbumIsOpen) {
    fill({a});
    modify();
    file->setTag(path);
    file->mnuFILESAVE_Click();
    EXPECT_TRUE(asked.empty());
    EXPECT_EQ(form.windowTitle(), path + QStringLiteral(" - Velorama"));
    EXPECT_TRUE(isUnmodified());
    EXPECT_TRUE(commands.saveAs.isEnabled());
    EXPECT_EQ(storedSlideshow(), std::nullopt);
}

TEST_F(AlbumSave, saveAsJoinsTheAlbumListUnlessSwitchedOff) {
    for (const QString& off : {QStringLiteral("0"), QStringLiteral("2"), QStringLiteral("no")}) {
        setProjectList(off);
        saveAs(path);
        EXPECT_TRUE(albumKeys().isEmpty()) << off.toStdString();
    }
    setProjectList(QStringLiteral("1"));
    saveAs(path);
    EXPECT_EQ(albumKeys(), QStringList(path));
    EXPECT_EQ(selectedAlbum(), path);
}

TEST_F(AlbumSave, saveJoinsTheAlbumListWhateverIsSet) {
    setProjectList(QStringLiteral("0"));
    file->setTag(path);
    file->mnuFILESAVE_Click();
    EXPECT_EQ(albumKeys(), QStringList(path));
    EXPECT_EQ(storedTotal(), QStringLiteral("1"));
    EXPECT_EQ(storedAlbum(1), path);
}

TEST_F(AlbumSave, saveReadsTheAlbumListBack) {
    const QString other = album("0|Other note \r\n\r\n");
    albums->AlbumListAdd(other);
    EXPECT_EQ(lvwALBUMS->item(1)->SubItems(1), QString());
    file->setTag(path);
    file->mnuFILESAVE_Click();
    EXPECT_EQ(albumKeys(), QStringList({other, path}));
    EXPECT_EQ(lvwALBUMS->item(1)->SubItems(1).trimmed(), QStringLiteral("Other note"));
    EXPECT_EQ(selectedAlbum(), path);
}

TEST_F(AlbumSave, aFileThatCannotBeWrittenIsPassedOverInSilence) {
    fill({a});
    modify();
    const QString nowhere = folder + QStringLiteral("/none/trip.vlr");
    file->setTag(nowhere);
    const test::MessageWatch watch;
    file->mnuFILESAVE_Click();
    QCoreApplication::processEvents();
    EXPECT_TRUE(watch.messages.empty());
    EXPECT_TRUE(isUnmodified());
    EXPECT_FALSE(QFile::exists(nowhere));
    EXPECT_EQ(form.windowTitle(), nowhere + QStringLiteral(" - Velorama"));
}

TEST_F(AlbumSave, theOldAlbumStaysWhereTheNewOneCannotBeWritten) {
    fill({a});
    ASSERT_TRUE(QDir().mkpath(path + QStringLiteral("/inside")));
    file->setTag(path);
    file->mnuFILESAVE_Click();
    EXPECT_TRUE(QFileInfo(path + QStringLiteral("/inside")).isDir());
    EXPECT_TRUE(isUnmodified());
}

TEST_F(AlbumSave, windowsPathsOfTheAlbumStayInItsTitle) {
    file->setTag(QStringLiteral("C:\\Albums\\trip.vlr"));
    file->mnuFILESAVE_Click();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("C:\\Albums\\trip.vlr - Velorama"));
    EXPECT_EQ(albumKeys(), QStringList("C:\\Albums\\trip.vlr"));
}

}  // namespace
}  // namespace velorama

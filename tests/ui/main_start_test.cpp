#include "ui/window_world.h"

#include <algorithm>
#include <cmath>

namespace velorama {
namespace {

class StartTest : public test::WithWindow {
protected:
    static void setLast(const QString& path) { setStored("mfrmPRGMAIN\\View", "Slideshow", path); }
    static void setAlbums(const QStringList& paths) {
        setStored("mfrmPRGMAIN\\Items Total", "lvwALBUMSList Total", QString::number(paths.size()));
        for (qsizetype i = 0; i < paths.size(); ++i) {
            saveSetting(QStringLiteral("mfrmPRGMAIN\\Details"),
                        QStringLiteral("lvwALBUMS%1").arg(i + 1), paths.at(i));
        }
    }
    static void setProjectList(const QString& value) {
        setStored("frmTOOLSSETTINGS", "projectlist", value);
    }
    void forgetFolder() {
        store.removeValue(Hive::CurrentUser, keyPath(QStringLiteral("frmTOOLSSETTINGS\\Items")),
                          QStringLiteral("Files Location"));
        // Where tests before this one have set a wallpaper, it lies there.
        QDir(applicationFolder()).removeRecursively();
    }
    void expectOpen(const QString& path) {
        EXPECT_EQ(window->album().Tag(), path);
        EXPECT_EQ(window->windowTitle(), QStringLiteral("Velorama - ") + path);
    }
};

TEST_F(StartTest, TheFirstRunOpensAtDesignSizeOnTheSamples) {
    forgetFolder();
    start();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Velorama"));
    EXPECT_EQ(window->album().Tag(), QString());
    EXPECT_EQ(Width(surface()), 11040);
    EXPECT_EQ(Height(surface()), 7200);
    EXPECT_EQ(Left(*window), std::nearbyint((screenWidth(*window) - Width(*window)) / 2));
    EXPECT_EQ(Top(*window), std::nearbyint((screenHeight(*window) - Height(*window)) / 2));
    EXPECT_EQ(Left(*pages().pictures->picVBAR), 3585);
    EXPECT_EQ(pages().tabPAGES->ActiveTab(), 1);
    EXPECT_TRUE(pages().slideshows->isVisible());
    EXPECT_EQ(QFileInfo(foundControls().ftvFOLDER->Path()),
              QFileInfo(programDataFolder() + QStringLiteral("/samples")));
    EXPECT_EQ(foundControls().lvwFOUND->Count(), 12);
    EXPECT_FALSE(QDir(applicationFolder()).exists());
    EXPECT_FALSE(FormLoading);
    // The first sample is selected, and there is no slide to take over from it.
    EXPECT_EQ(ActiveList, QStringLiteral("FOUND"));
    EXPECT_TRUE(slideControls().lvwSLIDEBAR->isVisible());
    EXPECT_TRUE(slides().isEmpty());
    EXPECT_TRUE(albums().isEmpty());
}

TEST_F(StartTest, TheApplicationsFolderIsTheFirstWhereThereIsOne) {
    forgetFolder();
    ASSERT_TRUE(QDir().mkpath(applicationFolder()));
    start();
    EXPECT_EQ(foundControls().ftvFOLDER->Path(), applicationFolder());
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    QDir().rmdir(applicationFolder());
}

TEST_F(StartTest, TheSlideBarAppearsAfterTheWindow) {
    window = std::make_unique<mfrmPRGMAIN>(services());
    std::vector<bool> seen;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [this, &seen] {
        if (FormLoading && window->isVisible()) {
            seen.push_back(slideControls().lvwSLIDEBAR->isVisible());
        }
    });
    timer.start(0);
    window->Form_Load();
    ASSERT_GE(seen.size(), 2U);
    EXPECT_FALSE(seen.front());
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end())) << "it went once more";
    EXPECT_TRUE(slideControls().lvwSLIDEBAR->isVisible());
}

TEST_F(StartTest, AMaximisedWindowComesBackMaximised) {
    for (const char* state : {"1", "2"}) {
        setStored("mfrmPRGMAIN\\Window", "Window State", QLatin1String(state));
        start();
        EXPECT_TRUE(window->isMaximized()) << state;
        EXPECT_EQ(Width(*pages().tabPAGES), Width(surface()) - 2 * Left(*pages().tabPAGES));
    }
}

TEST_F(StartTest, ANumberThatNamesNoPageShowsTheFirst) {
    for (const char* number :
         {"0", "-1", "4", "5", "65536", "65537", "65538", "-65535", "2147483647", "x"}) {
        setStored("mfrmPRGMAIN\\View", "TABIDX", QLatin1String(number));
        start();
        EXPECT_TRUE(pages().tabPAGES->isActive(1)) << number;
        EXPECT_TRUE(pages().slideshows->isVisible()) << number;
    }
}

TEST_F(StartTest, TheHelpPageNamesTheProgram) {
    start();
    EXPECT_EQ(pages().help->lblMAINTITLE->text(), QStringLiteral("Velorama"));
    EXPECT_EQ(pages().help->lblCOPYRIGHT->text(), libTxt.LegalLine);
    EXPECT_EQ(pages().help->lblVERSION->text(), libTxt.VersionText);
    EXPECT_TRUE(libTxt.VersionText.startsWith(QStringLiteral("Version: ")));
    EXPECT_FALSE(pages().help->imgICON->pixmap(Qt::ReturnByValue).isNull());
}

TEST_F(StartTest, TheSlideBarAndTheMaskAreSet) {
    start();
    EXPECT_EQ(slideControls().lvwSLIDEBAR->font().family(), QStringLiteral("Arial"));
    EXPECT_EQ(slideControls().lvwSLIDEBAR->font().pointSize(), 7);
    EXPECT_EQ(foundControls().flbFOUND->Pattern(), QStringLiteral("*.bmp;*.jpg;*.gif"));
}

TEST_F(StartTest, EveryCommandIsOffInAnEmptyFolder) {
    setToolSetting("Files Location", test::temporaryFolder());
    start();
    for (const std::size_t index : {0U, 1U, 2U, 3U, 4U, 5U, 6U}) {
        EXPECT_FALSE(slideBar().cbtnCONTROLS.at(index)->isEnabled()) << index;
    }
    EXPECT_TRUE(slideBar().cbtnCONTROLS[8]->isEnabled());
    EXPECT_FALSE(pages().slideshows->cbtnSLIDES[2]->isEnabled());
    EXPECT_FALSE(pages().webAlbum->cbtnWEBALBUM->isEnabled());
    for (const QAction* entry : {&commands().add, &commands().addAll, &commands().remove,
                                 &commands().removeAll, &commands().start, &commands().save}) {
        EXPECT_FALSE(entry->isEnabled()) << entry->objectName().toStdString();
    }
    EXPECT_FALSE(slideControls().prgBARSLIDES->isVisible());
}

// -- the album --

TEST_F(StartTest, TheAlbumOfTheLastSessionOpens) {
    const QString path = album(3);
    setLast(path);
    start();
    expectOpen(path);
    EXPECT_EQ(slides().size(), 3);
    EXPECT_FALSE(commands().save.isEnabled());
    EXPECT_FALSE(pages().slideshows->cbtnSLIDES[2]->isEnabled());
    EXPECT_TRUE(commands().start.isEnabled());
    EXPECT_TRUE(pages().webAlbum->cbtnWEBALBUM->isEnabled());
}

TEST_F(StartTest, TheStoredPathIsTrimmedOfBlanks) {
    const QString path = album(1);
    setLast(QStringLiteral("   ") + path + QStringLiteral("  "));
    start();
    expectOpen(path);
    EXPECT_EQ(slides().size(), 1);
}

TEST_F(StartTest, AStoredPathOfBlanksIsNone) {
    for (const char* none : {"", " ", "          "}) {
        setLast(QLatin1String(none));
        start();
        EXPECT_EQ(window->album().Tag(), QString());
        EXPECT_EQ(window->windowTitle(), QStringLiteral("Velorama"));
        EXPECT_TRUE(albums().isEmpty());
    }
}

TEST_F(StartTest, TheCommandLineBeatsTheStoredAlbumWhichStays) {
    const QString last = album(1);
    const QString named = album(2);
    setLast(last);
    start(named);
    expectOpen(named);
    EXPECT_EQ(slides().size(), 2);
    EXPECT_EQ(stored("mfrmPRGMAIN\\View", "Slideshow"), last);
    window->close();
    EXPECT_EQ(stored("mfrmPRGMAIN\\View", "Slideshow"), last);
}

TEST_F(StartTest, ACommandLineWithBlanksIsUsedAsItStands) {
    const QString path = album(2, QStringLiteral("my best days.vlr"));
    start(path);
    expectOpen(path);
    EXPECT_EQ(slides().size(), 2);
}

TEST_F(StartTest, QuotesRoundTheCommandLineAreNotDealtWithHere) {
    const QString quoted = QLatin1Char('"') + album(2) + QLatin1Char('"');
    start(quoted);
    expectOpen(quoted);
    EXPECT_TRUE(slides().isEmpty());
}

TEST_F(StartTest, AnAlbumThatHasGoneLeavesAnEmptyListUnderItsName) {
    const QString gone = test::temporaryFolder() + QStringLiteral("/gone.vlr");
    start(gone);
    expectOpen(gone);
    EXPECT_TRUE(slides().isEmpty());
    EXPECT_EQ(albums(), QStringList(gone));
}

TEST_F(StartTest, TheCaptionHasTheNameFirstUntilAnAlbumIsOpenedOrSaved) {
    const QString path = album(1);
    start(path);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Velorama - ") + path);
    commands().save.setEnabled(true);
    commands().save.trigger();
    EXPECT_EQ(window->windowTitle(), path + QStringLiteral(" - Velorama"));
}

TEST_F(StartTest, TheAlbumJoinsTheListByTheSettingProjectlist) {
    const QString path = album(1);
    const std::map<QString, bool> cases = {
        {QStringLiteral("1"), true},   {QStringLiteral("1.0"), true},
        {QStringLiteral(" 1 "), true}, {QStringLiteral("0"), false},
        {QStringLiteral("2"), false},  {QStringLiteral("yes"), false}};
    for (const auto& [value, joins] : cases) {
        setAlbums({});
        setProjectList(value);
        start(path);
        EXPECT_EQ(albums(), joins ? QStringList(path) : QStringList()) << value.toStdString();
    }
}

TEST_F(StartTest, AKnownAlbumIsSelectedAndNotAddedAgain) {
    const QString first = album(1);
    const QString second = album(1);
    const QString third = album(1);
    setAlbums({first, second, third});
    start(second);
    EXPECT_EQ(albums(), QStringList({first, second, third}));
    EXPECT_EQ(selectedAlbum(), second);
}

TEST_F(StartTest, WithoutAnAlbumTheSelectionStaysWhereTheListLeftIt) {
    const QString first = album(1);
    const QString second = album(1);
    setAlbums({first, second});
    start();
    EXPECT_EQ(albums(), QStringList({first, second}));
    EXPECT_EQ(selectedAlbum(), second);
}

TEST_F(StartTest, TheFirstSlideIsSelectedAndTheSlidesAreTheActiveList) {
    browse({QStringLiteral("x.bmp")});
    start(album(3));
    ListView& list = *slideControls().lvwSLIDEBAR;
    EXPECT_EQ(list.SelectedItem(), list.item(1));
    EXPECT_TRUE(list.item(1)->Selected());
    EXPECT_FALSE(list.item(2)->Selected());
    EXPECT_FALSE(list.item(3)->Selected());
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    EXPECT_FALSE(slideBar().cbtnCONTROLS[4]->isEnabled());
    EXPECT_TRUE(slideBar().cbtnCONTROLS[5]->isEnabled());
}

// -- the folder --

TEST_F(StartTest, TheStoredFolderIsListedWithTheWindowUp) {
    browse({QStringLiteral("a.jpg"), QStringLiteral("b.BMP"), QStringLiteral("c.png")});
    start();
    ASSERT_EQ(foundControls().lvwFOUND->Count(), 2);
    EXPECT_TRUE(foundControls().lvwFOUND->item(1)->Selected());
    EXPECT_TRUE(commands().add.isEnabled());
    EXPECT_EQ(pages().pictures->lblFOUNDCOUNT->Caption(),
              QStringLiteral("2 pictures, 1 other not shown"));
}

TEST_F(StartTest, TheFolderTreeIsSilentWhileTheWindowLoads) {
    forgetFolder();
    const QString folder = folderWith({QStringLiteral("a.jpg")});
    window = std::make_unique<mfrmPRGMAIN>(services());
    FormLoading = true;
    foundControls().ftvFOLDER->setPath(folder);
    EXPECT_EQ(foundControls().lvwFOUND->Count(), 0);
    EXPECT_EQ(toolSetting("Files Location"), QStringLiteral("absent"));
    FormLoading = false;
}

TEST_F(StartTest, TheMusicListComesBack) {
    start();
    music().lstMUSIC->addItem(QStringLiteral("/music/a.mp3"));
    music().lstMUSIC->addItem(QStringLiteral("/music/b.wav"));
    window->close();
    start();
    ASSERT_EQ(music().lstMUSIC->ListCount(), 2);
    EXPECT_EQ(music().lstMUSIC->List(1), QStringLiteral("/music/b.wav"));
    EXPECT_TRUE(music().cbtnAUDIO[2]->isEnabled());
    EXPECT_FALSE(music().cbtnAUDIO[3]->isEnabled());
    EXPECT_FALSE(music().cbtnAUDIO[4]->isEnabled());
}

TEST_F(StartTest, TheSlidesInTheStoreAreNotReadBack) {
    setStored("frmSLIDESHOW\\Items", "Items", QStringLiteral("1"));
    setStored("frmSLIDESHOW\\Selection", "1", QStringLiteral("/pictures/a.jpg"));
    start();
    EXPECT_TRUE(slides().isEmpty());
}

TEST_F(StartTest, TheWindowComesUpAsTheLastWasLeft) {
    start();
    window->resize(760, 610);
    setLeft(*pages().pictures->picVBAR, 3300);
    window->close();
    start();
    EXPECT_EQ(window->size(), QSize(760, 610));
    EXPECT_EQ(Left(*pages().pictures->picVBAR), 3300);
}

TEST_F(StartTest, MusicIsChosenByTheDialogOfThePage) {
    start();
    CommonDialog::answerWith([this](const FileDialogRequest& request) {
        asked.push_back(request);
        return FileDialogAnswer{{QStringLiteral("/m/one.mp3"), QStringLiteral("/m/two.mid")}, 1};
    });
    music().cbtnAUDIO[0]->click();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked.front().title, QStringLiteral("Browse for music files"));
    EXPECT_TRUE(asked.front().several);
    EXPECT_EQ(asked.front().filterIndex, 1);
    EXPECT_EQ(music().lstMUSIC->ListCount(), 2);
    EXPECT_EQ(music().lblFile->Caption(), QStringLiteral("/m/one.mp3"));
    EXPECT_EQ(stored("mfrmPRGMAIN\\Details", "CMD Open FolderMP3"), QStringLiteral("/m/"));
}

TEST_F(StartTest, OnlyBlanksAreTrimmedOffTheLastAlbum) {
    const QString folder = test::temporaryFolder();
    const QString wide = folder + QStringLiteral("/one.vlr") + QChar(0x3000);
    ASSERT_TRUE(QFile::copy(album(1), wide));
    setLast(QStringLiteral("  ") + wide + QStringLiteral("  "));
    start();
    EXPECT_EQ(window->album().Tag(), wide);
    EXPECT_EQ(slides().size(), 1);
}

}  // namespace
}  // namespace velorama

#include "music_world.h"

#include <QDir>

namespace velorama {
namespace {

using namespace test;

const QString name = QStringLiteral("mfrmPRGMAINAUD");
const QString total = QStringLiteral("mfrmPRGMAINAUD\\Items Total");
const QString totalName = QStringLiteral("lstMUSICList Total");
const QString details = QStringLiteral("mfrmPRGMAINAUD\\Details");
const QString folderKey = QStringLiteral("mfrmPRGMAIN\\Details");
const QString folderName = QStringLiteral("CMD Open FolderMP3");

QStringList texts(const char* letters) {
    QStringList list;
    for (const char* letter = letters; *letter; ++letter) {
        list.append(QString(QLatin1Char(*letter)));
    }
    return list;
}

class MusicListTest : public MusicWorld {};

TEST_F(MusicListTest, Button1RemovesTheSelectedRow) {
    fill(texts("abc"), 1);
    press(1);
    EXPECT_EQ(rows(), texts("ac"));
    EXPECT_EQ(lstMUSIC.ListIndex(), -1);
}

TEST_F(MusicListTest, Button1RemovesTheFirstRowToo) {
    fill(texts("abc"), 0);
    press(1);
    EXPECT_EQ(rows(), texts("bc"));
}

TEST_F(MusicListTest, Button1WithoutASelectionRemovesTheLast) {
    fill(texts("abc"), -1);
    press(1);
    EXPECT_EQ(rows(), texts("ab"));
    press(1);
    press(1);
    EXPECT_EQ(rows(), QStringList());
    press(1);
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(device.taken(), QStringList());
}

TEST_F(MusicListTest, Command1MovesTheRowUp) {
    fill(texts("abc"), 2);
    controls.Command1->click();
    EXPECT_EQ(rows(), texts("acb"));
    EXPECT_EQ(lstMUSIC.ListIndex(), 1);
    controls.Command1->click();
    controls.Command1->click();
    EXPECT_EQ(rows(), texts("cab"));
    EXPECT_EQ(lstMUSIC.ListIndex(), 0);
    EXPECT_EQ(device.taken(), QStringList());
}

TEST_F(MusicListTest, Command2MovesTheRowDown) {
    fill(texts("abc"), 0);
    controls.Command2->click();
    EXPECT_EQ(rows(), texts("bac"));
    EXPECT_EQ(lstMUSIC.ListIndex(), 1);
    controls.Command2->click();
    controls.Command2->click();
    EXPECT_EQ(rows(), texts("bca"));
    EXPECT_EQ(lstMUSIC.ListIndex(), 2);
    EXPECT_EQ(device.taken(), QStringList());
}

TEST_F(MusicListTest, WithoutASelectionNoRowMoves) {
    fill(texts("ab"), -1);
    controls.Command1->click();
    EXPECT_EQ(lstMUSIC.ListIndex(), -1);
    controls.Command2->click();
    EXPECT_EQ(rows(), texts("ab"));
    EXPECT_EQ(lstMUSIC.ListIndex(), 0);
    lstMUSIC.clear();
    controls.Command1->click();
    controls.Command2->click();
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(MusicListTest, BrowseAsksForMusicFiles) {
    press(0);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(cdlDIALOG.InitDir, applicationFolder());
    EXPECT_EQ(cdlDIALOG.Filter,
              QStringLiteral("All Files (*.mp3; *.mid; *.wav)|*.mp3; *.mid; *.wav|"
                             "mp3 Files|*.mp3|Wav Files|*.wav|Midi Files|*.mid"));
    EXPECT_EQ(requests.front().filterIndex, 1);
    EXPECT_EQ(requests.front().title, QStringLiteral("Browse for music files"));
    EXPECT_EQ(cdlDIALOG.Flags, 524806);
    EXPECT_TRUE(requests.front().several);
    EXPECT_EQ(requests.front().fileName, QString());
}

TEST_F(MusicListTest, TheDialogOfABrowseIsPutInTheMiddle) {
    bool hooked = false;
    CommonDialog::answerWith([&hooked](const FileDialogRequest&) {
        hooked = gDlgHook->isHooked();
        return FileDialogAnswer{};
    });
    press(0);
    EXPECT_TRUE(hooked);
    EXPECT_FALSE(gDlgHook->isHooked());
}

TEST_F(MusicListTest, ThatHasNoFolderYetBrowsesTheMusic) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    ASSERT_TRUE(QDir().mkpath(folder));
    ASSERT_FALSE(QDir(applicationFolder()).exists());
    press(0);
    EXPECT_EQ(requests.front().folder, folder);
}

TEST_F(MusicListTest, BrowseAddsTheFilesInTheDialogsOrder) {
    fill(texts("x"), 0);
    cbtnAUDIO[2]->setEnabled(false);
    chosen = {QStringLiteral("/m/Z.MP3"), QStringLiteral("/n/a.wav")};
    press(0);
    EXPECT_EQ(rows(), texts("x") + chosen);
    EXPECT_EQ(lstMUSIC.ListIndex(), 0);
    EXPECT_TRUE(enabled(2));
    EXPECT_EQ(loadSetting(folderKey, folderName, QString()), QStringLiteral("/n/"));
    EXPECT_EQ(controls.lblFile->Caption(), QStringLiteral("x"));
    press(0);
    EXPECT_EQ(cdlDIALOG.InitDir, QStringLiteral("/n/"));
    EXPECT_EQ(device.taken(), QStringList());
}

TEST_F(MusicListTest, ACancelledBrowseAddsNothing) {
    cbtnAUDIO[2]->setEnabled(false);
    press(0);
    EXPECT_EQ(rows(), QStringList());
    EXPECT_FALSE(enabled(2));
    EXPECT_EQ(loadSetting(folderKey, folderName, QStringLiteral("none")), QStringLiteral("none"));
}

TEST_F(MusicListTest, DroppedMusicIsAddedInLowerCase) {
    fill(texts("x"), 0);
    cbtnAUDIO[2]->setEnabled(false);
    emit lstMUSIC.FilesDropped({QStringLiteral("/My Music/Song.MP3"), QStringLiteral("/a/b.Wav"),
                                QStringLiteral("/a/B.mid")});
    EXPECT_EQ(rows(),
              texts("x") + QStringList({QStringLiteral("/my music/song.mp3"),
                                        QStringLiteral("/a/b.wav"), QStringLiteral("/a/b.mid")}));
    EXPECT_EQ(lstMUSIC.ListIndex(), 3);
    EXPECT_TRUE(enabled(2));
    EXPECT_EQ(device.taken(), QStringList());
}

// A list in sight is laid out anew whenever a row is chosen: ten thousand would take their time.
TEST_F(MusicListTest, OfManyDroppedFilesOnlyTheLastIsChosen) {
    int choices = 0;
    QObject::connect(&lstMUSIC, &ListBox::itemSelectionChanged, &lstMUSIC,
                     [&choices] { ++choices; });
    QStringList dropped;
    for (int i = 0; i < 100; ++i) {
        dropped.append(QStringLiteral("/music/%1.mp3").arg(i));
    }
    engine->list.MusicDrop(dropped);
    EXPECT_EQ(lstMUSIC.ListCount(), 100);
    EXPECT_EQ(lstMUSIC.ListIndex(), 99);
    EXPECT_EQ(choices, 1);
}

TEST_F(MusicListTest, OtherDroppedFilesArePassedOver) {
    cbtnAUDIO[2]->setEnabled(false);
    engine->list.MusicDrop({QStringLiteral("/a/b.midi"), QStringLiteral("/a/b.ogg"),
                            QStringLiteral("/a/mp3"), QStringLiteral("/a/b.mp3/"),
                            QStringLiteral("/a/b.mp3 "), QString()});
    EXPECT_EQ(rows(), QStringList());
    EXPECT_FALSE(enabled(2));
    engine->list.MusicDrop({QStringLiteral(".mp3")});
    EXPECT_EQ(rows(), QStringList({QStringLiteral(".mp3")}));
}

TEST_F(MusicListTest, SaveWritesTheCountAndEachRow) {
    fill(texts("abc"), 0);
    engine->list.ListboxSave(lstMUSIC, name);
    EXPECT_EQ(loadSetting(total, totalName, QString()), QStringLiteral("3"));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(loadSetting(details, QStringLiteral("lstMUSIC%1").arg(i), QString()),
                  texts("abc").at(i));
    }
}

TEST_F(MusicListTest, LoadBringsTheSavedRowsBack) {
    fill(texts("abc"), 1);
    engine->list.ListboxSave(lstMUSIC, name);
    fill(texts("d"), 3);
    cbtnAUDIO[2]->setEnabled(false);
    engine->list.ListboxLoad(lstMUSIC, name);
    EXPECT_EQ(rows(), texts("abc"));
    EXPECT_EQ(lstMUSIC.ListIndex(), -1);
    EXPECT_TRUE(enabled(2));
}

TEST_F(MusicListTest, LoadOfNothingEmptiesTheList) {
    fill(texts("abc"), 1);
    engine->list.ListboxLoad(lstMUSIC, name);
    EXPECT_EQ(rows(), QStringList());
    EXPECT_FALSE(enabled(2));
}

TEST_F(MusicListTest, RowsTooLongForTheSettingsAreKeptFromTheList) {
    const auto path = [](int characters, char16_t letter) -> QString {
        return u'/' + QString(characters - 5, QChar(letter)) + QStringLiteral(".mp3");
    };
    const QStringList rowsBefore = {path(255, u'a'),      path(254, u'b'),
                                    path(254, u'\u0416'), path(4000, u'\u0416'),
                                    path(4000, u'c'),     QStringLiteral("/d.mp3")};
    fill(rowsBefore, 0);
    engine->list.ListboxSave(lstMUSIC, name);
    engine->list.ListboxLoad(lstMUSIC, name);
    EXPECT_EQ(rows(), rowsBefore);
    EXPECT_TRUE(enabled(2));
    // A new list has nothing to keep them from; the others come in.
    lstMUSIC.clear();
    engine->list.ListboxLoad(lstMUSIC, name);
    EXPECT_EQ(rows(),
              QStringList({path(254, u'b'), path(254, u'\u0416'), QStringLiteral("/d.mp3")}));
}

TEST_F(MusicListTest, BlankRowsDropOut) {
    saveSetting(total, totalName, QStringLiteral("5"));
    saveSetting(details, QStringLiteral("lstMUSIC0"), QStringLiteral("   "));
    saveSetting(details, QStringLiteral("lstMUSIC1"), QStringLiteral("  /m/a.mp3 "));
    saveSetting(details, QStringLiteral("lstMUSIC2"), QString());
    saveSetting(details, QStringLiteral("lstMUSIC4"), QStringLiteral("/m/b.mp3"));
    engine->list.ListboxLoad(lstMUSIC, name);
    EXPECT_EQ(rows(), QStringList({QStringLiteral("/m/a.mp3"), QStringLiteral("/m/b.mp3")}));
    EXPECT_TRUE(enabled(2));
}

TEST_F(MusicListTest, OnlyBlankRowsLeaveButton2Disabled) {
    saveSetting(total, totalName, QStringLiteral("2"));
    saveSetting(details, QStringLiteral("lstMUSIC0"), QString());
    engine->list.ListboxLoad(lstMUSIC, name);
    EXPECT_EQ(rows(), QStringList());
    EXPECT_FALSE(enabled(2));
}

TEST_F(MusicListTest, ADamagedCountLoadsWhatItCan) {
    saveSetting(details, QStringLiteral("lstMUSIC0"), QStringLiteral("/m/a.mp3"));
    for (const char* count : {"many", "", "-3", "99999999999"}) {
        saveSetting(total, totalName, QString::fromLatin1(count));
        engine->list.ListboxLoad(lstMUSIC, name);
        EXPECT_EQ(rows(), QStringList()) << count;
    }
    saveSetting(total, totalName, QStringLiteral("2147483647"));
    engine->list.ListboxLoad(lstMUSIC, name);
    EXPECT_EQ(rows(), QStringList({QStringLiteral("/m/a.mp3")}));
}

}  // namespace
}  // namespace velorama

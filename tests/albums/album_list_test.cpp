#include "albums/album_world.h"
#include "support/waiting.h"

namespace velorama {
namespace {

const QString details = QStringLiteral("mfrmPRGMAIN\\Details");
const QString total = QStringLiteral("mfrmPRGMAIN\\Items Total");
const QString K = QStringLiteral("mfrmPRGMAIN");

class AlbumListStore : public test::WithAlbums {
protected:
    void storeTotal(const QString& count) {
        saveSetting(total, QStringLiteral("lvwALBUMSList Total"), count);
    }
    void store(int number, const QString& text) {
        saveSetting(details, QStringLiteral("lvwALBUMS%1").arg(number), text);
    }
    void storeList(const QStringList& paths) {
        storeTotal(QString::number(paths.size()));
        for (int i = 0; i < paths.size(); ++i) {
            store(i + 1, paths[i]);
        }
    }
    void load() { albums->SlideshowListLoad(*lvwALBUMS, K); }
    void save() { albums->SlideshowListSave(*lvwALBUMS, K); }

    const QString one = album("0\r\n\r\n", QStringLiteral("one.vlr"));
    const QString two = album("3|My note \r\n/none/a.jpg\r\n\r\n", QStringLiteral("two.vlr"));
    const QString three = album("0| \r\n\r\n", QStringLiteral("three.vlr"));
    const QString gone = QStringLiteral("/none/gone.vlr");
};

TEST_F(AlbumListStore, savesCountAndPaths) {
    albums->AlbumListAdd(one);
    albums->AlbumListAdd(two);
    save();
    EXPECT_EQ(storedTotal(), QStringLiteral("2"));
    EXPECT_EQ(storedAlbum(1), one);
    EXPECT_EQ(storedAlbum(2), two);
    EXPECT_EQ(storedAlbum(3), std::nullopt);
}

TEST_F(AlbumListStore, savesUnderNameAndKey) {
    lvwALBUMS->setObjectName(QStringLiteral("lvwOTHER"));
    albums->AlbumListAdd(one);
    albums->SlideshowListSave(*lvwALBUMS, QStringLiteral("frmX"));
    EXPECT_EQ(raw(QStringLiteral("frmX\\Items Total"), QStringLiteral("lvwOTHERList Total")),
              QStringLiteral("1"));
    EXPECT_EQ(raw(QStringLiteral("frmX\\Details"), QStringLiteral("lvwOTHER1")), one);
}

TEST_F(AlbumListStore, valuesAboveTheCountStayAndAreNotRead) {
    storeList({one, two, three});
    albums->AlbumListAdd(one);
    save();
    EXPECT_EQ(storedTotal(), QStringLiteral("1"));
    EXPECT_EQ(storedAlbum(3), three);
    load();
    EXPECT_EQ(albumKeys(), QStringList(one));
}

TEST_F(AlbumListStore, loadsNamesAndNotes) {
    storeList({one, two, three});
    load();
    EXPECT_EQ(albumKeys(), QStringList({one, two, three}));
    EXPECT_EQ(lvwALBUMS->item(1)->Text(), QStringLiteral("one.vlr"));
    EXPECT_EQ(lvwALBUMS->item(2)->Text(), QStringLiteral("two.vlr"));
    EXPECT_EQ(lvwALBUMS->item(1)->SubItems(1), QString());
    EXPECT_EQ(lvwALBUMS->item(2)->SubItems(1).trimmed(), QStringLiteral("My note"));
    EXPECT_EQ(lvwALBUMS->item(3)->SubItems(1), QString());
    EXPECT_EQ(selectedAlbum(), three);
}

TEST_F(AlbumListStore, noStoreIsAnEmptyList) {
    albums->AlbumListAdd(one);
    load();
    EXPECT_EQ(lvwALBUMS->Count(), 0);
}

TEST_F(AlbumListStore, theOldListGoesAtALoad) {
    albums->AlbumListAdd(three);
    storeList({one});
    load();
    load();
    EXPECT_EQ(albumKeys(), QStringList(one));
}

TEST_F(AlbumListStore, theFirstMissingAlbumIsTheLastOneRead) {
    storeList({one, gone, three});
    load();
    EXPECT_EQ(albumKeys(), QStringList({one, gone}));
    EXPECT_EQ(lvwALBUMS->item(2)->SubItems(1), QString());
    EXPECT_EQ(selectedAlbum(), gone);
    save();
    EXPECT_EQ(storedTotal(), QStringLiteral("2"));
    EXPECT_EQ(storedAlbum(3), three);
}

TEST_F(AlbumListStore, anAlbumChosenWhileTheNotesAreReadStaysChosen) {
    storeList({one, gone, three});
    // Before the notes come, which wait for their turn behind it.
    QMetaObject::invokeMethod(
        lvwALBUMS, [this] { lvwALBUMS->item(1)->setSelected(true); }, Qt::QueuedConnection);
    load();
    EXPECT_EQ(albumKeys(), QStringList({one, gone}));
    EXPECT_EQ(selectedAlbum(), one);
}

TEST_F(AlbumListStore, emptyEntriesArePassedOver) {
    storeTotal(QStringLiteral("5"));
    store(1, QString());
    store(3, QStringLiteral("   "));
    store(4, one);
    store(5, two);
    load();
    EXPECT_EQ(albumKeys(), QStringList({one, two}));
}

TEST_F(AlbumListStore, blanksAroundAPathAreTrimmed) {
    storeList({QStringLiteral("  ") + one + QStringLiteral("  ")});
    load();
    EXPECT_EQ(albumKeys(), QStringList(one));
}

TEST_F(AlbumListStore, aPathStoredTwiceStandsOnce) {
    storeList({two, one, two});
    load();
    EXPECT_EQ(albumKeys(), QStringList({two, one}));
    EXPECT_EQ(lvwALBUMS->item(1)->SubItems(1).trimmed(), QStringLiteral("My note"));
}

TEST_F(AlbumListStore, countsThatAreNone) {
    store(1, one);
    for (const QString& count :
         {QString(), QStringLiteral("none"), QStringLiteral("-3"), QStringLiteral("0")}) {
        storeTotal(count);
        load();
        EXPECT_EQ(lvwALBUMS->Count(), 0) << count.toStdString();
    }
}

TEST_F(AlbumListStore, aCountTooHighEndsAllTheSame) {
    storeList({one, two});
    storeTotal(QStringLiteral("100000"));
    load();
    EXPECT_EQ(albumKeys(), QStringList({one, two}));
}

TEST_F(AlbumListStore, notesFollowTheFieldRule) {
    struct Row {
        const char* bytes;
        const char* note;
    };
    for (const Row& row :
         {Row{"12|note\r\n", "note"}, Row{"12\r\n", ""}, Row{"12|\r\n", ""},
          Row{"1|Rome, Italy\r\n", "Rome"}, Row{"\"1|Rome, Italy\"\r\n", "Rome, Italy"},
          Row{"1|a|b\r\n", "a|"}, Row{"1|note", "note"}, Row{"1|note\n2|x", "note"}, Row{"", ""},
          Row{"\xef\xbb\xbf"
              "1|note\r\n",
              "note"}}) {
        storeList({album(row.bytes)});
        load();
        ASSERT_EQ(lvwALBUMS->Count(), 1);
        EXPECT_EQ(lvwALBUMS->item(1)->SubItems(1), QString::fromUtf8(row.note)) << row.bytes;
    }
}

TEST_F(AlbumListStore, aHugeAlbumIsReadToItsFirstFieldOnly) {
    storeList({album("1|note\r\n" + QByteArray(20000000, 'x'))});
    load();
    EXPECT_EQ(lvwALBUMS->item(1)->SubItems(1), QStringLiteral("note"));
}

TEST_F(AlbumListStore, addingAppendsSelectsAndLeavesTheNote) {
    albums->AlbumListAdd(one);
    albums->AlbumListAdd(two);
    EXPECT_EQ(albumKeys(), QStringList({one, two}));
    EXPECT_EQ(lvwALBUMS->item(2)->Text(), QStringLiteral("two.vlr"));
    EXPECT_EQ(lvwALBUMS->item(2)->SubItems(1), QString());
    EXPECT_EQ(selectedAlbum(), two);
    EXPECT_EQ(storedTotal(), std::nullopt);
    save();
    load();
    EXPECT_EQ(lvwALBUMS->item(2)->SubItems(1).trimmed(), QStringLiteral("My note"));
}

TEST_F(AlbumListStore, anAddedAlbumThatIsNotThereIsCalledByItsPathAfterALook) {
    const QString path = test::temporaryFolder() + QStringLiteral("/x.vlr");
    albums->AlbumListAdd(path);
    EXPECT_EQ(lvwALBUMS->item(1)->Text(), QStringLiteral("x.vlr"));
    EXPECT_TRUE(test::comesTrue([&] { return lvwALBUMS->item(1)->Text() == path; }));
}

TEST_F(AlbumListStore, aKnownAlbumIsLeftAsItIs) {
    albums->AlbumListAdd(one);
    albums->AlbumListAdd(two);
    lvwALBUMS->item(1)->setSubItems(1, QStringLiteral("kept"));
    albums->AlbumListAdd(one);
    EXPECT_EQ(albumKeys(), QStringList({one, two}));
    EXPECT_EQ(lvwALBUMS->item(1)->SubItems(1), QStringLiteral("kept"));
    EXPECT_EQ(selectedAlbum(), two);
}

TEST_F(AlbumListStore, anAlbumIsKnownByItsExactPath) {
    EXPECT_FALSE(albums->AlbumKnown(one));
    albums->AlbumListAdd(one);
    EXPECT_TRUE(albums->AlbumKnown(one));
    EXPECT_FALSE(albums->AlbumKnown(one.toUpper()));
    EXPECT_FALSE(albums->AlbumKnown(one + u' '));
    EXPECT_FALSE(albums->AlbumKnown(QString()));
    albums->AlbumListAdd(one.toUpper());
    EXPECT_EQ(lvwALBUMS->Count(), 2);
}

TEST_F(AlbumListStore, anEmptyPathIsNotAdded) {
    albums->AlbumListAdd(QString());
    EXPECT_EQ(lvwALBUMS->Count(), 0);
}

TEST_F(AlbumListStore, selectingFindsThePath) {
    albums->AlbumListAdd(one);
    albums->AlbumListAdd(two);
    albums->AlbumListSelect(one);
    EXPECT_EQ(selectedAlbum(), one);
    EXPECT_TRUE(lvwALBUMS->item(1)->Selected());
    EXPECT_FALSE(lvwALBUMS->item(2)->Selected());
    for (const QString& none : {QString(), gone, one.toUpper()}) {
        albums->AlbumListSelect(none);
        EXPECT_EQ(selectedAlbum(), one) << none.toStdString();
    }
}

}  // namespace
}  // namespace velorama

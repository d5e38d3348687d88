#include "albums/album_world.h"

namespace velorama {
namespace {

struct Length {
    const char* name;
    int characters;
    char16_t letter;
    friend void PrintTo(const Length& length, std::ostream* out) { *out << length.name; }
};

/// Paths of files that exist, at and beyond the 254 characters that the settings give back.
class LongPaths : public test::WithAlbums, public testing::WithParamInterface<Length> {
protected:
    /// A folder in which a name of `name` characters makes a path of as many as the row says.
    QString folderFor(int name) const {
        QString folder = test::temporaryFolder();
        qsizetype missing = GetParam().characters - folder.size() - 1 - name;
        // In UTF-8 no name has more than 255 bytes.
        constexpr qsizetype longestName = 120;
        while (missing > 0) {
            // What is left must be a slash and a name, too.
            const qsizetype rest = missing > longestName + 1 ? missing - longestName - 1 : 0;
            const qsizetype part = missing - 1 - (rest == 1 ? 2 : rest);
            folder += u'/' + QString(part, QChar(GetParam().letter));
            missing -= part + 1;
        }
        EXPECT_TRUE(QDir().mkpath(folder));
        return folder;
    }
    QString longPicture(const QString& folder, const QString& name) const {
        QString path = test::savePicture(folder, name);
        EXPECT_EQ(path.size(), GetParam().characters);
        return path;
    }
    QString longFolder() const {
        QString folder = folderFor(5);
        pair = {longPicture(folder, QStringLiteral("a.bmp")),
                longPicture(folder, QStringLiteral("b.bmp"))};
        return folder;
    }
    static QStringList reversed(QStringList paths) {
        std::reverse(paths.begin(), paths.end());
        return paths;
    }
    /// What the slides' paths say their texts and thumbnails are.
    void expectWhole() const {
        for (int i = 1; i <= lvwSLIDEBAR->Count(); ++i) {
            const ListItem& slide = *lvwSLIDEBAR->item(i);
            EXPECT_EQ(slide.Text(), QFileInfo(slide.Key()).fileName());
            EXPECT_EQ(slide.Icon(), imlTHUMBNAILS.indexOf(slide.Key()));
        }
    }

    mutable QStringList pair;
};

TEST_P(LongPaths, GoInByAddAll) {
    browseFolder(longFolder());
    list->AddAll();
    EXPECT_EQ(keys(), pair);
    expectWhole();
    EXPECT_EQ(storedCount(), QStringLiteral("2"));
    EXPECT_EQ(storedSlides(2), pair);
    list->AddAll();
    EXPECT_EQ(keys(), pair);
}

TEST_P(LongPaths, GoInByAddAmongOthers) {
    browse({QStringLiteral("s.bmp"), QStringLiteral("t.bmp")});
    list->AddAll();
    const QStringList few = keys();
    browseFolder(longFolder());
    selectFound({2});
    lvwSLIDEBAR->setSelectedItem(2);
    list->Add();
    EXPECT_EQ(keys(), QStringList({few[0], pair[1], few[1]}));
    selectFound({1});
    list->Add();
    EXPECT_EQ(keys(), QStringList({pair[0], few[0], pair[1], few[1]}));
    expectWhole();
    EXPECT_EQ(current(), 1);
    list->SlideListReload();
    EXPECT_EQ(keys(), QStringList({pair[0], few[0], pair[1], few[1]}));
}

TEST_P(LongPaths, AreRemovedAndMoved) {
    browseFolder(longFolder());
    list->AddAll();
    lvwSLIDEBAR->setSelectedItem(1);
    list->MoveForward();
    EXPECT_EQ(keys(), reversed(pair));
    expectWhole();
    selectSlides({1});
    list->Clear();
    EXPECT_EQ(keys(), QStringList(pair[0]));
    list->AddAll();
    EXPECT_EQ(keys(), reversed(pair));
    list->ClearAll();
    EXPECT_TRUE(keys().isEmpty());
}

TEST_P(LongPaths, AreInTheAlbumAtTheNextStart) {
    browseFolder(longFolder());
    list->AddAll();
    chosen = test::temporaryFolder() + QStringLiteral("/a.vlr");
    file->mnuFILESAVEAS_Click();
    EXPECT_EQ(test::contentOf(chosen), formA(pair));
    file->mnuFILESAVE_Click();
    list->SELECTIONSAVE();

    lvwSLIDEBAR->Clear();
    imlTHUMBNAILS.Clear();
    file->openAtStart(chosen);
    EXPECT_EQ(keys(), pair);
    expectWhole();
    browse({QStringLiteral("s.bmp")});
    list->AddAll();
    EXPECT_EQ(keys().mid(1), pair);
}

TEST_P(LongPaths, OfAlbumsStayInTheListAtASave) {
    const QString folder = folderFor(5);
    const QString first = test::saved(folder, QStringLiteral("a.vlr"), "0|first \r\n\r\n");
    const QString second = test::saved(folder, QStringLiteral("b.vlr"), "0|second \r\n\r\n");
    const QString near = album("0|near \r\n\r\n");
    ASSERT_EQ(first.size(), GetParam().characters);
    for (const QString& path : {first, near, second}) {
        albums->AlbumListAdd(path);
    }
    file->setTag(near);
    file->mnuFILESAVE_Click();
    ASSERT_EQ(albumKeys(), QStringList({first, near, second}));
    EXPECT_EQ(lvwALBUMS->item(1)->SubItems(1).trimmed(), QStringLiteral("first"));
    EXPECT_EQ(lvwALBUMS->item(3)->SubItems(1).trimmed(), QStringLiteral("second"));
    file->setTag(second);
    file->mnuFILESAVE_Click();
    EXPECT_EQ(albumKeys(), QStringList({first, near, second}));
    EXPECT_EQ(test::contentOf(second), QByteArray("0| \r\n\r\n"));
}

TEST_P(LongPaths, OfAlbumsAreSavedAndOpened) {
    browseFolder(longFolder());
    list->AddAll();
    chosen = folderFor(5) + QStringLiteral("/c.vlr");
    ASSERT_EQ(chosen.size(), GetParam().characters);
    file->mnuFILESAVEAS_Click();
    EXPECT_EQ(test::contentOf(chosen), formA(pair));
    ASSERT_EQ(albumKeys(), QStringList(chosen));
    list->ClearAll();
    lvwALBUMS->item(1)->setSelected(true);
    unmodify();
    albums->lvwALBUMS_DblClick();
    EXPECT_EQ(keys(), pair);
}

INSTANTIATE_TEST_SUITE_P(
    Of, LongPaths,
    testing::Values(Length{"254", 254, u'd'}, Length{"255", 255, u'd'}, Length{"300", 300, u'd'},
                    Length{"1000", 1000, u'd'}, Length{"4000", 4000, u'd'},
                    Length{"130Cyrillic", 130, u'\u0416'}, Length{"254Cyrillic", 254, u'\u0416'},
                    Length{"255Cyrillic", 255, u'\u0416'}, Length{"2000Cyrillic", 2000, u'\u0416'}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace velorama

#include "albums/slide_world.h"

#include <QGuiApplication>

namespace velorama {
namespace {

class SlideInsertTest : public test::WithSlides {
protected:
    QStringList names(const QString& folder, const QStringList& files) const {
        QStringList all;
        for (const QString& file : files) {
            all.append(folder + QLatin1Char('/') + file);
        }
        return all;
    }
};

const QString a = QStringLiteral("a.bmp");
const QString b = QStringLiteral("b.jpg");
const QString c = QStringLiteral("c.bmp");

TEST_F(SlideInsertTest, firstSlideGoesToPositionOne) {
    const QString folder = browse({a});
    list->SlideInsert(0);
    EXPECT_EQ(keys(), names(folder, {a}));
    EXPECT_EQ(texts(), QStringList(a));
    EXPECT_EQ(lvwSLIDEBAR->item(1)->Icon(), 1);
    EXPECT_EQ(imlTHUMBNAILS.Key(1), folder + QStringLiteral("/a.bmp"));
    EXPECT_EQ(storedCount(), QStringLiteral("1"));
    EXPECT_EQ(storedSlides(1), names(folder, {a}));
    EXPECT_TRUE(commands.start.isEnabled());
}

TEST_F(SlideInsertTest, furtherSlidesGoInAtTheCurrentItem) {
    const QString folder = browse({a, b, c, QStringLiteral("x.jpg")});
    list->SlideInsert(2);
    list->SlideInsert(1);
    list->SlideInsert(0);
    EXPECT_EQ(keys(), names(folder, {a, b, c}));
    lvwSLIDEBAR->setSelectedItem(3);
    selectFound({4});
    list->Add();
    EXPECT_EQ(keys(), names(folder, {a, b, QStringLiteral("x.jpg"), c}));
    EXPECT_EQ(current(), 1);
}

TEST_F(SlideInsertTest, theSlideThatIsFramedIsTheOneThatGoes) {
    const QString folder = browse({a, b, c});
    list->AddAll();
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(selected(), std::vector<int>{1});
    const QStringList added = keys();
    list->Clear();
    EXPECT_EQ(keys(), added.mid(1));
    selectFound({1});
    list->Add();
    EXPECT_EQ(selected(), std::vector<int>{1});
    lvwSLIDEBAR->clearSelection();
    list->Clear();
    EXPECT_EQ(keys(), names(folder, {a, b}));
}

TEST_F(SlideInsertTest, addPutsEachFurtherFileFirst) {
    const QString folder = browse({a, b, c});
    selectFound({1, 3});
    list->Add();
    EXPECT_EQ(keys(), names(folder, {c, a}));
    EXPECT_EQ(storedSlides(2), names(folder, {c, a}));
    EXPECT_EQ(storedCount(), QStringLiteral("2"));
    EXPECT_TRUE(isModified());
    EXPECT_TRUE(commands.saveAs.isEnabled());
    EXPECT_TRUE(lvwFOUND->isVisible());
    EXPECT_TRUE(lvwSLIDEBAR->isVisible());
}

TEST_F(SlideInsertTest, addWithNothingSelectedAddsNothingButMarks) {
    browse({a});
    unmodify();
    list->Add();
    EXPECT_TRUE(keys().isEmpty());
    EXPECT_EQ(storedCount(), std::nullopt);
    EXPECT_TRUE(isModified());
}

TEST_F(SlideInsertTest, addAllKeepsTheOrderOfTheFolder) {
    const QString folder = browse({a, b, c});
    selectFound({2});
    list->AddAll();
    EXPECT_EQ(keys(), names(folder, {a, b, c}));
    EXPECT_EQ(texts(), QStringList({a, b, c}));
    EXPECT_EQ(storedSlides(3), names(folder, {a, b, c}));
    EXPECT_EQ(current(), 1);
    EXPECT_TRUE(isModified());
    EXPECT_EQ(prgBARSLIDES->Max(), 3);
    EXPECT_EQ(prgBARSLIDES->Value(), 3);
    EXPECT_FALSE(prgBARSLIDES->isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SlideInsertTest, addAllOfAnEmptyFolderAddsNothing) {
    browse({});
    list->AddAll();
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_FALSE(commands.add.isEnabled());
    EXPECT_FALSE(commands.addAll.isEnabled());
    EXPECT_TRUE(isModified());
    EXPECT_EQ(storedCount(), std::nullopt);
}

TEST_F(SlideInsertTest, addAllShowsBarAndHourglass) {
    browse({a, b});
    int seen = 0;
    test::atNextYield([&] {
        ++seen;
        EXPECT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_TRUE(prgBARSLIDES->isVisible());
        EXPECT_FALSE(lvwSLIDEBAR->isVisible());
    });
    list->AddAll();
    EXPECT_EQ(seen, 1);
    EXPECT_TRUE(lvwSLIDEBAR->isVisible());
}

TEST_F(SlideInsertTest, nameWithTwoDotsNeverBecomesASlide) {
    const QString folder = browse({QStringLiteral("a.b.jpg"), b});
    EXPECT_EQ(flbFOUND.ListCount(), 2);
    list->AddAll();
    EXPECT_EQ(keys(), names(folder, {b}));
    EXPECT_EQ(imlTHUMBNAILS.Count(), 1);
    list->SlideInsert(0);
    EXPECT_EQ(lvwSLIDEBAR->Count(), 1);
}

TEST_F(SlideInsertTest, endingsIgnoreLetterCase) {
    const QString folder = browse({QStringLiteral("a.BmP"), QStringLiteral("b.JpG")});
    test::saveBytes(folder + QStringLiteral("/c.gIf"), "broken");
    test::saveBytes(folder + QStringLiteral("/d.jpeg"), "other");
    browseFolder(folder);
    list->AddAll();
    EXPECT_EQ(texts(), QStringList({QStringLiteral("a.BmP"), QStringLiteral("b.JpG"),
                                    QStringLiteral("c.gIf")}));
    // The broken one has a blank image of its own.
    EXPECT_EQ(imlTHUMBNAILS.Count(), 3);
    EXPECT_EQ(lvwSLIDEBAR->item(3)->Icon(), 1);
}

TEST_F(SlideInsertTest, fileInTheListChangesNeitherCountNorOrder) {
    const QString folder = browse({a, b, c});
    list->AddAll();
    lvwSLIDEBAR->setSelectedItem(3);
    list->AddAll();
    EXPECT_EQ(keys(), names(folder, {a, b, c}));
    EXPECT_EQ(imlTHUMBNAILS.Count(), 3);
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(storedCount(), QStringLiteral("3"));
    EXPECT_EQ(storedSlides(4), names(folder, {a, b, c}) + QStringList(QStringLiteral("absent")));
}

TEST_F(SlideInsertTest, indexOutsideTheFolderAddsNothing) {
    browse({a});
    list->SlideInsert(1);
    list->SlideInsert(-1);
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(storedCount(), std::nullopt);
}

TEST_F(SlideInsertTest, iconIsTheFirstKeyWithinThePath) {
    const QString folder = browse({a});
    test::saveBytes(folder + QStringLiteral("/g.gif"), "broken");
    browseFolder(folder);
    imlTHUMBNAILS.Add(folder, test::plainImage({90, 90}));
    list->AddAll();
    // A rebuild looks the icons up anew, that of a GIF too.
    EXPECT_EQ(lvwSLIDEBAR->item(1)->Icon(), 1);
    EXPECT_EQ(lvwSLIDEBAR->item(2)->Icon(), 1);
}

TEST_F(SlideInsertTest, editedTextsRevertAtTheNextRebuild) {
    browse({a, b});
    list->SlideInsert(1);
    lvwSLIDEBAR->item(1)->setText(QStringLiteral("mine"));
    list->SlideInsert(0);
    EXPECT_EQ(texts(), QStringList({a, b}));
}

TEST_F(SlideInsertTest, missingSlideShowsItsWholePath) {
    const QString folder = browse({a, b});
    list->AddAll();
    QFile::remove(folder + QStringLiteral("/b.jpg"));
    list->SlideListReload();
    EXPECT_EQ(texts(), QStringList({a, folder + QStringLiteral("/b.jpg")}));
    EXPECT_EQ(keys(), names(folder, {a, b}));
}

TEST_F(SlideInsertTest, driveRootHasOneSeparator) {
    // A folder of this very name stands in for the drive.
    const QString drive = QStringLiteral("C:\\");
    const QString parent = test::temporaryFolder();
    ASSERT_TRUE(QDir(parent).mkdir(drive));
    test::savePicture(parent + QLatin1Char('/') + drive, QStringLiteral("pic.jpg"));
    QDir::setCurrent(parent);
    browseFolder(drive);
    EXPECT_EQ(flbFOUND.ListCount(), 1);
    list->SlideInsert(0);
    EXPECT_EQ(keys(), QStringList(QStringLiteral("C:\\pic.jpg")));
    QDir::setCurrent(QDir::homePath());
}

TEST_F(SlideInsertTest, oddNamesSurvive) {
    const QStringList odd = {QStringLiteral("a b.jpg"),
                             QStringLiteral("\"q\" 'r'.jpg"),
                             QStringLiteral("50%.jpg"),
                             QStringLiteral("#1.jpg"),
                             QStringLiteral("two\nlines.jpg"),
                             QStringLiteral("x, y.jpg"),
                             QString::fromUtf8("\xC3\xBC\xE6\x97\xA5\xF0\x9F\x8C\x84.jpg")};
    const QString folder = browse(odd);
    list->AddAll();
    ASSERT_EQ(lvwSLIDEBAR->Count(), 7);
    for (int i = 1; i <= 7; ++i) {
        EXPECT_EQ(lvwSLIDEBAR->item(i)->Key(), folder + QLatin1Char('/') + flbFOUND.List(i - 1));
        EXPECT_EQ(lvwSLIDEBAR->item(i)->Text(), flbFOUND.List(i - 1));
        EXPECT_EQ(storedSlide(i), lvwSLIDEBAR->item(i)->Key());
    }
}

TEST_F(SlideInsertTest, lineThatCannotBeReadTwiceEndsTheRebuild) {
    const QString x = QStringLiteral("/x.jpg");
    saveSetting(QStringLiteral("frmSLIDESHOW\\Items"), QStringLiteral("Items"),
                QStringLiteral("5"));
    const QStringList stored = {x, QStringLiteral("/y.jpg"), x, QStringLiteral("/z.jpg")};
    for (int i = 0; i < stored.size(); ++i) {
        saveSetting(QStringLiteral("frmSLIDESHOW\\Selection"), QString::number(i + 1), stored[i]);
    }
    list->SlideListReload();
    // Position 4 lies past the end of a list of two.
    EXPECT_EQ(keys(), QStringList({x, QStringLiteral("/y.jpg")}));
}

TEST_F(SlideInsertTest, numberWithoutAPathReadsAsTheDefault) {
    const QString folder = browse({a, b});
    list->AddAll();
    saveSetting(QStringLiteral("frmSLIDESHOW\\Selection"), QStringLiteral("2"), QString(255, u'x'));
    list->SlideListReload();
    EXPECT_EQ(keys(), QStringList({folder + QStringLiteral("/a.bmp"), QStringLiteral("1")}));
}

TEST_F(SlideInsertTest, damagedCountsNeitherHangNorCrash) {
    browse({a});
    list->AddAll();
    for (const char* count : {"2000000000", "-5", "many", "", "1e300"}) {
        saveSetting(QStringLiteral("frmSLIDESHOW\\Items"), QStringLiteral("Items"),
                    QString::fromLatin1(count));
        list->SlideListReload();
        EXPECT_LE(lvwSLIDEBAR->Count(), 2) << count;
        list->ClearAll();
        EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
        list->AddAll();
        EXPECT_EQ(lvwSLIDEBAR->Count(), 1);
    }
}

TEST_F(SlideInsertTest, storeThatTakesNoWritesLosesTheListAtTheRebuild) {
    browse({a, b});
    store.takeWriteRights(Hive::CurrentUser);
    list->AddAll();
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(imlTHUMBNAILS.Count(), 2);
    store.giveWriteRights(Hive::CurrentUser);
}

TEST_F(SlideInsertTest, batchOfManyWritesInProportion) {
    struct Counting : MemoryRegistryStore {
        bool setValue(Hive hive, const QString& key, const QString& name,
                      const RegistryValue& value) override {
            ++writes;
            return MemoryRegistryStore::setValue(hive, key, name, value);
        }
        int writes = 0;
    };
    Counting counting;
    releaseServices();
    makeServices(counting, shell);
    const auto writesFor = [&](int count) {
        QStringList files;
        for (int i = 0; i < count; ++i) {
            files.append(QStringLiteral("p%1.bmp").arg(i, 4, 10, QLatin1Char('0')));
        }
        browse(files);
        list->ClearAll();
        counting.writes = 0;
        list->AddAll();
        EXPECT_EQ(lvwSLIDEBAR->Count(), count);
        return counting.writes;
    };
    const int few = writesFor(50);
    EXPECT_LE(writesFor(200), few * 4.6);
}

}  // namespace
}  // namespace velorama

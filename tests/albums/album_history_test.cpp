#include "albums/history_world.h"

#include "support/busy_threads.h"
#include "support/waiting.h"

#include <random>

namespace velorama {
namespace {

class AlbumHistory : public test::WithHistory {
protected:
    AlbumHistory() { file->openAtStart(path); }

    /// The thumbnail as it is painted, once it is made.
    QImage thumbnail(int slide) { return imlTHUMBNAILS.image(lvwSLIDEBAR->item(slide)->Icon()); }

    QStringList p =
        pictures({QStringLiteral("a.jpg"), QStringLiteral("b.bmp"), QStringLiteral("c.jpg")});
    QStringList q = pictures({QStringLiteral("x.jpg"), QStringLiteral("y.jpg")});
    QString path = album(formA(p));
    QString other = album("2|Our note \r\n" + q.join(QLatin1String("\r\n")).toUtf8() + "\r\n\r\n",
                          QStringLiteral("b.vlr"));
};

TEST_F(AlbumHistory, TheStartIsNoStep) {
    EXPECT_EQ(keys(), p);
    EXPECT_EQ(history().steps(), 0);
}

TEST_F(AlbumHistory, NewGoesBack) {
    selectSlides({2});
    expectUndone([&] { commands.newAlbum.trigger(); });
    EXPECT_EQ(keys(), QStringList());
    EXPECT_TRUE(isUnmodified());
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Velorama"));
    EXPECT_EQ(storedSlideshow(), QString());
    undo();
    EXPECT_EQ(form.windowTitle(), QStringLiteral("Velorama - ") + path);
}

TEST_F(AlbumHistory, NewOfAModifiedListGoesBack) {
    list->Clear();
    list->MoveForward();
    expectUndone([&] { commands.newAlbum.trigger(); });
    undo();
    EXPECT_TRUE(isModified());
    undo();
    undo();
    EXPECT_TRUE(isUnmodified());
    EXPECT_EQ(keys(), p);
}

TEST_F(AlbumHistory, OpenGoesBack) {
    list->MoveForward();
    selectSlides({1, 3});
    chosen = other;
    expectUndone([&] { commands.open.trigger(); });
    EXPECT_EQ(keys(), q);
    EXPECT_EQ(file->note(), QStringLiteral("Our note"));
    EXPECT_EQ(selectedAlbum(), other);
    undo();
    EXPECT_EQ(selectedAlbum(), path);
    EXPECT_EQ(file->Tag(), path);
    EXPECT_EQ(file->note(), QString());
}

TEST_F(AlbumHistory, AnAlbumOfTheListGoesBack) {
    expectUndone([&] { file->openFromList(other); });
    EXPECT_EQ(storedSlideshow(), other);
}

TEST_F(AlbumHistory, AnAlbumOfTheCommandLineLeavesTheNextStartAlone) {
    saveSetting(QStringLiteral("mfrmPRGMAIN\\View"), QStringLiteral("Slideshow"), other);
    file->openAtStart(path);
    expectUndone([&] { file->mnuFILENEW_Click(); });
    undo();
    EXPECT_EQ(storedSlideshow(), other);
}

TEST_F(AlbumHistory, TheSameAlbumOpenedAgainIsTheSame) {
    open(path);
    const int steps = history().steps();
    open(path);
    EXPECT_EQ(history().steps(), steps);
}

TEST_F(AlbumHistory, JunkOfAnAlbumComesBackWithItsPicture) {
    const QString missing = QStringLiteral("/nowhere/gone.jpg");
    file->openAtStart(album(formA({p[0], missing, p[1]}), QStringLiteral("junk.vlr")));
    ASSERT_EQ(keys().size(), 2);
    ASSERT_EQ(look().pictures[1], p[1]);
    expectUndone([&] { open(other); });
}

TEST_F(AlbumHistory, AnAlbumThatWasNotReadIsStillNotReplaced) {
    const QString broken = test::temporaryFolder();
    file->openAtStart(broken);
    expectUndone([&] { file->mnuFILENEW_Click(); });
}

// Its images went when the other album was read, and none is decoded before it is seen.
TEST_F(AlbumHistory, ThumbnailsComeBackWhenTheyAreSeen) {
    const QImage before = thumbnail(2);
    ASSERT_FALSE(before.isNull());
    open(other);
    EXPECT_EQ(imlTHUMBNAILS.indexOf(p[1]), 0);
    {
        const test::BusyThreads threads;
        undo();
        EXPECT_EQ(imlTHUMBNAILS.Count(), 5);
        EXPECT_FALSE(imlTHUMBNAILS.atHand(lvwSLIDEBAR->item(2)->Icon()));
    }
    EXPECT_EQ(thumbnail(2), before);
    const QSize size(90, 90);
    EXPECT_TRUE(test::comesTrue([&] {
        lvwSLIDEBAR->grab();
        const auto image = imlTHUMBNAILS.atHand(lvwSLIDEBAR->item(2)->Icon());
        return image && image->size() == size;
    }));
    redo();
    undo();
    EXPECT_EQ(imlTHUMBNAILS.Count(), 5);
}

TEST_F(AlbumHistory, APictureThatHasGoneComesBackBlank) {
    open(other);
    QFile::remove(p[1]);
    undo();
    EXPECT_EQ(keys(), p);
    EXPECT_EQ(thumbnail(2).size(), QSize(90, 90));
}

TEST_F(AlbumHistory, SaveLeavesOneListOfItsAlbumUnmodified) {
    list->MoveForward();
    file->mnuFILESAVE_Click();
    list->ClearAll();
    undo();
    EXPECT_TRUE(isUnmodified());
    undo();
    EXPECT_TRUE(isModified());
    redo();
    EXPECT_TRUE(isUnmodified());
}

TEST_F(AlbumHistory, SaveAsIsNotUndone) {
    list->MoveForward();
    chosen = test::temporaryFolder() + QStringLiteral("/new.vlr");
    file->mnuFILESAVEAS_Click();
    undo();
    EXPECT_EQ(file->Tag(), chosen);
    EXPECT_EQ(form.windowTitle(), chosen + QStringLiteral(" - Velorama"));
    EXPECT_EQ(storedSlideshow(), chosen);
    EXPECT_TRUE(isModified());
}

TEST_F(AlbumHistory, SaveOfOneAlbumLeavesTheMarksOfAnotherAlone) {
    open(other);
    list->MoveForward();
    file->mnuFILESAVE_Click();
    undo();
    EXPECT_TRUE(isModified());
    undo();
    EXPECT_EQ(file->Tag(), path);
    EXPECT_TRUE(isUnmodified());
    redo();
    EXPECT_EQ(file->Tag(), other);
    EXPECT_TRUE(isModified());
    redo();
    EXPECT_TRUE(isUnmodified());
}

TEST_F(AlbumHistory, SaveReachesTheSameAlbumBeforeAnotherOne) {
    open(other);
    open(path);
    list->MoveForward();
    file->mnuFILESAVE_Click();
    undo();
    undo();
    EXPECT_EQ(file->Tag(), other);
    EXPECT_TRUE(isUnmodified());
    undo();
    EXPECT_EQ(file->Tag(), path);
    EXPECT_TRUE(isModified());
}

TEST_F(AlbumHistory, ASaveInTheMidstOfAnAddIsAListToComeBackTo) {
    browse({QStringLiteral("d.jpg"), QStringLiteral("e.jpg"), QStringLiteral("f.jpg")});
    QStringList savedKeys;
    QObject::connect(&imlTHUMBNAILS, &ImageList::changed, list.get(), [&] {
        if (imlTHUMBNAILS.Count() == 5) {
            test::atNextYield([&] {
                file->mnuFILESAVE_Click();
                savedKeys = keys();
            });
        }
    });
    list->AddAll();
    ASSERT_GT(savedKeys.size(), p.size());
    ASSERT_GT(keys().size(), savedKeys.size());
    EXPECT_TRUE(isModified());
    undo();
    EXPECT_EQ(keys(), savedKeys);
    EXPECT_TRUE(isUnmodified());
    undo();
    EXPECT_EQ(keys(), p);
    EXPECT_TRUE(isModified());
}

TEST_F(AlbumHistory, ASaveAsInTheMidstOfAReadLeavesTheAlbumBeforeIt) {
    const test::Look before = look();
    atSlide(1, [&] {
        chosen = test::temporaryFolder() + QStringLiteral("/new.vlr");
        file->mnuFILESAVEAS_Click();
    });
    open(other);
    while (history().steps() > 0) {
        undo();
    }
    EXPECT_EQ(look(), before);
}

TEST_F(AlbumHistory, UndoDuringAReadFollowsIt) {
    const test::Look before = look();
    atSlide(1, [&] { commands.undo.trigger(); });
    open(other);
    EXPECT_EQ(keys(), q);
    QCoreApplication::processEvents();
    EXPECT_EQ(look(), before);
}

TEST_F(AlbumHistory, NewDuringAReadIsAStepOfItsOwn) {
    const test::Look before = look();
    atSlide(1, [&] { file->mnuFILENEW_Click(); });
    open(other);
    EXPECT_EQ(keys(), QStringList());
    undo();
    EXPECT_FALSE(keys().isEmpty());
    undo();
    EXPECT_EQ(look(), before);
}

TEST_F(AlbumHistory, WhatIsDoneWhileTheFirstAlbumIsReadIsNotUndone) {
    atSlide(2, [&] { list->ClearAll(); });
    file->openAtStart(path);
    const test::Look after = look();
    commands.undo.trigger();
    EXPECT_EQ(look(), after);
}

/// Ten thousand slides, whose files need not be there.
class LongHistory : public test::WithHistory {
protected:
    static constexpr int many = 10'000;
    LongHistory() { fillMany(QStringLiteral("/pictures/of/a/summer")); }

    void fillMany(const QString& folder) {
        for (int i = 0; i < many; ++i) {
            const QString key = folder + QStringLiteral("/%1.jpg").arg(i);
            lvwSLIDEBAR->Add(i + 1, key, slideText(key), 0);
        }
    }
    /// As a command that fills the list.
    void addMany(const QString& folder) {
        const SlideHistory::Recording step(history());
        fillMany(folder);
    }
};

TEST_F(LongHistory, StepsHoldOnlyWhatTheyTookAway) {
    std::mt19937 random(11);
    QStringList first = keys();
    for (int i = 0; i < 17; ++i) {
        selectSlides({1 + static_cast<int>(random() % 4000), 5000 + i, 9000});
        list->Clear();
        lvwSLIDEBAR->setSelectedItem(2 + static_cast<int>(random() % 9000));
        list->MoveBack();
        edit(1 + static_cast<int>(random() % 9000), QString::number(i));
    }
    EXPECT_EQ(history().steps(), 51);
    EXPECT_LE(history().slidesHeld(), 17 * (3 + 2 + 1));
    while (history().steps() > 0) {
        commands.undo.trigger();
    }
    EXPECT_EQ(keys(), first);
    EXPECT_LE(history().slidesHeld(), 17 * (3 + 2 + 1));
}

TEST_F(LongHistory, TheSameListIsHeldOnce) {
    for (int i = 0; i < 26; ++i) {
        list->ClearAll();
        addMany(QStringLiteral("/pictures/of/a/summer"));
    }
    EXPECT_EQ(history().steps(), 52);
    EXPECT_LE(history().slidesHeld(), many);
    while (history().steps() > 0) {
        commands.undo.trigger();
    }
    EXPECT_EQ(lvwSLIDEBAR->Count(), many);
    EXPECT_LE(history().slidesHeld(), many);
}

TEST_F(LongHistory, ListsThatAllDifferLeaveFiftySteps) {
    for (int i = 0; i < 27; ++i) {
        list->ClearAll();
        addMany(QStringLiteral("/pictures/%1").arg(i));
    }
    EXPECT_EQ(history().steps(), 50);
    EXPECT_EQ(history().slidesHeld(), 25 * many);
}

TEST_F(LongHistory, ASelectionInManyPiecesIsNotHeld) {
    std::vector<int> second;
    for (int i = 1; i <= 1000; i += 2) {
        second.push_back(i);
    }
    selectSlides(second);
    lvwSLIDEBAR->setSelectedItem(777);
    list->MoveBack();
    undo();
    EXPECT_EQ(selected(), std::vector<int>({777}));
    EXPECT_EQ(current(), 777);
    // Those that were taken away come back selected.
    selectSlides(second);
    list->Clear();
    undo();
    EXPECT_EQ(selected(), second);
}

}  // namespace
}  // namespace velorama

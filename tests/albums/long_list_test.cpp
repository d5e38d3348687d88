// Batches that end in a list too long to be written and rebuilt in one go.

#include "albums/slide_world.h"
#include "support/noting_store.h"

#include <QScrollBar>
#include <QTimer>

namespace velorama {
namespace {

class LongList : public test::WithSlides {
protected:
    static constexpr int many = 1200;

    LongList() {
        browse({QStringLiteral("a.bmp"), QStringLiteral("b.gif"), QStringLiteral("c.bmp")});
        for (int i = 1; i <= many; ++i) {
            const QString path = QStringLiteral("/none/%1.jpg").arg(i);
            lvwSLIDEBAR->Add(i, path, path, 0);
        }
        list->SELECTIONSAVE();
    }

    /// Runs once, at the first turn of events after so many slides are there.
    void atSlides(int count, std::function<void()> action) {
        QTimer::singleShot(0, qApp, [this, count, action = std::move(action)] {
            if (list && lvwSLIDEBAR->Count() < count) {
                atSlides(count, action);
            } else {
                action();
            }
        });
    }
    void expectStored() {
        EXPECT_EQ(storedCount(), QString::number(lvwSLIDEBAR->Count()));
        EXPECT_EQ(storedSlides(lvwSLIDEBAR->Count()), keys());
    }
};

TEST_F(LongList, IsAfterAddAllWhatARebuildGives) {
    lvwSLIDEBAR->item(700)->setText(QStringLiteral("edited"));
    lvwSLIDEBAR->item(800)->setText(lvwSLIDEBAR->item(799)->Text());
    lvwSLIDEBAR->setSelectedItem(900);
    lvwSLIDEBAR->item(900)->setSelected(true);
    QStringList expected = texts();
    expected[699] = lvwSLIDEBAR->item(700)->Key();
    expected[799] = lvwSLIDEBAR->item(800)->Key();
    // The first file goes in at the current slide, the others in front of all.
    expected.insert(899, QStringLiteral("c.bmp"));
    expected.prepend(QStringLiteral("b.gif"));
    expected.prepend(QStringLiteral("a.bmp"));
    list->AddAll();
    EXPECT_EQ(texts(), expected);
    EXPECT_EQ(selected(), std::vector<int>{1});
    EXPECT_EQ(current(), 1);
    expectStored();
}

TEST_F(LongList, GivesEachSlideTheFirstPictureWhoseKeyIsInItsPath) {
    imlTHUMBNAILS.Add(QStringLiteral("b.gif"), QImage(4, 4, QImage::Format_RGB32));
    imlTHUMBNAILS.Add(QStringLiteral("/none/7.jpg"), QImage(4, 4, QImage::Format_RGB32));
    list->AddAll();
    EXPECT_EQ(lvwSLIDEBAR->item(2)->Text(), QStringLiteral("b.gif"));
    EXPECT_EQ(lvwSLIDEBAR->item(2)->Icon(), 1);
    EXPECT_EQ(lvwSLIDEBAR->item(QStringLiteral("/none/7.jpg"))->Icon(), 2);
    EXPECT_EQ(lvwSLIDEBAR->item(QStringLiteral("/none/8.jpg"))->Icon(), 0);
}

TEST_F(LongList, TheFirstSlideTooHasThePictureOfARebuild) {
    const QString folder = browse({QStringLiteral("b.gif")});
    imlTHUMBNAILS.Add(QStringLiteral("b.gif"), QImage(4, 4, QImage::Format_RGB32));
    lvwSLIDEBAR->setSelectedItem(1);
    list->AddAll();
    EXPECT_EQ(lvwSLIDEBAR->item(1)->Key(), folder + QStringLiteral("/b.gif"));
    EXPECT_EQ(lvwSLIDEBAR->item(1)->Icon(), 1);
}

TEST_F(LongList, TheFirstFileOfABatchLeavesNothingSelectedButItself) {
    selectSlides({1, 5, 1000});
    lvwSLIDEBAR->setSelectedItem(1);
    selectFound({1});
    list->Add();
    EXPECT_EQ(selected(), std::vector<int>{1});
}

TEST_F(LongList, LetsEventsRunWhileItIsWritten) {
    list->AddAll();
    list->ClearAll();
    for (int i = 1; i <= many; ++i) {
        lvwSLIDEBAR->Add(i, QStringLiteral("/none/%1.jpg").arg(i), QString(), 0);
    }
    // No picture is loaded any more: all turns are those of the writing.
    int turns = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&turns] { ++turns; });
    timer.start(0);
    list->AddAll();
    EXPECT_GT(turns, 8);
    expectStored();
}

/// A long list whose writes are noted, with the turns of events between them.
class NotedLongList : public LongList {
protected:
    NotedLongList() {
        makeServices(noting, shell);
        list->SELECTIONSAVE();
        noting.before = [this](const QString& text) {
            if (text.startsWith(QLatin1String("write ")) && text != QLatin1String("write Items")) {
                wrote(text.mid(6).toInt());
            }
        };
    }
    ~NotedLongList() override {
        noting.before = [](const QString&) {};
        makeServices(store, shell);
    }

    /// The numbers of the last write of the whole list behind which events ran, in order.
    std::vector<int> pauses() const { return pauses_; }

    test::NotingStore noting;
    /// Called once, at the first turn of events behind the write of this number.
    int when = 0;
    std::function<void()> action;

private:
    void wrote(int number) {
        if (number == 1) {
            pauses_.clear();
        } else if (turned_ && last_ == number - 1) {
            pauses_.push_back(last_);
        }
        last_ = number;
        turned_ = false;
        if (number == when) {
            QTimer::singleShot(0, &here_, std::exchange(action, nullptr));
            when = 0;
        }
        if (std::exchange(isAsked_, true)) {
            return;
        }
        QTimer::singleShot(0, &here_, [this] {
            turned_ = true;
            isAsked_ = false;
        });
    }

    // What it has asked for ends with it.
    QObject here_;
    std::vector<int> pauses_;
    int last_ = 0;
    bool turned_ = false;
    bool isAsked_ = false;
};

TEST_F(NotedLongList, LetsEventsRunBehindEachFiveHundredPaths) {
    list->AddAll();
    EXPECT_EQ(pauses(), (std::vector<int>{500, 1000}));
}

TEST_F(NotedLongList, RemoveAllBetweenTwoPartsEmptiesIt) {
    when = 500;
    action = [this] { list->ClearAll(); };
    list->AddAll();
    EXPECT_EQ(when, 0);
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(
        loadSetting(QStringLiteral("frmSLIDESHOW\\Items"), QStringLiteral("Items"), QString()),
        QStringLiteral("0"));
}

TEST_F(NotedLongList, ARemovalBetweenTwoPartsIsStored) {
    when = 500;
    action = [this] {
        selectSlides({2});
        list->Clear();
    };
    list->AddAll();
    EXPECT_EQ(lvwSLIDEBAR->Count(), many + 2);
    for (const int number : {1, 2, 499, 500, 501, many + 2}) {
        EXPECT_EQ(loadSetting(QStringLiteral("frmSLIDESHOW\\Selection"), QString::number(number),
                              QString()),
                  lvwSLIDEBAR->item(number)->Key())
            << number;
    }
}

TEST_F(LongList, TheOneBehindTheLastFiveHundredIsWrittenToo) {
    for (const int before : {998, 997}) {
        list->ClearAll();
        for (int i = 1; i <= before; ++i) {
            lvwSLIDEBAR->Add(i, QStringLiteral("/none/%1.jpg").arg(i), QString(), 0);
        }
        list->AddAll();
        EXPECT_EQ(lvwSLIDEBAR->Count(), before + 3);
        expectStored();
    }
}

TEST_F(LongList, RemoveAllInTheMidstEmptiesIt) {
    bool ran = false;
    atSlides(many + 3, [&] {
        ran = true;
        list->ClearAll();
    });
    list->AddAll();
    EXPECT_TRUE(ran);
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(storedCount(), QStringLiteral("0"));
    EXPECT_EQ(storedSlide(1), QString());
}

TEST_F(LongList, AShowBegunInTheMidstFindsAllOfIt) {
    bool ran = false;
    atSlides(many + 3, [&] {
        ran = true;
        list->SELECTIONSAVE();
        expectStored();
    });
    list->AddAll();
    EXPECT_TRUE(ran);
    EXPECT_EQ(lvwSLIDEBAR->Count(), many + 3);
    expectStored();
}

TEST_F(LongList, WhatIsSelectedInTheMidstStays) {
    atSlides(many + 3, [&] { selectSlides({4}); });
    list->AddAll();
    EXPECT_EQ(selected(), std::vector<int>{4});
}

TEST_F(LongList, ARemovalInTheMidstIsStored) {
    atSlides(many + 3, [&] {
        selectSlides({2});
        list->Clear();
    });
    list->AddAll();
    EXPECT_EQ(lvwSLIDEBAR->Count(), many + 2);
    list->SELECTIONSAVE();
    expectStored();
}

TEST_F(LongList, ATextEditedInTheMidstGoes) {
    atSlides(many + 3, [&] { lvwSLIDEBAR->item(many)->setText(QStringLiteral("edited")); });
    list->AddAll();
    EXPECT_EQ(lvwSLIDEBAR->item(many)->Text(), lvwSLIDEBAR->item(many)->Key());
    expectStored();
}

TEST_F(LongList, AClosedWindowHasStoredIt) {
    atSlides(many + 1, [&] {
        list->stop();
        list->SELECTIONSAVE();
        expectStored();
    });
    list->AddAll();
    EXPECT_EQ(lvwSLIDEBAR->Count(), many + 1);
    expectStored();
}

TEST_F(LongList, AWindowThatGoesInTheMidstEndsIt) {
    for (const int when : {many + 1, many + 3}) {
        atSlides(when, [&] { list.reset(); });
        list->AddAll();
        EXPECT_EQ(list, nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        list = std::make_unique<SlideList>(slideControls, foundControls, commands, thumbnails);
    }
}

TEST_F(LongList, BeginsAtItsStartAfterABatch) {
    lvwSLIDEBAR->setArrangement(ListView::Arrangement::Strip);
    QCoreApplication::processEvents();
    lvwSLIDEBAR->horizontalScrollBar()->setValue(5000);
    ASSERT_GT(lvwSLIDEBAR->horizontalScrollBar()->value(), 0);
    list->AddAll();
    QCoreApplication::processEvents();
    EXPECT_EQ(lvwSLIDEBAR->horizontalScrollBar()->value(), 0);
}

TEST_F(LongList, SettingsThatRefuseRebuildWhatTheyHave) {
    store.takeWriteRights(Hive::CurrentUser);
    list->AddAll();
    // Nothing can be written, nor read: the rebuild of an unreadable copy is an empty list.
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    store.giveWriteRights(Hive::CurrentUser);
}

}  // namespace
}  // namespace velorama

#include "albums/history_world.h"

#include <QImage>
#include <QScrollBar>

#include <random>

namespace velorama {
namespace {

class SlideHistoryTest : public test::WithHistory {
protected:
    SlideHistoryTest() {
        browse({QStringLiteral("a.jpg"), QStringLiteral("b.bmp"), QStringLiteral("c.gif"),
                QStringLiteral("d.jpg"), QStringLiteral("e.jpg")});
        list->AddAll();
        unmodify();
        list->history().saved();
        all = keys();
    }
    QStringList all;
};

TEST_F(SlideHistoryTest, AddGoesBack) {
    selectSlides({2, 4});
    const QString folder = browse({QStringLiteral("x.jpg"), QStringLiteral("y.gif")});
    selectFound({1, 2});
    expectUndone([&] { commands.add.trigger(); });
    EXPECT_EQ(keys().size(), 7);
    EXPECT_TRUE(keys().contains(folder + QStringLiteral("/x.jpg")));
}

TEST_F(SlideHistoryTest, AddAllGoesBackToTheEmptyList) {
    undo();
    EXPECT_EQ(keys(), QStringList());
    EXPECT_FALSE(commands.start.isEnabled());
    EXPECT_FALSE(commands.remove.isEnabled());
    redo();
    EXPECT_EQ(keys(), all);
    EXPECT_TRUE(commands.start.isEnabled());
    EXPECT_TRUE(commands.removeAll.isEnabled());
    EXPECT_TRUE(commands.add.isEnabled());
}

TEST_F(SlideHistoryTest, RemoveGoesBack) {
    selectSlides({1, 3, 4});
    expectUndone([&] { commands.remove.trigger(); });
    EXPECT_EQ(keys(), QStringList({all[1], all[4]}));
}

TEST_F(SlideHistoryTest, RemoveOfTheLastOneGoesBack) {
    lvwSLIDEBAR->clearSelection();
    lvwSLIDEBAR->setSelectedItem(2);
    expectUndone([&] { commands.remove.trigger(); });
    EXPECT_EQ(keys(), all.first(4));
}

TEST_F(SlideHistoryTest, ADoubleClickGoesBack) {
    selectSlides({2});
    expectUndone([&] { emit lvwSLIDEBAR->DblClick(); });
    EXPECT_EQ(keys().size(), 4);
}

TEST_F(SlideHistoryTest, RemoveAllGoesBack) {
    selectSlides({2, 3});
    expectUndone([&] { commands.removeAll.trigger(); });
    EXPECT_EQ(keys(), QStringList());
}

TEST_F(SlideHistoryTest, TheSlideThatComesBackIsInSight) {
    lvwSLIDEBAR->setArrangement(ListView::Arrangement::Strip);
    for (int i = lvwSLIDEBAR->Count() + 1; i <= 100; ++i) {
        lvwSLIDEBAR->Add(i, QStringLiteral("/none/%1.jpg").arg(i), QString(), 0);
    }
    const auto isInSight = [this] {
        QCoreApplication::processEvents();
        return lvwSLIDEBAR->viewport()->rect().intersects(
            lvwSLIDEBAR->visualRect(lvwSLIDEBAR->model()->index(79, 0)));
    };
    selectSlides({80});
    commands.remove.trigger();
    lvwSLIDEBAR->horizontalScrollBar()->setValue(0);
    ASSERT_FALSE(isInSight());
    undo();
    EXPECT_EQ(current(), 80);
    EXPECT_TRUE(isInSight());
}

TEST_F(SlideHistoryTest, AListThatSomebodyElseHasEmptiedPromisesNothing) {
    const QString promise = QStringLiteral("brings back");
    ASSERT_TRUE(lvwSLIDEBAR->emptyState().words().contains(promise));
    lvwSLIDEBAR->Clear();
    commands.undo.trigger();
    EXPECT_EQ(keys(), QStringList());
    EXPECT_FALSE(lvwSLIDEBAR->emptyState().words().contains(promise));
}

TEST_F(SlideHistoryTest, BothMovesGoBack) {
    selectSlides({2});
    list->SelectChk();
    expectUndone([&] { commands.moveBack.trigger(); });
    EXPECT_EQ(keys(), QStringList({all[1], all[0], all[2], all[3], all[4]}));
    expectUndone([&] { commands.moveForward.trigger(); });
    EXPECT_EQ(keys(), all);
}

TEST_F(SlideHistoryTest, ACaptionGoesBack) {
    lvwSLIDEBAR->setSelectedItem(3);
    expectUndone([&] { edit(3, QStringLiteral("Our cat, asleep")); });
    EXPECT_EQ(texts()[2], QStringLiteral("Our cat asleep"));
    expectUndone([&] { edit(3, QString()); });
}

TEST_F(SlideHistoryTest, CaptionsThatARebuildTakesComeBack) {
    edit(2, QStringLiteral("mine"));
    edit(4, QStringLiteral("yours"));
    browse({QStringLiteral("x.jpg")});
    selectFound({1});
    expectUndone([&] { list->Add(); });
    undo();
    EXPECT_EQ(texts()[1], QStringLiteral("mine"));
    EXPECT_EQ(texts()[3], QStringLiteral("yours"));
}

TEST_F(SlideHistoryTest, WhatChangesNothingIsNoStep) {
    const int steps = history().steps();
    list->AddAll();
    selectSlides({5});
    list->MoveForward();
    selectSlides({1});
    list->MoveBack();
    list->SelectChk();
    EXPECT_EQ(history().steps(), steps);
    list->ClearAll();
    list->ClearAll();
    list->Clear();
    EXPECT_EQ(history().steps(), steps + 1);
}

TEST_F(SlideHistoryTest, UndoWithoutAStepDoesNothing) {
    undo();
    const test::Look before = look();
    undo();
    EXPECT_EQ(look(), before);
    redo();
    const test::Look after = look();
    redo();
    EXPECT_EQ(look(), after);
}

TEST_F(SlideHistoryTest, ANewStepEndsRedo) {
    selectSlides({1});
    list->Clear();
    undo();
    selectSlides({5});
    list->Clear();
    const test::Look after = look();
    commands.redo.trigger();
    EXPECT_EQ(look(), after);
}

TEST_F(SlideHistoryTest, ManyStepsGoBackOneByOne) {
    std::vector<test::Look> looks = {look()};
    std::mt19937 random(3);
    const QString folder = browse({QStringLiteral("x.jpg"), QStringLiteral("y.gif")});
    const std::vector<std::function<void()>> ways = {[&] { list->AddAll(); },
                                                     [&] { list->Clear(); },
                                                     [&] { list->MoveBack(); },
                                                     [&] { list->Add(); },
                                                     [&] { list->MoveForward(); },
                                                     [&] { list->ClearAll(); },
                                                     [&] {
                                                         if (lvwSLIDEBAR->Count() > 0) {
                                                             edit(current(),
                                                                  QString::number(random()));
                                                         }
                                                     }};
    int steps = history().steps();
    while (looks.size() < 120) {
        for (int i = 1; i <= lvwSLIDEBAR->Count(); ++i) {
            lvwSLIDEBAR->item(i)->setSelected(random() % 3 == 0);
        }
        lvwSLIDEBAR->setSelectedItem(1 + static_cast<int>(random() % 7));
        selectFound({1 + static_cast<int>(random() % 2)});
        if (random() % 4 == 0) {
            unmodify();
        }
        looks.back() = look();
        ways[random() % ways.size()]();
        if (history().steps() != steps) {
            looks.push_back(look());
            steps = history().steps();
        }
    }
    for (std::size_t i = looks.size() - 1; i-- > 0;) {
        undo();
        ASSERT_EQ(look(), looks[i]) << i;
    }
}

TEST_F(SlideHistoryTest, TheSavedListIsUnmodifiedAndEveryOtherModified) {
    list->MoveForward();
    unmodify();
    history().saved();
    list->ClearAll();
    undo();
    EXPECT_FALSE(isModified());
    undo();
    EXPECT_TRUE(isModified());
    undo();
    EXPECT_TRUE(isModified());
    redo();
    redo();
    EXPECT_FALSE(isModified());
    redo();
    EXPECT_TRUE(isModified());
}

TEST_F(SlideHistoryTest, AnUndoThatIsSavedIsUnmodified) {
    list->ClearAll();
    undo();
    EXPECT_FALSE(isModified());
    redo();
    unmodify();
    history().saved();
    undo();
    EXPECT_TRUE(isModified());
    unmodify();
    history().saved();
    redo();
    EXPECT_TRUE(isModified());
    undo();
    EXPECT_FALSE(isModified());
}

TEST_F(SlideHistoryTest, TheKeyboardStaysInTheSlides) {
    form.activateWindow();
    lvwSLIDEBAR->setFocus();
    list->ClearAll();
    undo();
    EXPECT_FALSE(lvwSLIDEBAR->isHidden());
    EXPECT_EQ(form.focusWidget(), lvwSLIDEBAR);
}

TEST_F(SlideHistoryTest, UndoDuringAnAddFollowsIt) {
    const test::Look before = look();
    const QString folder = browse({QStringLiteral("x.jpg"), QStringLiteral("y.gif")});
    test::atNextYield([&] {
        commands.undo.trigger();
        commands.redo.trigger();
        commands.undo.trigger();
    });
    list->AddAll();
    EXPECT_EQ(keys().size(), 7);
    QCoreApplication::processEvents();
    EXPECT_EQ(look(), before);
    expectStored();
}

TEST_F(SlideHistoryTest, UndoDuringAnAddFollowsTheOneThatWaitsToo) {
    const QString folder = browse({QStringLiteral("x.jpg"), QStringLiteral("y.gif")});
    const QStringList y = {folder + QStringLiteral("/y.gif")};
    selectFound({2});
    test::atNextYield([&] {
        selectFound({1});
        list->Add();
        commands.undo.trigger();
    });
    list->Add();
    EXPECT_EQ(keys().size(), 7);
    QCoreApplication::processEvents();
    EXPECT_EQ(keys(), y + all);
}

TEST_F(SlideHistoryTest, AClosedWindowUndoesNoMore) {
    browse({QStringLiteral("x.jpg"), QStringLiteral("y.gif")});
    test::atNextYield([&] {
        commands.undo.trigger();
        list->stop();
    });
    list->AddAll();
    const test::Look after = look();
    QCoreApplication::processEvents();
    commands.undo.trigger();
    EXPECT_EQ(look(), after);
}

TEST_F(SlideHistoryTest, ACommandInsideAnAddIsAStepOfItsOwn) {
    const test::Look before = look();
    browse({QStringLiteral("w.jpg"), QStringLiteral("x.jpg"), QStringLiteral("y.jpg"),
            QStringLiteral("z.jpg")});
    QStringList inside;
    QObject::connect(&imlTHUMBNAILS, &ImageList::changed, list.get(), [&] {
        if (imlTHUMBNAILS.Count() == 7) {
            test::atNextYield([&] {
                inside = keys();
                selectSlides({1});
                list->Clear();
            });
        }
    });
    const int steps = history().steps();
    list->AddAll();
    const QStringList after = keys();
    ASSERT_FALSE(inside.isEmpty());
    // The slides before the command, the command, and what came after it.
    ASSERT_EQ(history().steps(), steps + 3);
    undo();
    EXPECT_EQ(keys().size(), inside.size() - 1);
    undo();
    EXPECT_EQ(keys(), inside);
    undo();
    EXPECT_EQ(look(), before);
    redo();
    redo();
    redo();
    EXPECT_EQ(keys(), after);
}

TEST_F(SlideHistoryTest, AListThatSomebodyElseHasChangedIsLeftAsItIs) {
    list->ClearAll();
    browse({QStringLiteral("x.jpg")});
    list->SlideInsert(0);
    const test::Look before = look();
    commands.undo.trigger();
    EXPECT_EQ(look(), before);
    EXPECT_EQ(history().steps(), 0);
}

TEST_F(SlideHistoryTest, AnEmptyListTellsOfUndo) {
    const auto told = [this] { return lvwSLIDEBAR->emptyState().words(); };
    list->ClearAll();
    EXPECT_TRUE(told().contains(QStringLiteral("Ctrl+Z"))) << told().toStdString();
    while (history().steps() > 0) {
        undo();
    }
    EXPECT_EQ(keys(), QStringList());
    EXPECT_EQ(told(), QString());
}

TEST_F(SlideHistoryTest, TheHistoryMayGoInTheMidstOfAStep) {
    browse({QStringLiteral("x.jpg")});
    test::atNextYield([&] {
        file.reset();
        list.reset();
    });
    list->AddAll();
    EXPECT_EQ(list, nullptr);
}

}  // namespace
}  // namespace velorama

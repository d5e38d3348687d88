#include "albums/slide_world.h"

#include <QSignalSpy>
#include <QTest>

namespace velorama {
namespace {

const QString a = QStringLiteral("/p/a.jpg");
const QString b = QStringLiteral("/p/b.jpg");
const QString c = QStringLiteral("/p/c.jpg");
const QString d = QStringLiteral("/p/d.jpg");

class SlideListTest : public test::WithSlides {
protected:
    /// Slides as an album would bring them, with an image each.
    void fill(const QStringList& paths) {
        for (const QString& path : paths) {
            imlTHUMBNAILS.Add(path, test::plainImage({90, 90}));
            lvwSLIDEBAR->Add(lvwSLIDEBAR->Count() + 1, path, path, thumbnails.SlideIconIndex(path));
        }
    }
    /// Enabled states as a row of digits: remove, remove all, start, the web album; move back and
    /// forward.
    QString toolbar() const {
        QString row;
        for (const Command* command :
             {&commands.remove, &commands.removeAll, &commands.start, &commands.createWebAlbum}) {
            row.append(QLatin1Char(command->isEnabled() ? '1' : '0'));
        }
        row.append(QLatin1Char(' '));
        for (const Command* command : {&commands.moveBack, &commands.moveForward}) {
            row.append(QLatin1Char(command->isEnabled() ? '1' : '0'));
        }
        return row;
    }
};

TEST_F(SlideListTest, toolbarOfAnEmptyList) {
    list->SelectChk();
    EXPECT_EQ(toolbar(), QStringLiteral("0000 00"));
}

TEST_F(SlideListTest, toolbarFollowsTheCurrentItem) {
    fill({a, b, c});
    struct Row {
        int current;
        const char* expected;
    };
    for (const Row& row : {Row{1, "1111 01"}, Row{2, "1111 11"}, Row{3, "1111 10"}}) {
        lvwSLIDEBAR->setSelectedItem(row.current);
        list->SelectChk();
        EXPECT_EQ(toolbar(), QString::fromLatin1(row.expected)) << row.current;
    }
}

TEST_F(SlideListTest, toolbarFollowsKeysAndTheRightButton) {
    fill({a, b, c});
    list->SelectChk();
    QTest::keyClick(lvwSLIDEBAR, Qt::Key_End);
    EXPECT_EQ(toolbar(), QStringLiteral("1111 10"));
    QTest::keyClick(lvwSLIDEBAR, Qt::Key_Left);
    EXPECT_EQ(toolbar(), QStringLiteral("1111 11"));
    ActiveList = QStringLiteral("FOUND");
    const QRect first = lvwSLIDEBAR->visualRect(lvwSLIDEBAR->model()->index(0, 0));
    QTest::mouseClick(lvwSLIDEBAR->viewport(), Qt::RightButton, {}, first.center());
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(toolbar(), QStringLiteral("1111 01"));
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    EXPECT_EQ(popups.size(), 1U);
}

// Another page than that of the found list is on show.
TEST_F(SlideListTest, addLeavesTheKeyboardWhereItIsWhileTheFoundListIsNotInSight) {
    browse({QStringLiteral("a.jpg")});
    selectFound({1});
    QWidget page(&form);
    QWidget other(&form);
    lvwFOUND->setParent(&page);
    page.hide();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    other.show();
    for (QWidget* where : {&other, static_cast<QWidget*>(lvwSLIDEBAR)}) {
        where->setFocusPolicy(Qt::StrongFocus);
        where->setFocus();
        ActiveList = QStringLiteral("SELECTED");
        list->Add();
        EXPECT_EQ(form.focusWidget(), where);
        EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
        page.show();
        EXPECT_EQ(form.focusWidget(), where);
        EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
        page.hide();
    }
    page.show();
    list->Add();
    EXPECT_TRUE(lvwFOUND->hasFocus());
    lvwFOUND->setParent(&form);
}

TEST_F(SlideListTest, singleSlideCountsAsTheFirst) {
    fill({a});
    list->SelectChk();
    EXPECT_EQ(toolbar(), QStringLiteral("1111 01"));
    list->MoveForward();
    EXPECT_EQ(keys(), QStringList(a));
}

TEST_F(SlideListTest, widthFollowsTheForm) {
    list->SelectChk();
    // 700 pixels less 120 twips on each side.
    EXPECT_EQ(Width(*lvwSLIDEBAR), 10500 - 240);
    EXPECT_EQ(lvwSLIDEBAR->width(), 684);
}

TEST_F(SlideListTest, foundButtonsFollowTheFolder) {
    list->FoundButtonsCheck();
    EXPECT_FALSE(commands.add.isEnabled());
    EXPECT_FALSE(commands.addAll.isEnabled());
    EXPECT_FALSE(commands.start.isEnabled());
    browse({QStringLiteral("a.jpg")});
    fill({a});
    list->FoundButtonsCheck();
    EXPECT_TRUE(commands.add.isEnabled());
    EXPECT_TRUE(commands.addAll.isEnabled());
    EXPECT_TRUE(commands.start.isEnabled());
}

TEST_F(SlideListTest, saveWritesCountAndPathsAndLeavesTheRest) {
    fill({a, b, c});
    list->SELECTIONSAVE();
    EXPECT_EQ(storedCount(), QStringLiteral("3"));
    EXPECT_EQ(storedSlides(3), QStringList({a, b, c}));
    lvwSLIDEBAR->Remove(1);
    list->SELECTIONSAVE();
    EXPECT_EQ(storedCount(), QStringLiteral("2"));
    EXPECT_EQ(storedSlides(3), QStringList({b, c, c}));
}

TEST_F(SlideListTest, clearRemovesAllSelected) {
    fill({a, b, c, d});
    list->SELECTIONSAVE();
    selectSlides({1, 3});
    unmodify();
    list->Clear();
    EXPECT_EQ(keys(), QStringList({b, d}));
    // The count before the removal, until the next save.
    EXPECT_EQ(storedCount(), QStringLiteral("4"));
    EXPECT_EQ(storedSlides(4), QStringList({a, b, c, d}));
    EXPECT_EQ(selected(), std::vector<int>{current()});
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    EXPECT_TRUE(isModified());
    EXPECT_TRUE(commands.saveAs.isEnabled());
    EXPECT_TRUE(lvwSLIDEBAR->isVisible());
    EXPECT_EQ(imlTHUMBNAILS.Count(), 4);
    list->SELECTIONSAVE();
    EXPECT_EQ(storedCount(), QStringLiteral("2"));
    EXPECT_EQ(storedSlides(2), QStringList({b, d}));
}

TEST_F(SlideListTest, clearWithNothingSelectedRemovesTheLast) {
    fill({a, b, c});
    list->Clear();
    EXPECT_EQ(keys(), QStringList({a, b}));
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(selected(), std::vector<int>{1});
    EXPECT_EQ(toolbar(), QStringLiteral("1111 01"));
}

TEST_F(SlideListTest, clearOfTheLastSlideSwitchesTheToolbarOff) {
    fill({a});
    list->Clear();
    EXPECT_EQ(toolbar(), QStringLiteral("0000 00"));
    EXPECT_EQ(storedCount(), QStringLiteral("1"));
    list->Clear();
    EXPECT_EQ(storedCount(), QStringLiteral("0"));
    EXPECT_TRUE(isModified());
}

TEST_F(SlideListTest, clearAllBlanksExactlyTheOldCount) {
    fill({a, b, c, d});
    list->SELECTIONSAVE();
    lvwSLIDEBAR->Remove(4);
    list->SELECTIONSAVE();
    unmodify();
    list->ClearAll();
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(storedCount(), QStringLiteral("0"));
    EXPECT_EQ(storedSlides(5),
              QStringList({QString(), QString(), QString(), d, QStringLiteral("absent")}));
    EXPECT_EQ(loadSetting(QStringLiteral("frmSLIDESHOW\\Selection"), QStringLiteral("1"),
                          QStringLiteral("1")),
              QString(255, u' '));
    EXPECT_EQ(toolbar(), QStringLiteral("0000 00"));
    EXPECT_TRUE(isModified());
    EXPECT_TRUE(commands.saveAs.isEnabled());
    EXPECT_EQ(imlTHUMBNAILS.Count(), 4);
}

TEST_F(SlideListTest, clearAllWithoutAStoredCountWritesNothing) {
    fill({a});
    list->ClearAll();
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(storedCount(), std::nullopt);
    EXPECT_EQ(storedSlide(1), std::nullopt);
}

TEST_F(SlideListTest, clearAllTrustsTheStoredCount) {
    fill({a, b});
    list->SELECTIONSAVE();
    list->Clear();
    list->Clear();
    list->ClearAll();
    // The second removal had written 1.
    EXPECT_EQ(storedSlides(2), QStringList({QString(), b}));
}

TEST_F(SlideListTest, moveTowardsTheStart) {
    const QString folder = browse({QStringLiteral("a.bmp"), QStringLiteral("b.bmp")});
    list->AddAll();
    lvwSLIDEBAR->item(1)->setText(QStringLiteral("mine"));
    selectSlides({2});
    unmodify();
    list->MoveBack();
    EXPECT_EQ(keys(),
              QStringList({folder + QStringLiteral("/b.bmp"), folder + QStringLiteral("/a.bmp")}));
    EXPECT_EQ(texts(), QStringList({QStringLiteral("b.bmp"), QStringLiteral("a.bmp")}));
    EXPECT_EQ(lvwSLIDEBAR->item(1)->Icon(), imlTHUMBNAILS.indexOf(keys()[0]));
    EXPECT_EQ(lvwSLIDEBAR->item(2)->Icon(), imlTHUMBNAILS.indexOf(keys()[1]));
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(selected(), std::vector<int>{1});
    EXPECT_EQ(storedCount(), QStringLiteral("2"));
    EXPECT_EQ(storedSlides(2), keys());
    EXPECT_TRUE(isModified());
    EXPECT_TRUE(commands.saveAs.isEnabled());
}

TEST_F(SlideListTest, moveStopsAtTheEnds) {
    fill({a, b, c});
    unmodify();
    lvwSLIDEBAR->setSelectedItem(1);
    list->MoveBack();
    lvwSLIDEBAR->setSelectedItem(3);
    list->MoveForward();
    EXPECT_EQ(keys(), QStringList({a, b, c}));
    EXPECT_FALSE(isModified());
    EXPECT_EQ(storedCount(), std::nullopt);
    lvwSLIDEBAR->setSelectedItem(1);
    list->MoveForward();
    list->MoveForward();
    EXPECT_EQ(keys(), QStringList({b, c, a}));
    EXPECT_EQ(current(), 3);
    EXPECT_EQ(selected(), std::vector<int>{3});
}

TEST_F(SlideListTest, moveInAnEmptyListDoesNothing) {
    unmodify();
    list->MoveBack();
    list->MoveForward();
    EXPECT_FALSE(isModified());
}

TEST_F(SlideListTest, labelEditDropsCommasAndMarks) {
    fill({a, b});
    unmodify();
    lvwSLIDEBAR->setSelectedItem(2);
    lvwSLIDEBAR->item(2)->setText(QStringLiteral("a,b"));
    emit lvwSLIDEBAR->AfterLabelEdit(QStringLiteral("a,b"));
    EXPECT_EQ(texts(), QStringList({a, QStringLiteral("ab")}));
    EXPECT_EQ(keys(), QStringList({a, b}));
    EXPECT_TRUE(isModified());
    EXPECT_FALSE(commands.saveAs.isEnabled());
    unmodify();
    emit lvwSLIDEBAR->AfterLabelEdit(QStringLiteral("plain"));
    EXPECT_EQ(lvwSLIDEBAR->item(2)->Text(), QStringLiteral("ab"));
    EXPECT_TRUE(isModified());
}

TEST_F(SlideListTest, keyTable) {
    QSignalSpy clears(&commands.remove, &QAction::triggered);
    QSignalSpy adds(&commands.add, &QAction::triggered);
    struct Row {
        int code;
        int shift;
        int clears;
        int adds;
    };
    for (const Row& row :
         {Row{46, 2, 1, 0}, Row{46, 0, 0, 0}, Row{46, 3, 0, 0}, Row{45, 0, 0, 1}, Row{45, 1, 0, 1},
          Row{45, 4, 0, 1}, Row{45, 3, 0, 1}, Row{45, 2, 0, 0}, Row{13, 0, 0, 0}}) {
        clears.clear();
        adds.clear();
        commands.remove.setEnabled(true);
        commands.add.setEnabled(true);
        list->ListKeysCheck(row.code, row.shift);
        EXPECT_EQ(clears.count(), row.clears) << row.code << " " << row.shift;
        EXPECT_EQ(adds.count(), row.adds) << row.code << " " << row.shift;
    }
    commands.remove.setEnabled(false);
    commands.add.setEnabled(false);
    clears.clear();
    adds.clear();
    list->ListKeysCheck(46, 2);
    list->ListKeysCheck(45, 0);
    EXPECT_EQ(clears.count() + adds.count(), 0);
}

TEST_F(SlideListTest, touchingTheListMakesItActive) {
    emit lvwSLIDEBAR->GotFocus();
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    ActiveList.clear();
    fill({a});
    emit lvwSLIDEBAR->Click();
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    EXPECT_EQ(toolbar(), QStringLiteral("1111 01"));
}

TEST_F(SlideListTest, doubleClickRemoves) {
    fill({a, b});
    selectSlides({1});
    emit lvwSLIDEBAR->DblClick();
    EXPECT_EQ(keys(), QStringList(b));
}

TEST_F(SlideListTest, keysOfAnEmptyListDoNothing) {
    ActiveList.clear();
    QSignalSpy adds(&commands.add, &QAction::triggered);
    emit lvwSLIDEBAR->KeyDown(KeyContextMenu, 0);
    emit lvwSLIDEBAR->KeyDown(KeyInsert, 0);
    emit lvwSLIDEBAR->MouseUp(2, 0, 5, 5);
    EXPECT_TRUE(popups.empty());
    EXPECT_EQ(adds.count(), 0);
    EXPECT_TRUE(ActiveList.isEmpty());
}

TEST_F(SlideListTest, contextMenuKeyShowsTheFoundListsMenu) {
    fill({a});
    emit lvwSLIDEBAR->KeyDown(KeyContextMenu, 0);
    ASSERT_EQ(popups.size(), 1U);
    EXPECT_EQ(popups[0], (PopupRequest{PopupRequest::Menu::mnuFOUNDTOP, 320, 4500, false}));
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    emit lvwSLIDEBAR->KeyDown(KeyDelete, CtrlDown);
    EXPECT_EQ(lvwSLIDEBAR->Count(), 0);
    EXPECT_EQ(popups.size(), 1U);
}

TEST_F(SlideListTest, rightButtonShowsTheSlidesMenuWithRemoveAsDefault) {
    fill({a});
    emit lvwSLIDEBAR->MouseUp(1, 0, 30, 60);
    EXPECT_TRUE(popups.empty());
    emit lvwSLIDEBAR->MouseUp(2, 0, 30, 60);
    ASSERT_EQ(popups.size(), 1U);
    EXPECT_EQ(popups[0], (PopupRequest{PopupRequest::Menu::mnuSELECTEDTOP, 150, 4560, true}));
}

TEST_F(SlideListTest, firstSlideIsSelectedAlone) {
    list->selectFirstSlide();
    EXPECT_TRUE(ActiveList.isEmpty());
    fill({a, b, c});
    selectSlides({2, 3});
    list->selectFirstSlide();
    EXPECT_EQ(selected(), std::vector<int>{1});
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(ActiveList, QStringLiteral("SELECTED"));
    EXPECT_EQ(toolbar(), QStringLiteral("1111 01"));
}

}  // namespace
}  // namespace velorama

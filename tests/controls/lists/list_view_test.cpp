#include "controls/lists/list_view.h"

#include "controls/lists/list_delegate.h"
#include "controls/lists/list_model.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace velorama {
namespace {

using Mode = QAbstractItemModelTester::FailureReportingMode;

QString key(int number) {
    return QStringLiteral("/pics/%1.jpg").arg(number);
}

class List : public testing::Test {
protected:
    List() { list.resize(600, 300); }

    void fill(int count) {
        for (int number = 1; number <= count; ++number) {
            list.Add(number, key(number), QStringLiteral("%1.jpg").arg(number), 0);
        }
    }
    void show() {
        list.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    }
    QString texts() const {
        QStringList all;
        for (int index = 1; index <= list.Count(); ++index) {
            all.append(list.item(index)->Text().section(u'.', 0, 0));
        }
        return all.join(u' ');
    }
    QString selected() const {
        QStringList all;
        for (int index = 1; index <= list.Count(); ++index) {
            if (list.item(index)->Selected()) {
                all.append(QString::number(index));
            }
        }
        return all.join(u' ');
    }
    int current() const { return list.SelectedItem() ? list.SelectedItem()->Index() : 0; }
    QRect cell(int index) const { return list.visualRect(list.model()->index(index - 1, 0)); }
    // On the cell, above the caption.
    QPoint spot(int index) const { return {cell(index).center().x(), cell(index).top() + 3}; }
    void click(int index, Qt::KeyboardModifiers held = {},
               Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(list.viewport(), button, held, spot(index));
    }
    QLineEdit* editor() const { return list.viewport()->findChild<QLineEdit*>(); }

    ListView list;
};

// -- items --

TEST_F(List, InsertsAtAPosition) {
    fill(3);
    ListItem* added = list.Add(2, key(9), QStringLiteral("9.jpg"), 4);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(texts(), QStringLiteral("1 9 2 3"));
    EXPECT_EQ(added->Index(), 2);
    EXPECT_EQ(added->Icon(), 4);
    EXPECT_EQ(list.item(key(9)), added);
    EXPECT_EQ(list.item(4)->Index(), 4);
}

TEST_F(List, RefusesAPositionOutsideAndARepeatedKey) {
    fill(2);
    EXPECT_EQ(list.Add(0, key(8), QString(), 0), nullptr);
    EXPECT_EQ(list.Add(4, key(8), QString(), 0), nullptr);
    EXPECT_EQ(list.Add(1, key(2), QString(), 0), nullptr);
    EXPECT_EQ(texts(), QStringLiteral("1 2"));
    EXPECT_EQ(list.item(0), nullptr);
    EXPECT_EQ(list.item(3), nullptr);
    EXPECT_EQ(list.item(key(8)), nullptr);
    EXPECT_EQ(list.item(QString()), nullptr);
}

TEST_F(List, EmptyKeysMayRepeat) {
    EXPECT_NE(list.Add(1, QString(), QStringLiteral("a"), 0), nullptr);
    EXPECT_NE(list.Add(1, QString(), QStringLiteral("b"), 0), nullptr);
    EXPECT_EQ(list.Count(), 2);
}

TEST_F(List, KeysAreExchangedByWayOfATemporaryOne) {
    fill(2);
    ListItem* s = list.item(1);
    ListItem* t = list.item(2);
    EXPECT_FALSE(s->setKey(key(2)));
    EXPECT_EQ(s->Key(), key(1));
    EXPECT_TRUE(s->setKey(key(1) + QStringLiteral("12:00:00")));
    EXPECT_TRUE(t->setKey(key(1)));
    EXPECT_TRUE(s->setKey(QString()));
    EXPECT_TRUE(s->setKey(key(2)));
    EXPECT_EQ(list.item(key(1)), t);
    EXPECT_EQ(list.item(key(2)), s);
    EXPECT_TRUE(s->setKey(key(2)));
}

TEST_F(List, TheFirstItemAddedIsCurrentAndStaysSo) {
    EXPECT_EQ(list.SelectedItem(), nullptr);
    fill(1);
    EXPECT_EQ(current(), 1);
    EXPECT_EQ(selected(), QString());
    list.Add(1, key(7), QStringLiteral("7"), 0);
    EXPECT_EQ(current(), 2);
}

TEST_F(List, RemovingTheCurrentItemMakesItsSuccessorCurrent) {
    fill(3);
    list.setSelectedItem(2);
    EXPECT_TRUE(list.Remove(2));
    EXPECT_EQ(list.SelectedItem()->Key(), key(3));
    EXPECT_TRUE(list.Remove(2));
    EXPECT_EQ(list.SelectedItem()->Key(), key(1));
    EXPECT_FALSE(list.Remove(2));
    EXPECT_FALSE(list.Remove(0));
    EXPECT_TRUE(list.Remove(1));
    EXPECT_EQ(list.SelectedItem(), nullptr);
    EXPECT_NE(list.Add(1, key(1), QString(), 0), nullptr) << "its key is free again";
}

TEST_F(List, RemovingAnotherItemKeepsTheCurrentOne) {
    fill(3);
    list.setSelectedItem(3);
    list.Remove(1);
    EXPECT_EQ(list.SelectedItem()->Key(), key(3));
    EXPECT_EQ(current(), 2);
}

TEST_F(List, ClearEmptiesIt) {
    fill(3);
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list.SelectedItem(), nullptr);
    EXPECT_EQ(list.item(key(1)), nullptr);
    fill(2);
    EXPECT_EQ(current(), 1);
}

TEST_F(List, TheSelectionTravelsWithTheItems) {
    fill(3);
    list.item(2)->setSelected(true);
    list.Add(1, key(9), QStringLiteral("9"), 0);
    EXPECT_EQ(selected(), QStringLiteral("3"));
    list.Remove(1);
    EXPECT_EQ(selected(), QStringLiteral("2"));
    list.clearSelection();
    EXPECT_EQ(selected(), QString());
    EXPECT_EQ(current(), 2);
}

TEST_F(List, SelectingMakesCurrentButNotTheOtherWayRound) {
    fill(3);
    show();
    list.item(2)->setSelected(true);
    EXPECT_EQ(current(), 2);
    list.setSelectedItem(3);
    EXPECT_EQ(current(), 3);
    EXPECT_EQ(selected(), QStringLiteral("2"));
    list.item(2)->setSelected(false);
    EXPECT_EQ(selected(), QString());
    EXPECT_EQ(current(), 3);
    list.setSelectedItem(4);
    list.setSelectedItem(0);
    EXPECT_EQ(current(), 3);
}

// Each batch is compared with the model that Qt works on once it is to be seen.
TEST_F(List, ThousandsAreSelectedInOneGo) {
    fill(20000);
    show();
    list.item(7)->setSelected(true);
    std::vector<int> places = {0, 20001};
    for (int place = 20000; place > 100; --place) {
        places.push_back(place);
    }
    const QSignalSpy told(list.selectionModel(), &QItemSelectionModel::selectionChanged);
    list.select(places, 15000);
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(list.SelectedCount(), 19900);
    EXPECT_EQ(list.selectionModel()->selectedRows().size(), 19900);
    EXPECT_FALSE(list.item(7)->Selected());
    EXPECT_EQ(current(), 15000);
    EXPECT_EQ(list.currentIndex().row(), 14999);
    EXPECT_TRUE(list.viewport()->rect().contains(cell(15000)));
    list.select({}, 0);
    EXPECT_EQ(list.SelectedCount(), 0);
    EXPECT_FALSE(list.selectionModel()->hasSelection());
    EXPECT_EQ(current(), 15000);
}

TEST_F(List, WhatIsSelectedWithoutTheViewComesWithIt) {
    fill(5);
    list.select({2, 4}, 3);
    EXPECT_EQ(selected(), QStringLiteral("2 4"));
    show();
    EXPECT_EQ(list.selectionModel()->selectedRows().size(), 2);
    EXPECT_EQ(list.currentIndex().row(), 2);
}

TEST_F(List, TheModelStandsUpToTheTester) {
    const QAbstractItemModelTester tester(list.model(), Mode::Fatal);
    show();
    fill(30);
    QCoreApplication::processEvents();
    EXPECT_EQ(list.model()->rowCount(), 30);
    list.item(4)->setSelected(true);
    list.item(5)->setSelected(true);
    list.item(9)->setSelected(true);
    list.Remove(1);
    list.Add(2, key(99), QStringLiteral("99"), 0);
    list.item(2)->setText(QStringLiteral("new"));
    QCoreApplication::processEvents();
    EXPECT_EQ(list.model()->rowCount(), 30);
    EXPECT_EQ(list.model()->index(1, 0).data().toString(), QStringLiteral("new"));
    EXPECT_EQ(list.selectionModel()->selectedRows().size(), 3);
    EXPECT_EQ(selected(), QStringLiteral("4 5 9"));
    EXPECT_EQ(list.currentIndex().row(), 8);
    list.Clear();
    QCoreApplication::processEvents();
    EXPECT_EQ(list.model()->rowCount(), 0);
}

TEST_F(List, AHiddenListIsFilledWithoutTheViewTakingPart) {
    fill(1);
    show();
    list.hide();
    QSignalSpy resets(list.model(), &QAbstractItemModel::modelReset);
    for (int number = 2; number <= 4000; ++number) {
        ASSERT_NE(list.Add(1, key(number), QStringLiteral("x"), 0), nullptr);
        if (number % 500 == 0) {
            QCoreApplication::processEvents();
        }
    }
    EXPECT_EQ(resets.size(), 1) << "withdrawn once, published by nobody";
    list.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(list.model()->rowCount(), 4000);
    EXPECT_EQ(current(), 4000);
}

TEST_F(List, DiesWithItsItems) {
    auto other = std::make_unique<ListView>();
    other->show();
    other->Add(1, key(1), QStringLiteral("a"), 0);
    other->item(1)->setSelected(true);
    QCoreApplication::processEvents();
    other->Add(1, key(2), QStringLiteral("b"), 0);
    other.reset();
    QCoreApplication::processEvents();
}

// -- the user's hand --

TEST_F(List, AClickSelectsOneItem) {
    fill(5);
    show();
    list.item(1)->setSelected(true);
    QSignalSpy clicks(&list, &ListView::Click);
    QSignalSpy ups(&list, &ListView::MouseUp);
    click(3);
    EXPECT_EQ(selected(), QStringLiteral("3"));
    EXPECT_EQ(current(), 3);
    EXPECT_EQ(clicks.size(), 1);
    ASSERT_EQ(ups.size(), 1);
    EXPECT_EQ(ups[0][0].toInt(), 1);
    EXPECT_EQ(ups[0][2].toFloat(), static_cast<float>(spot(3).x()) * 15);
    EXPECT_EQ(ups[0][3].toFloat(), static_cast<float>(spot(3).y()) * 15);
}

TEST_F(List, AClickComesWithTheRelease) {
    fill(2);
    show();
    QSignalSpy clicks(&list, &ListView::Click);
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, cell(1).center());
    EXPECT_EQ(clicks.size(), 0);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, cell(1).center());
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(List, AClickBesideTheItemsUnselectsAndIsAClick) {
    fill(2);
    show();
    list.item(2)->setSelected(true);
    QSignalSpy clicks(&list, &ListView::Click);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {590, 290});
    EXPECT_EQ(selected(), QString());
    EXPECT_EQ(current(), 2);
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(List, ControlAndShiftSelectSeveral) {
    fill(5);
    show();
    click(2);
    click(4, Qt::ControlModifier);
    EXPECT_EQ(selected(), QStringLiteral("2 4"));
    click(5, Qt::ShiftModifier);
    EXPECT_EQ(selected(), QStringLiteral("4 5"));
    click(4, Qt::ControlModifier);
    EXPECT_EQ(selected(), QStringLiteral("5"));
}

TEST_F(List, ARubberBandSelectsWhatItTouches) {
    fill(4);
    show();
    const QPoint from(cell(4).right() + 20, cell(4).bottom() + 30);
    QTest::mousePress(list.viewport(), Qt::LeftButton, {}, from);
    QTest::mouseMove(list.viewport(), cell(3).center());
    QMouseEvent move(QEvent::MouseMove, cell(3).center(),
                     list.viewport()->mapToGlobal(cell(3).center()), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(list.viewport(), &move);
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, cell(3).center());
    EXPECT_EQ(selected(), QStringLiteral("3 4"));
}

TEST_F(List, TheRightButtonSelectsAndIsNoClick) {
    fill(3);
    show();
    QSignalSpy clicks(&list, &ListView::Click);
    QSignalSpy ups(&list, &ListView::MouseUp);
    click(2, {}, Qt::RightButton);
    EXPECT_EQ(selected(), QStringLiteral("2"));
    EXPECT_EQ(clicks.size(), 0);
    ASSERT_EQ(ups.size(), 1);
    EXPECT_EQ(ups[0][0].toInt(), 2);
    click(2, {}, Qt::MiddleButton);
    EXPECT_EQ(ups[1][0].toInt(), 4);
}

TEST_F(List, TheRightButtonKeepsASelectionItHits) {
    fill(3);
    show();
    list.item(1)->setSelected(true);
    list.item(2)->setSelected(true);
    click(2, {}, Qt::RightButton);
    EXPECT_EQ(selected(), QStringLiteral("1 2"));
}

TEST_F(List, ADoubleClickIsNotTwoClicks) {
    fill(3);
    show();
    QStringList events;
    QObject::connect(&list, &ListView::Click, [&] { events.append(QStringLiteral("click")); });
    QObject::connect(&list, &ListView::DblClick, [&] { events.append(QStringLiteral("double")); });
    QObject::connect(&list, &ListView::MouseUp, [&] { events.append(QStringLiteral("up")); });
    click(2);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, spot(2));
    QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, spot(2));
    EXPECT_EQ(events.join(u' '), QStringLiteral("up click double up"));
}

TEST_F(List, ADoubleClickMayRemoveWhatItHit) {
    fill(3);
    show();
    QObject::connect(&list, &ListView::DblClick, [&] { list.Remove(current()); });
    click(2);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, cell(2).center());
    EXPECT_EQ(texts(), QStringLiteral("1 3"));
}

TEST_F(List, ADoubleClickBesideTheItemsIsNone) {
    fill(3);
    show();
    QSignalSpy doubles(&list, &ListView::DblClick);
    const QPoint beside(cell(3).right() + 40, cell(3).center().y());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, beside);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, beside);
    EXPECT_EQ(doubles.size(), 0);
}

TEST_F(List, KeysComeBeforeTheListsOwnHandling) {
    fill(3);
    show();
    QStringList events;
    QObject::connect(&list, &ListView::KeyDown, [&](int code, int shift) {
        events.append(QStringLiteral("%1/%2@%3").arg(code).arg(shift).arg(current()));
    });
    QObject::connect(&list, &ListView::KeyPress,
                     [&](int ascii) { events.append(QStringLiteral("press %1").arg(ascii)); });
    QTest::keyClick(&list, Qt::Key_Right);
    EXPECT_EQ(current(), 2);
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::keyClick(&list, Qt::Key_Delete, Qt::ControlModifier);
    QTest::keyClick(&list, Qt::Key_Insert);
    EXPECT_EQ(events.join(u',').toStdString(), "39/0@1,13/0@2,press 13,17/2@2,46/2@2,45/0@2");
}

TEST_F(List, KeysWalkAndSelect) {
    fill(9);
    show();
    QTest::keyClick(&list, Qt::Key_End);
    EXPECT_EQ(current(), 9);
    EXPECT_EQ(selected(), QStringLiteral("9"));
    QTest::keyClick(&list, Qt::Key_Home);
    EXPECT_EQ(selected(), QStringLiteral("1"));
    QTest::keyClick(&list, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(selected(), QStringLiteral("1 2"));
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selected(), QStringLiteral("1 2 3 4 5 6 7 8 9"));
    EXPECT_EQ(current(), 2);
}

TEST_F(List, AKeyMayEmptyTheList) {
    fill(3);
    show();
    QObject::connect(&list, &ListView::KeyDown, [&] { list.Clear(); });
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.Count(), 0);
}

TEST_F(List, TheContextMenuKeyIsTheOwnersAlone) {
    class Outer : public QWidget {
    public:
        int menus = 0;
        void contextMenuEvent(QContextMenuEvent*) override { ++menus; }
    } outer;
    auto* inner = new ListView(&outer);
    QSignalSpy keys(inner, &ListView::KeyDown);
    outer.show();
    inner->Add(1, key(1), QStringLiteral("a"), 0);
    QTest::keyClick(inner, Qt::Key_Menu);
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(inner, &byKey);
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, {5, 5}, {5, 5});
    QCoreApplication::sendEvent(inner->viewport(), &byMouse);
    EXPECT_EQ(outer.menus, 0);
    ASSERT_EQ(keys.size(), 1);
    EXPECT_EQ(keys[0][0].toInt(), 93);
}

TEST_F(List, FocusIsTold) {
    QSignalSpy focus(&list, &ListView::GotFocus);
    fill(2);
    QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&list, &event);
    EXPECT_EQ(focus.size(), 1);
    EXPECT_EQ(selected(), QString());
}

// -- the caption edited in place --

TEST_F(List, F2EditsTheCaption) {
    fill(2);
    show();
    QSignalSpy edits(&list, &ListView::AfterLabelEdit);
    list.setSelectedItem(2);
    QTest::keyClick(&list, Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->text(), QStringLiteral("2.jpg"));
    editor()->setText(QStringLiteral("a,b"));
    QTest::keyClick(editor(), Qt::Key_Return);
    QCoreApplication::processEvents();
    ASSERT_EQ(edits.size(), 1);
    EXPECT_EQ(edits[0][0].toString(), QStringLiteral("a,b"));
    EXPECT_EQ(list.item(2)->Text(), QStringLiteral("a,b"));
    EXPECT_EQ(list.item(2)->Key(), key(2));
}

TEST_F(List, ACaptionTakesOneLineAndKeepsTheLinesOfAFileName) {
    fill(1);
    list.item(1)->setText(QStringLiteral("two\nlines.jpg"));
    show();
    QTest::keyClick(&list, Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    editor()->home(false);
    QApplication::clipboard()->setText(QStringLiteral("not \r\nthree "));
    editor()->paste();
    QTest::keyClick(editor(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(list.item(1)->Text(), QStringLiteral("not two\nlines.jpg"));
}

TEST_F(List, AClickOnTheCaptionEditsItOnlyWhereTheListHadTheFocus) {
    QWidget form;
    QLineEdit other(&form);
    list.setParent(&form);
    list.move(0, 40);
    form.resize(700, 400);
    fill(2);
    form.show();
    form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    list.item(1)->setSelected(true);
    other.setFocus();
    const QPoint caption(cell(1).center().x(), cell(1).bottom() - 6);
    const int usual = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(20);
    const auto clickCaption = [&] {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, caption);
        // The editor opens when no double click can come any more.
        bool past = false;
        QTimer::singleShot(2 * QApplication::doubleClickInterval(), &form, [&] { past = true; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return past; }, 20000));
    };
    clickCaption();
    EXPECT_TRUE(list.hasFocus());
    EXPECT_EQ(editor(), nullptr);
    clickCaption();
    EXPECT_NE(editor(), nullptr);
    QApplication::setDoubleClickInterval(usual);
    list.setParent(nullptr);
}

TEST_F(List, TheOwnerMayMendTheEditedText) {
    fill(1);
    show();
    QObject::connect(&list, &ListView::AfterLabelEdit, [&](const QString& text) {
        list.SelectedItem()->setText(QString(text).remove(u','));
    });
    QTest::keyClick(&list, Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    editor()->setText(QStringLiteral("a,b"));
    QTest::keyClick(editor(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(list.item(1)->Text(), QStringLiteral("ab"));
}

TEST_F(List, EscapeLeavesTheCaption) {
    fill(1);
    show();
    QSignalSpy edits(&list, &ListView::AfterLabelEdit);
    QTest::keyClick(&list, Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    editor()->setText(QStringLiteral("x"));
    QTest::keyClick(editor(), Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_EQ(edits.size(), 0);
    EXPECT_EQ(list.item(1)->Text(), QStringLiteral("1.jpg"));
}

TEST_F(List, AnOpenEditorDoesNotOutliveItsRows) {
    fill(2);
    show();
    QSignalSpy edits(&list, &ListView::AfterLabelEdit);
    QTest::keyClick(&list, Qt::Key_F2);
    ASSERT_NE(editor(), nullptr);
    list.Clear();
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(editor(), nullptr);
    EXPECT_EQ(edits.size(), 0);
}

// -- arrangement and looks --

TEST_F(List, WrapsOrStandsInOneRow) {
    fill(40);
    show();
    EXPECT_GT(cell(40).top(), cell(1).top());
    EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
    list.setArrangement(ListView::Arrangement::Strip);
    QCoreApplication::processEvents();
    EXPECT_EQ(cell(40).top(), cell(1).top());
    EXPECT_GT(list.horizontalScrollBar()->maximum(), 0);
    EXPECT_EQ(list.verticalScrollBar()->maximum(), 0);
}

TEST_F(List, TheWheelMovesAStripSideways) {
    list.setArrangement(ListView::Arrangement::Strip);
    fill(40);
    show();
    QCoreApplication::processEvents();
    QWheelEvent wheel({10, 10}, list.viewport()->mapToGlobal(QPointF(10, 10)), {}, {0, -120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(list.viewport(), &wheel);
    EXPECT_GT(list.horizontalScrollBar()->value(), 0);
}

TEST_F(List, AChangeKeepsThePlaceAndAClearGoesToTheStart) {
    fill(200);
    show();
    QCoreApplication::processEvents();
    list.verticalScrollBar()->setValue(300);
    list.Remove(200);
    QCoreApplication::processEvents();
    EXPECT_EQ(list.verticalScrollBar()->value(), 300);
    list.Clear();
    fill(200);
    QCoreApplication::processEvents();
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
}

TEST_F(List, CellsFollowTheImageSize) {
    ImageList icons;
    icons.setImageSize({64, 64});
    fill(2);
    show();
    list.setIcons(&icons);
    QCoreApplication::processEvents();
    const int small = cell(1).height();
    icons.setImageSize({90, 90});
    icons.Add(QStringLiteral("a"), QImage());
    QCoreApplication::processEvents();
    EXPECT_EQ(cell(1).height(), small + 26);
    list.setIcons(nullptr);
    EXPECT_EQ(list.Icons(), nullptr);
}

// What is left of a row goes to its cells.
TEST_F(List, ARowIsFilledToItsEnd) {
    fill(40);
    show();
    for (const int width : {400, 523, 777}) {
        list.resize(width, 300);
        QCoreApplication::processEvents();
        int last = 1;
        while (cell(last + 1).y() == cell(1).y()) {
            ++last;
        }
        EXPECT_GE(cell(last).right(), list.viewport()->width() - last - 24) << width;
        EXPECT_LT(last * 104, width) << width;
    }
}

TEST_F(List, AnImageIsPaintedPixelForPixel) {
    ImageList icons;
    QImage image(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            image.setPixel(x, y, qRgb(x * 4, y * 4, (x ^ y) * 4));
        }
    }
    icons.Add(key(1), image);
    list.setIcons(&icons);
    fill(1);
    list.item(1)->setIcon(1);
    show();
    const QRect area =
        qobject_cast<ListDelegate*>(list.itemDelegate())->imageArea(cell(1), list.fontMetrics());
    const QPoint corner(area.x() + (area.width() - 64) / 2, area.y() + (area.height() - 64) / 2);
    const QImage painted = list.viewport()
                               ->grab(QRect(corner, QSize(64, 64)))
                               .toImage()
                               .convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(painted, image);
}

// Every other column is white: a picture that fell between the pixels of the screen would be grey.
TEST_F(List, AnImageIsCrispAtEveryScale) {
    fill(1);
    list.item(1)->setIcon(1);
    show();
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        ImageList icons;
        const int side = qRound(64 * scale);
        QImage image(side, side, QImage::Format_RGB32);
        for (int x = 0; x < side; ++x) {
            for (int y = 0; y < side; ++y) {
                image.setPixel(x, y, x % 2 == 0 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
            }
        }
        image.setDevicePixelRatio(scale);
        icons.Add(key(1), image);
        list.setIcons(&icons);

        QImage screen(QSize(200, 200) * scale, QImage::Format_RGB32);
        screen.fill(Qt::red);
        screen.setDevicePixelRatio(scale);
        QPainter painter(&screen);
        // A view seldom begins on a whole pixel of the screen either.
        painter.translate(7, 5);
        QStyleOptionViewItem cellOption;
        cellOption.font = list.font();
        cellOption.fontMetrics = list.fontMetrics();
        cellOption.rect = QRect(3, 3, 125, 125);
        list.itemDelegate()->paint(&painter, cellOption, list.model()->index(0, 0));
        painter.end();

        const int row = qRound((5 + 3 + 50) * scale);
        int left = 0;
        while (left < screen.width() && screen.pixel(left, row) != qRgb(255, 255, 255)) {
            ++left;
        }
        ASSERT_LE(left + side, screen.width()) << scale;
        for (int x = 0; x < side; ++x) {
            ASSERT_EQ(screen.pixel(left + x, row), image.pixel(x, 0)) << scale << ", column " << x;
        }
        list.setIcons(nullptr);
    }
}

TEST_F(List, AnImageListMayGoFirst) {
    auto icons = std::make_unique<ImageList>();
    icons->Add(QStringLiteral("a"), QImage(16, 16, QImage::Format_RGB32));
    list.setIcons(icons.get());
    fill(1);
    list.item(1)->setIcon(1);
    show();
    icons.reset();
    EXPECT_EQ(list.Icons(), nullptr);
    list.grab();
}

TEST_F(List, TheEmptyTextShowsOnlyInAnEmptyList) {
    show();
    const QImage bare = list.grab().toImage();
    list.setEmptyText(QStringLiteral("No pictures here"));
    EXPECT_NE(list.grab().toImage(), bare);
    fill(1);
    QCoreApplication::processEvents();
    const QImage withText = list.grab().toImage();
    list.setEmptyText(QString());
    EXPECT_EQ(list.grab().toImage(), withText);
}

}  // namespace
}  // namespace velorama

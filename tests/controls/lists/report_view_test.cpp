#include "controls/lists/report_view.h"

#include "controls/buttons/icon.h"

#include <QHeaderView>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <limits>

namespace velorama {
namespace {

QString key(int number) {
    return QStringLiteral("/albums/%1.vlr").arg(number);
}

/// What is painted anew in a viewport while it lives.
class PaintedArea : public QObject {
public:
    explicit PaintedArea(QWidget& viewport) { viewport.installEventFilter(this); }
    QRegion area;

private:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            area += static_cast<const QPaintEvent*>(event)->region();
        }
        return false;
    }
};

class Report : public testing::Test {
protected:
    Report() {
        view.resize(400, 200);
        view.setColumns({QStringLiteral("Slideshow"), QStringLiteral("Description")});
        view.setColumnWidth(1, 3000);
        view.setColumnWidth(2, 1500);
        view.show();
    }
    void fill(int count) {
        for (int number = 1; number <= count; ++number) {
            view.Add(key(number), QStringLiteral("%1.vlr").arg(number));
        }
    }
    int selected() const { return view.SelectedItem() ? view.SelectedItem()->Index() : 0; }
    QRect cell(int index, int column = 1) const {
        return view.visualRect(view.model()->index(index - 1, column - 1));
    }
    ReportView view;
};

// -- rows --

TEST_F(Report, RowsAreAddedAtTheEndAndNoneIsSelected) {
    fill(2);
    ReportItem* added = view.Add(key(9), QStringLiteral("nine"));
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(view.Count(), 3);
    EXPECT_EQ(added->Index(), 3);
    EXPECT_EQ(added->Key(), key(9));
    EXPECT_EQ(added->Text(), QStringLiteral("nine"));
    EXPECT_EQ(view.item(3), added);
    EXPECT_EQ(view.item(key(9)), added);
    EXPECT_EQ(view.SelectedItem(), nullptr);
}

TEST_F(Report, AKeyThatIsEmptyOrKnownIsRefused) {
    fill(1);
    EXPECT_EQ(view.Add(QString(), QStringLiteral("x")), nullptr);
    EXPECT_EQ(view.Add(key(1), QStringLiteral("x")), nullptr);
    EXPECT_EQ(view.Count(), 1);
    EXPECT_EQ(view.item(1)->Text(), QStringLiteral("1.vlr"));
    EXPECT_NE(view.Add(key(1).toUpper(), QStringLiteral("x")), nullptr);
}

TEST_F(Report, ThereIsNothingOutsideTheList) {
    fill(2);
    EXPECT_EQ(view.item(0), nullptr);
    EXPECT_EQ(view.item(3), nullptr);
    EXPECT_EQ(view.item(-1), nullptr);
    EXPECT_EQ(view.item(key(3)), nullptr);
    EXPECT_EQ(view.item(QString()), nullptr);
    EXPECT_FALSE(view.Remove(0));
    EXPECT_FALSE(view.Remove(3));
    EXPECT_EQ(view.Count(), 2);
}

TEST_F(Report, FurtherColumnsHoldTexts) {
    fill(1);
    ReportItem* row = view.item(1);
    EXPECT_EQ(row->SubItems(1), QString());
    row->setSubItems(1, QStringLiteral("My note"));
    EXPECT_EQ(row->SubItems(1), QStringLiteral("My note"));
    row->setSubItems(0, QStringLiteral("x"));
    row->setSubItems(2, QStringLiteral("x"));
    row->setSubItems(-1, QStringLiteral("x"));
    EXPECT_EQ(row->SubItems(0), QString());
    EXPECT_EQ(row->SubItems(2), QString());
    EXPECT_EQ(row->Text(), QStringLiteral("1.vlr"));
    EXPECT_EQ(view.columnCount(), 2);
}

TEST_F(Report, OneRowIsSelectedAtMost) {
    fill(3);
    view.item(2)->setSelected(true);
    EXPECT_EQ(selected(), 2);
    view.item(3)->setSelected(true);
    EXPECT_EQ(selected(), 3);
    EXPECT_FALSE(view.item(2)->Selected());
    EXPECT_EQ(view.currentIndex().row(), 2);
    view.item(3)->setSelected(false);
    EXPECT_EQ(view.SelectedItem(), nullptr);
}

TEST_F(Report, TheRowThatTakesThePlaceOfTheSelectedOneIsSelected) {
    fill(3);
    view.item(2)->setSelected(true);
    EXPECT_TRUE(view.Remove(2));
    EXPECT_EQ(view.SelectedItem(), view.item(key(3)));
    EXPECT_EQ(selected(), 2);
    EXPECT_TRUE(view.Remove(2));
    EXPECT_EQ(view.SelectedItem(), view.item(key(1)));
    EXPECT_TRUE(view.Remove(1));
    EXPECT_EQ(view.SelectedItem(), nullptr);
    EXPECT_NE(view.Add(key(2), QString()), nullptr);
}

TEST_F(Report, RemovingAnotherRowKeepsTheSelection) {
    fill(4);
    view.item(3)->setSelected(true);
    EXPECT_TRUE(view.Remove(4));
    EXPECT_EQ(view.SelectedItem(), view.item(key(3)));
    EXPECT_TRUE(view.Remove(1));
    EXPECT_EQ(view.SelectedItem(), view.item(key(3)));
    EXPECT_EQ(selected(), 2);
}

TEST_F(Report, RemovingLeavesNoneSelectedWhereNoneWas) {
    fill(3);
    EXPECT_TRUE(view.Remove(1));
    EXPECT_EQ(view.SelectedItem(), nullptr);
}

TEST_F(Report, ClearLeavesNothing) {
    fill(3);
    view.item(1)->setSelected(true);
    view.Clear();
    EXPECT_EQ(view.Count(), 0);
    EXPECT_EQ(view.SelectedItem(), nullptr);
    EXPECT_EQ(view.item(key(1)), nullptr);
    EXPECT_NE(view.Add(key(1), QString()), nullptr);
    EXPECT_EQ(view.headerItem()->text(1), QStringLiteral("Description"));
}

// -- columns --

TEST_F(Report, ColumnsKeepTheirWidthToTheTwip) {
    EXPECT_TRUE(view.setColumnWidth(1, 1234.5F));
    EXPECT_EQ(view.ColumnWidth(1), 1234.5F);
    EXPECT_EQ(view.columnWidth(0), 82);
    EXPECT_TRUE(view.setColumnWidth(1, 0));
    EXPECT_EQ(view.ColumnWidth(1), 0);
    EXPECT_EQ(view.columnWidth(0), 0);
    EXPECT_TRUE(view.setColumnWidth(1, 3));
    EXPECT_EQ(view.ColumnWidth(1), 3);
    EXPECT_EQ(view.ColumnWidth(2), 1500);
}

TEST_F(Report, AWidthThatIsNoneIsRefused) {
    EXPECT_FALSE(view.setColumnWidth(1, -1));
    EXPECT_FALSE(view.setColumnWidth(1, std::numeric_limits<float>::quiet_NaN()));
    EXPECT_FALSE(view.setColumnWidth(1, std::numeric_limits<float>::infinity()));
    EXPECT_FALSE(view.setColumnWidth(0, 100));
    EXPECT_FALSE(view.setColumnWidth(3, 100));
    EXPECT_EQ(view.ColumnWidth(1), 3000);
    EXPECT_EQ(view.ColumnWidth(0), 0);
    EXPECT_EQ(view.ColumnWidth(3), 0);
    EXPECT_TRUE(view.setColumnWidth(1, std::numeric_limits<float>::max()));
    EXPECT_GT(view.columnWidth(0), 100000);
}

TEST_F(Report, ADraggedColumnHasTheUsersWidthAndDoesNotVanish) {
    view.setColumnWidth(1, 1234.5F);
    view.header()->resizeSection(0, 100);
    EXPECT_EQ(view.ColumnWidth(1), 1500);
    view.header()->resizeSection(0, 0);
    EXPECT_GT(view.ColumnWidth(1), 0);
}

TEST_F(Report, TheLastColumnIsNotStretched) {
    view.resize(900, 200);
    EXPECT_EQ(view.ColumnWidth(2), 1500);
    EXPECT_FALSE(view.header()->sectionsMovable());
    EXPECT_FALSE(view.isSortingEnabled());
}

// -- keys and pointer --

TEST_F(Report, EnterIsToldOnceAndGoesNoFurther) {
    fill(2);
    QSignalSpy keys(&view, &ReportView::KeyPress);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClick(&view, Qt::Key_Enter);
    ASSERT_EQ(keys.size(), 2);
    EXPECT_EQ(keys.at(0).at(0).toInt(), 13);
    EXPECT_EQ(keys.at(1).at(0).toInt(), 13);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
    QCoreApplication::sendEvent(&view, &held);
    EXPECT_EQ(keys.size(), 2);
    EXPECT_TRUE(held.isAccepted());
    QTest::keyClick(&view, Qt::Key_Down);
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(keys.size(), 2);
}

TEST_F(Report, KeysWalkTheRows) {
    fill(30);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(selected(), 1);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(selected(), 2);
    QTest::keyClick(&view, Qt::Key_End);
    EXPECT_EQ(selected(), 30);
    QTest::keyClick(&view, Qt::Key_PageUp);
    EXPECT_LT(selected(), 30);
    EXPECT_GT(selected(), 20);
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_EQ(selected(), 1);
    QTest::keyClick(&view, Qt::Key_PageDown);
    EXPECT_GT(selected(), 1);
    view.SelectedItem()->setSelected(false);
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(selected(), 30);
}

TEST_F(Report, LettersLeadToTheRowThatBeginsWithThem) {
    view.Add(key(1), QStringLiteral("Rome.vlr"));
    view.Add(key(2), QStringLiteral("summer.vlr"));
    view.Add(key(3), QStringLiteral("Sunday.vlr"));
    QSignalSpy keys(&view, &ReportView::KeyPress);
    QTest::keyClicks(&view, QStringLiteral("sun"));
    EXPECT_EQ(selected(), 3);
    ASSERT_EQ(keys.size(), 3);
    EXPECT_EQ(keys.at(0).at(0).toInt(), int('s'));
}

TEST_F(Report, AClickSelectsItsRowAlsoBesideTheColumns) {
    fill(3);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cell(2, 2).center());
    EXPECT_EQ(selected(), 2);
    const QPoint beside(cell(3, 2).right() + 30, cell(3, 2).center().y());
    ASSERT_TRUE(view.viewport()->rect().contains(beside));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, beside);
    EXPECT_EQ(selected(), 3);
}

TEST_F(Report, AClickTakesNoSelectionAway) {
    fill(2);
    view.item(1)->setSelected(true);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, QPoint(50, cell(2).bottom() + 20));
    EXPECT_EQ(selected(), 1);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier, cell(1).center());
    EXPECT_EQ(selected(), 1);
}

TEST_F(Report, ADoubleClickOnARowIsTold) {
    fill(2);
    QSignalSpy clicks(&view, &ReportView::DblClick);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cell(2).center());
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, cell(2).center());
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_EQ(selected(), 2);
    QTest::mouseDClick(view.viewport(), Qt::RightButton, {}, cell(1).center());
    // Qt's simulated double click leaves the button pressed, for all tests that follow.
    QTest::mouseRelease(view.viewport(), Qt::RightButton, {}, cell(1).center());
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, QPoint(50, cell(2).bottom() + 20));
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(Report, AHandlerMayEmptyOrDeleteTheList) {
    fill(2);
    view.item(1)->setSelected(true);
    QObject::connect(&view, &ReportView::KeyPress, &view, &ReportView::Clear);
    QObject::connect(&view, &ReportView::DblClick, &view, &ReportView::Clear);
    QTest::keyClick(&view, Qt::Key_A);
    EXPECT_EQ(view.Count(), 0);
    fill(2);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, cell(2).center());
    EXPECT_EQ(view.Count(), 0);

    auto* mortal = new ReportView;
    QObject::connect(mortal, &ReportView::KeyPress, mortal, [mortal] { delete mortal; });
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, {}, QStringLiteral("a"));
    QCoreApplication::sendEvent(mortal, &press);
}

// -- what is seen --

TEST_F(Report, TheEmptyListSaysWhatBelongsThere) {
    fill(1);
    const QImage full = view.grab().toImage();
    view.setEmptyText(QStringLiteral("No albums yet"));
    EXPECT_EQ(view.grab().toImage(), full);
    view.Clear();
    const QImage withText = view.grab().toImage();
    view.setEmptyText(QString());
    EXPECT_NE(view.grab().toImage(), withText);
}

TEST_F(Report, ALongTextIsCutInItsMiddle) {
    const auto tail = [this](const QString& end) {
        view.Clear();
        view.Add(key(1), QStringLiteral("album") + QString(200, u'x') + end);
        const QRect name = cell(1);
        return view.viewport()
            ->grab(QRect(name.right() - 40, name.top(), 41, name.height()))
            .toImage();
    };
    EXPECT_EQ(tail(QStringLiteral("end.vlr")), tail(QStringLiteral("end.vlr")));
    EXPECT_NE(tail(QStringLiteral("end.vlr")), tail(QStringLiteral("bye.txt")));
}

TEST_F(Report, OnlyACutTextIsToldWhole) {
    const QString note(100, u'n');
    view.Add(key(1), QStringLiteral("short.vlr"))->setSubItems(1, note);
    EXPECT_EQ(view.cutText(cell(1).center()), QString());
    EXPECT_EQ(view.cutText(cell(1, 2).center()), note);
    EXPECT_EQ(view.cutText(QPoint(50, cell(1).bottom() + 20)), QString());
    view.setColumnWidth(2, 30000);
    EXPECT_EQ(view.cutText(QPoint(cell(1, 2).left() + 5, cell(1).center().y())), QString());
}

// The edge where a text is cut is where its middle becomes an ellipsis.
TEST_F(Report, ATextIsToldExactlyWhereItIsPaintedCut) {
    view.setSmallIcon(symbolIcon(QStringLiteral("album")));
    view.Add(key(1), QStringLiteral("album of wide letters.vlr"));
    view.setColumnWidth(1, 6000);
    const auto text = [this] {
        return view.viewport()
            ->grab(QRect(cell(1).topLeft(), QSize(120, cell(1).height())))
            .toImage();
    };
    const QImage whole = text();
    for (int pixels = 300; pixels > 120; --pixels) {
        view.setColumnWidth(1, static_cast<float>(pixels) * 15);
        ASSERT_EQ(view.cutText(cell(1).center()).isEmpty(), text() == whole) << pixels;
    }
    EXPECT_FALSE(view.cutText(cell(1).center()).isEmpty());
}

TEST_F(Report, TheSelectedRowIsSeenWithoutTheFocusToo) {
    fill(2);
    view.clearFocus();
    const QImage none = view.viewport()->grab(cell(2)).toImage();
    view.item(2)->setSelected(true);
    const QImage selectedRow = view.viewport()->grab(cell(2)).toImage();
    EXPECT_NE(selectedRow, none);
    // The text keeps its own colour on a tint of the ground.
    const QColor ground = selectedRow.pixelColor(cell(2).width() - 8, cell(2).height() / 2);
    EXPECT_NE(ground, view.palette().color(QPalette::Base));
    EXPECT_GT(ground.lightness(), 150);
}

TEST_F(Report, EveryRowHasTheSmallIcon) {
    fill(1);
    const QImage without = view.viewport()->grab(cell(1)).toImage();
    const QIcon album = symbolIcon(QStringLiteral("album"));
    ASSERT_FALSE(album.isNull());
    view.setSmallIcon(album);
    EXPECT_NE(view.viewport()->grab(cell(1)).toImage(), without);
    view.Add(key(2), QString());
    EXPECT_FALSE(view.topLevelItem(1)->icon(0).isNull());
}

TEST_F(Report, AHugeTextOfManyLinesIsOneRowAsHighAsOthers) {
    view.Add(key(1), QStringLiteral("a\nb\nc\n").repeated(100000));
    fill(2);
    EXPECT_EQ(cell(1).height(), cell(2).height());
    EXPECT_LT(cell(1).height(), 40);
    EXPECT_FALSE(view.grab().isNull());
}

TEST_F(Report, TheSelectedRowIsInSightWhenTheListIsShown) {
    view.hide();
    fill(100);
    view.item(100)->setSelected(true);
    view.resize(400, 120);
    view.show();
    EXPECT_TRUE(view.viewport()->rect().contains(cell(100).center()));
}

TEST_F(Report, ARowThatIsLeftIsPaintedAnewBehindTheColumnsToo) {
    fill(2);
    view.item(1)->setSelected(true);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QCoreApplication::processEvents();
    ASSERT_LT(cell(1, 2).right(), view.viewport()->width() - 10);
    PaintedArea painted(*view.viewport());
    view.item(2)->setSelected(true);
    QCoreApplication::processEvents();
    EXPECT_TRUE(painted.area.contains(QPoint(view.viewport()->width() - 5, cell(1).center().y())));
}

}  // namespace
}  // namespace velorama

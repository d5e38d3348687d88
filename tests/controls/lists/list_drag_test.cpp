#include "controls/lists/list_drag.h"

#include "support/test_world.h"

#include <QApplication>
#include <QDialog>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

namespace velorama {
namespace {

constexpr auto anyAction = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

struct Told {
    const ListView* source = nullptr;
    QStringList paths;
    int gap = -1;
};

/// A strip of ten items and a wrapped list of three beside it.
class ListDragTest : public testing::Test {
protected:
    ListDragTest() {
        window.resize(900, 400);
        strip.setArrangement(ListView::Arrangement::Strip);
        strip.setGeometry(0, 0, 420, 150);
        grid.setGeometry(450, 0, 420, 300);
        fill(strip, 10);
        fill(grid, 3);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        const auto tell = [this](const ListView* source, int gap) {
            told.push_back({source, {}, gap});
        };
        QObject::connect(&stripDrag, &ListDrag::ItemsDropped, &window, tell);
        QObject::connect(&gridDrag, &ListDrag::ItemsDropped, &window, tell);
        const auto tellFiles = [this](const QStringList& paths, int gap) {
            told.push_back({nullptr, paths, gap});
        };
        QObject::connect(&stripDrag, &ListDrag::FilesDropped, &window, tellFiles);
        QObject::connect(&gridDrag, &ListDrag::FilesDropped, &window, tellFiles);
    }

    static void fill(ListView& list, int count) {
        for (int i = 1; i <= count; ++i) {
            list.Add(i, QString::number(i), QStringLiteral("%1.jpg").arg(i), 0);
        }
    }
    static QRect cell(const ListView& list, int index) {
        return list.visualRect(list.model()->index(index - 1, 0));
    }
    /// In the strip, a little behind the edge between two items.
    QPoint behind(int gap) const {
        return {cell(strip, 1).left() + gap * strip.gridSize().width() + 5, 40};
    }
    static int current(const ListView& list) { return list.SelectedItem()->Index(); }
    const QWidget& line() const { return *strip.findChild<QWidget*>(QStringLiteral("dropLine")); }

    /// The pointer comes over a list with something: the action it would have.
    static Qt::DropAction enter(ListView& list, const QPoint& at, const QMimeData& data) {
        QDragEnterEvent event(at, anyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list.viewport(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    static void moveOver(ListView& list, const QPoint& at, const QMimeData& data) {
        QDragMoveEvent event(at, anyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list.viewport(), &event);
    }
    static Qt::DropAction dropOn(ListView& list, const QPoint& at, const QMimeData& data) {
        QDropEvent event(at, anyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list.viewport(), &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    static QMimeData* files(const QStringList& paths) {
        auto* data = new QMimeData;
        QList<QUrl> urls;
        for (const QString& path : paths) {
            urls.append(QUrl::fromLocalFile(path));
        }
        data->setUrls(urls);
        return data;
    }

    /// The button is let go. A display of the tests ends a drag before it has begun, so what hung
    /// on the pointer was made by hand.
    static void end(ListView& list) {
        press(list, cell(list, 2).center() - QPoint(0, 10), Qt::LeftButton);
    }
    /// Pressed, the pointer moves far enough for a drag.
    static void press(ListView& list, const QPoint& from, Qt::MouseButton button) {
        QTest::mousePress(list.viewport(), button, {}, from);
        for (const int way : {8, 40}) {
            const QPoint place = from + QPoint(way, 0);
            QMouseEvent move(QEvent::MouseMove, place, list.viewport()->mapToGlobal(place),
                             Qt::NoButton, button, {});
            QCoreApplication::sendEvent(list.viewport(), &move);
        }
    }

    QWidget window;
    ListView strip{&window};
    ListView grid{&window};
    ListDrag& stripDrag = *new ListDrag(strip);
    ListDrag& gridDrag = *new ListDrag(grid);
    std::vector<Told> told;
};

TEST_F(ListDragTest, ALineShowsTheNearestGap) {
    stripDrag.takeFiles();
    const std::unique_ptr<QMimeData> data(files({QStringLiteral("/a.jpg")}));
    EXPECT_FALSE(line().isVisible());
    EXPECT_EQ(enter(strip, behind(1), *data), Qt::CopyAction);
    EXPECT_TRUE(line().isVisible());
    EXPECT_NEAR(line().geometry().center().x(), cell(strip, 2).left(), 2);
    moveOver(strip, behind(3) - QPoint(30, 0), *data);
    EXPECT_NEAR(line().geometry().center().x(), cell(strip, 4).left(), 2);
    moveOver(strip, behind(0), *data);
    EXPECT_EQ(line().geometry().left(), 0);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(strip.viewport(), &leave);
    EXPECT_FALSE(line().isVisible());
}

TEST_F(ListDragTest, FilesAreToldWithTheirGapFromTheEventLoop) {
    stripDrag.takeFiles();
    const std::unique_ptr<QMimeData> data(
        files({QStringLiteral("/a.jpg"), QStringLiteral("/b c")}));
    enter(strip, behind(0), *data);
    EXPECT_EQ(dropOn(strip, behind(2), *data), Qt::CopyAction);
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(line().isVisible());
    QCoreApplication::processEvents();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].paths, QStringList({QStringLiteral("/a.jpg"), QStringLiteral("/b c")}));
    EXPECT_EQ(told[0].gap, 2);
}

TEST_F(ListDragTest, AGapBehindTheLastItemIsTheEnd) {
    EXPECT_EQ(strip.gapAt({-50, 10}), 0);
    EXPECT_EQ(strip.gapAt({100000, 10}), 10);
    strip.Clear();
    EXPECT_EQ(strip.gapAt({100, 10}), 0);
    EXPECT_TRUE(strip.viewport()->rect().contains(strip.gapLine(0)));
}

TEST_F(ListDragTest, TextAddressesOfTheWebAndUnwantedFilesAreNotTaken) {
    const std::unique_ptr<QMimeData> data(files({QStringLiteral("/a.jpg")}));
    EXPECT_EQ(enter(grid, {5, 5}, *data), Qt::IgnoreAction);
    gridDrag.takeFiles();
    EXPECT_EQ(enter(grid, {5, 5}, *data), Qt::CopyAction);
    QMimeData text;
    text.setText(QStringLiteral("/a.jpg"));
    QMimeData web;
    web.setUrls({QUrl(QStringLiteral("http://example.invalid/a.jpg"))});
    for (const QMimeData* other : {&text, &web}) {
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(grid.viewport(), &leave);
        EXPECT_EQ(enter(grid, {5, 5}, *other), Qt::IgnoreAction);
        EXPECT_EQ(dropOn(grid, {5, 5}, *other), Qt::IgnoreAction);
    }
    QCoreApplication::processEvents();
    EXPECT_TRUE(told.empty());
}

TEST_F(ListDragTest, NothingIsTakenBehindAModalWindow) {
    gridDrag.takeFiles();
    const std::unique_ptr<QMimeData> data(files({QStringLiteral("/a.jpg")}));
    QDialog question(&window);
    question.setModal(true);
    question.show();
    ASSERT_EQ(QApplication::activeModalWidget(), &question);
    EXPECT_EQ(enter(grid, {5, 5}, *data), Qt::IgnoreAction);
    question.hide();
    EXPECT_EQ(enter(grid, {5, 5}, *data), Qt::CopyAction);
}

TEST_F(ListDragTest, TheStripScrollsNearItsEndsAndTheLineFollows) {
    stripDrag.takeFiles();
    const std::unique_ptr<QMimeData> data(files({QStringLiteral("/a.jpg")}));
    const QScrollBar& bar = *strip.horizontalScrollBar();
    const int end = strip.viewport()->width() - 2;
    enter(strip, {200, 40}, *data);
    stripDrag.scroll();
    EXPECT_EQ(bar.value(), 0);
    moveOver(strip, {end, 40}, *data);
    stripDrag.scroll();
    const int quick = bar.value();
    EXPECT_GT(quick, 10);
    moveOver(strip, {end - 40, 40}, *data);
    stripDrag.scroll();
    EXPECT_GT(bar.value(), quick);
    EXPECT_LT(bar.value(), 2 * quick);
    moveOver(strip, {end, 40}, *data);
    for (int i = 0; i < 1000 && bar.value() < bar.maximum(); ++i) {
        stripDrag.scroll();
    }
    EXPECT_EQ(bar.value(), bar.maximum());
    EXPECT_EQ(dropOn(strip, {end, 40}, *data), Qt::CopyAction);
    QCoreApplication::processEvents();
    EXPECT_EQ(told.at(0).gap, 10);
    enter(strip, {1, 40}, *data);
    for (int i = 0; i < 1000 && bar.value() > 0; ++i) {
        stripDrag.scroll();
    }
    EXPECT_EQ(bar.value(), 0);
    EXPECT_TRUE(line().isVisible());
    // Hidden by a batch, the list forgets the drag.
    strip.hide();
    stripDrag.scroll();
    strip.show();
    EXPECT_FALSE(line().isVisible());
}

TEST_F(ListDragTest, OwnItemsAreMovedAndToldWhenTheDragIsOver) {
    stripDrag.offer();
    const auto data = stripDrag.items();
    EXPECT_FALSE(data->hasUrls());
    EXPECT_FALSE(data->hasText());
    EXPECT_EQ(enter(strip, behind(0), *data), Qt::IgnoreAction);
    stripDrag.takeFrom(stripDrag);
    QSignalSpy clicks(&strip, &ListView::Click);
    EXPECT_EQ(enter(strip, behind(0), *data), Qt::MoveAction);
    EXPECT_EQ(dropOn(strip, behind(4), *data), Qt::MoveAction);
    QCoreApplication::processEvents();
    EXPECT_TRUE(told.empty());
    end(strip);
    EXPECT_TRUE(told.empty());
    EXPECT_EQ(clicks.size(), 1);
    QCoreApplication::processEvents();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].source, &strip);
    EXPECT_EQ(told[0].gap, 4);
    EXPECT_EQ(current(strip), 2);
    EXPECT_TRUE(strip.item(2)->Selected());
}

TEST_F(ListDragTest, TheLeftButtonAloneDrags) {
    const QPoint from = cell(grid, 2).center() - QPoint(0, 10);
    for (const auto& [button, number] :
         {std::pair(Qt::RightButton, 2), std::pair(Qt::MiddleButton, 4)}) {
        QSignalSpy drags(&grid, &ListView::DragOff);
        QSignalSpy ups(&grid, &ListView::MouseUp);
        gridDrag.offer();
        press(grid, from, button);
        QTest::mouseRelease(grid.viewport(), button, {}, from + QPoint(40, 0));
        EXPECT_EQ(drags.size(), 0) << number;
        ASSERT_EQ(ups.size(), 1);
        EXPECT_EQ(ups[0][0].toInt(), number);
    }
    QSignalSpy drags(&grid, &ListView::DragOff);
    press(grid, from, Qt::LeftButton);
    EXPECT_EQ(drags.size(), 1);
}

TEST_F(ListDragTest, AnotherListsItemsAreTakenWhereTheyAreWanted) {
    gridDrag.offer([] { return QStringList{QStringLiteral("/a b.jpg")}; });
    stripDrag.takeFrom(gridDrag);
    gridDrag.takeFiles();
    // To other programs they are files; back on their own list they are nothing.
    const auto data = gridDrag.items();
    EXPECT_EQ(data->urls(), QList<QUrl>{QUrl(QStringLiteral("file:///a%20b.jpg"))});
    EXPECT_EQ(enter(grid, {5, 5}, *data), Qt::IgnoreAction);
    EXPECT_EQ(dropOn(grid, {5, 5}, *data), Qt::IgnoreAction);
    EXPECT_EQ(enter(strip, behind(1), *data), Qt::CopyAction);
    EXPECT_EQ(dropOn(strip, behind(1), *data), Qt::CopyAction);
    end(grid);
    QCoreApplication::processEvents();
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].source, &grid);
    EXPECT_EQ(told[0].gap, 1);
}

TEST_F(ListDragTest, AListThatHasChangedNoLongerHasWhatIsDragged) {
    stripDrag.offer();
    stripDrag.takeFrom(stripDrag);
    const auto data = stripDrag.items();
    EXPECT_EQ(enter(strip, behind(0), *data), Qt::MoveAction);
    strip.Remove(5);
    EXPECT_EQ(dropOn(strip, behind(4), *data), Qt::IgnoreAction);
    const auto again = stripDrag.items();
    enter(strip, behind(0), *again);
    EXPECT_EQ(dropOn(strip, behind(4), *again), Qt::MoveAction);
    end(strip);
    strip.Remove(5);
    QCoreApplication::processEvents();
    EXPECT_TRUE(told.empty());
}

TEST_F(ListDragTest, WithoutAnOfferPressAndMoveSelect) {
    QTest::mousePress(grid.viewport(), Qt::LeftButton, {}, cell(grid, 1).center());
    QTest::mouseMove(grid.viewport(), cell(grid, 2).center());
    QTest::mouseRelease(grid.viewport(), Qt::LeftButton, {}, cell(grid, 2).center());
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(grid.model()->flags(grid.model()->index(0, 0)) & Qt::ItemIsDragEnabled);
    gridDrag.offer();
    EXPECT_TRUE(grid.model()->flags(grid.model()->index(0, 0)) & Qt::ItemIsDragEnabled);
}

}  // namespace
}  // namespace velorama

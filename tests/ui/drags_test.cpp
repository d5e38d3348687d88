#include "ui/window_world.h"

#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>

namespace velorama {
namespace {

class DragsTest : public test::WithWindow {
protected:
    DragsTest() {
        folder =
            browse({QStringLiteral("x.bmp"), QStringLiteral("y.bmp"), QStringLiteral("z.bmp")});
        start(album(3));
        pages().show(2);
        before = slides();
    }
    ListView& slideList() { return *slideControls().lvwSLIDEBAR; }
    ListView& foundList() { return *foundControls().lvwFOUND; }
    static QPoint middle(ListView& list, int item) {
        return list.visualRect(list.model()->index(item - 1, 0)).center();
    }
    /// Files of another program.
    static void dropFiles(ListView& list, const QPoint& at, const QStringList& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& path : paths) {
            urls.append(QUrl::fromLocalFile(path));
        }
        data.setUrls(urls);
        drop(list, at, data);
        // The drop, then the folder that it asks for.
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    static void drop(ListView& list, const QPoint& at, const QMimeData& data) {
        QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list.viewport(), &enter);
        QDropEvent drop(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list.viewport(), &drop);
    }
    /// Presses on an item, moves, and lets go over a place of another list. A display of the tests
    /// ends a drag before it has begun, so what hangs on the pointer is made by hand.
    static void drag(ListView& list, int item, ListView& target, const QPoint& at) {
        const QPoint from = middle(list, item) - QPoint(0, 15);
        QTest::mousePress(list.viewport(), Qt::LeftButton, {}, from);
        const auto data = list.findChild<ListDrag*>()->items();
        drop(target, at, *data);
        for (const int way : {8, 40}) {
            const QPoint place = from + QPoint(way, 0);
            QMouseEvent move(QEvent::MouseMove, place, list.viewport()->mapToGlobal(place),
                             Qt::NoButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(list.viewport(), &move);
        }
        QCoreApplication::processEvents();
    }
    QStringList found(std::initializer_list<const char*> names) const {
        QStringList all;
        for (const char* name : names) {
            all.append(folder + QLatin1Char('/') + QLatin1String(name));
        }
        return all;
    }

    QString folder;
    QStringList before;
};

TEST_F(DragsTest, ASlideIsDraggedToItsPlace) {
    drag(slideList(), 1, slideList(), middle(slideList(), 3) + QPoint(20, 0));
    EXPECT_EQ(slides(), QStringList({before[1], before[2], before[0]}));
    EXPECT_TRUE(commands().save.isEnabled());
    EXPECT_FALSE(commands().moveForward.isEnabled());
    drag(slideList(), 3, slideList(), middle(slideList(), 1) - QPoint(20, 0));
    EXPECT_EQ(slides(), before);
}

TEST_F(DragsTest, ASlideHasNoPlaceInTheFoundList) {
    drag(slideList(), 1, foundList(), {20, 20});
    EXPECT_EQ(slides(), before);
    EXPECT_EQ(foundList().Count(), 3);
    EXPECT_EQ(foundControls().flbFOUND->Path(), folder);
}

TEST_F(DragsTest, PicturesAreDraggedIntoTheSlideBar) {
    foundList().item(3)->setSelected(true);
    foundList().item(1)->setSelected(true);
    drag(foundList(), 3, slideList(), middle(slideList(), 2) - QPoint(20, 0));
    EXPECT_EQ(slides(), before.mid(0, 1) + found({"x.bmp", "z.bmp"}) + before.mid(1));
    drag(foundList(), 2, foundList(), {5, 5});
    EXPECT_EQ(foundList().Count(), 3);
    EXPECT_EQ(slides().size(), 5);
}

TEST_F(DragsTest, FilesOfOtherProgramsGoWhereTheyAreDropped) {
    const QString other = folderWith({QStringLiteral("p.bmp"), QStringLiteral("q.bmp")});
    dropFiles(slideList(), middle(slideList(), 2) - QPoint(20, 0),
              {other + QStringLiteral("/q.bmp")});
    EXPECT_EQ(slides(),
              QStringList({before[0], other + QStringLiteral("/q.bmp"), before[1], before[2]}));
    EXPECT_EQ(foundControls().flbFOUND->Path(), folder);
    dropFiles(foundList(), {5, 5}, {other + QStringLiteral("/q.bmp")});
    EXPECT_EQ(foundControls().flbFOUND->Path(), other);
    EXPECT_EQ(toolSetting("Files Location"), other);
    EXPECT_FALSE(foundList().item(1)->Selected());
    EXPECT_TRUE(foundList().item(2)->Selected());
    EXPECT_EQ(slides().size(), 4);
}

}  // namespace
}  // namespace velorama

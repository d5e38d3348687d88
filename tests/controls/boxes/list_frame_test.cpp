#include "controls/boxes/list_frame.h"

#include "controls/lists/list_box.h"
#include "controls/lists/report_view.h"

#include <QApplication>
#include <QHeaderView>

#include <gtest/gtest.h>

namespace velorama {
namespace {

/// Two lists on a form; the first has the keyboard.
class ListFrameTest : public testing::Test {
protected:
    ListFrameTest() {
        form.resize(301, 301);
        first->setGeometry(5, 5, 201, 101);
        second->setGeometry(5, 120, 201, 101);
        form.show();
        form.activateWindow();
        QApplication::processEvents();
        first->setFocus();
    }
    static QColor accent() { return QApplication::palette().color(QPalette::Highlight); }
    /// The colours along the four edges of what a list looks like, `depth` pixels inside.
    static std::set<QRgb> edges(QWidget& list, int depth) {
        const QImage image = list.grab().toImage();
        std::set<QRgb> colours;
        for (int x = depth; x < image.width() - depth; ++x) {
            colours.insert(image.pixel(x, depth));
            colours.insert(image.pixel(x, image.height() - 1 - depth));
        }
        for (int y = depth; y < image.height() - depth; ++y) {
            colours.insert(image.pixel(depth, y));
            colours.insert(image.pixel(image.width() - 1 - depth, y));
        }
        return colours;
    }
    QWidget form;
    ListBox* first = new ListBox(&form);
    ListBox* second = new ListBox(&form);
};

TEST_F(ListFrameTest, HasFourEdgesOfOneColour) {
    const std::set<QRgb> quiet = edges(*second, 0);
    ASSERT_EQ(quiet.size(), 1U);
    EXPECT_NE(*quiet.begin(), second->palette().color(QPalette::Base).rgb());
    EXPECT_NE(*quiet.begin(), accent().rgb());
}

TEST_F(ListFrameTest, IsTheAccentWhereTheKeyboardIs) {
    EXPECT_EQ(edges(*first, 0), std::set<QRgb>{accent().rgb()});
    second->setFocus();
    EXPECT_EQ(edges(*second, 0), std::set<QRgb>{accent().rgb()});
    EXPECT_NE(edges(*first, 0), std::set<QRgb>{accent().rgb()});
}

TEST_F(ListFrameTest, AnEmptyListHasNoSecondOneInside) {
    first->setEmptyText(QStringLiteral("Nothing"));
    const QImage inside = first->viewport()->grab().toImage();
    for (int x = 0; x < inside.width(); ++x) {
        ASSERT_NE(inside.pixelColor(x, 1), accent());
    }
}

TEST(ReportHeader, GoesOnBehindTheLastColumn) {
    ReportView list;
    list.setColumns({QStringLiteral("One")});
    list.setColumnWidth(1, 1500);
    list.resize(400, 200);
    list.show();
    QApplication::processEvents();
    const QImage head = list.header()->viewport()->grab().toImage();
    // Shaded from above to below as the columns are.
    for (int y = 1; y < head.height() - 1; ++y) {
        EXPECT_EQ(head.pixel(head.width() - 40, y), head.pixel(80, y)) << y;
    }
    EXPECT_NE(head.pixel(head.width() - 40, 2), head.pixel(head.width() - 40, head.height() - 3));
}

}  // namespace
}  // namespace velorama

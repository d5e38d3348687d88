#include "controls/lists/list_box.h"
#include "support/test_world.h"
#include "support/waiting.h"

#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QUrl>

#include <gtest/gtest.h>

#include <cmath>

namespace velorama {
namespace {

class ListBoxTest : public testing::Test {
protected:
    ListBoxTest() {
        box.resize(200, 200);
        for (const char* text : {"first", "second", "third"}) {
            box.addItem(QString::fromLatin1(text));
        }
        box.show();
    }

    QPoint middleOf(int row) { return box.visualItemRect(box.item(row)).center(); }
    /// What a tooltip over the line tells.
    QString tip(int row) {
        test::expectMessage(QStringLiteral("raise()"));  // of the platform without a screen
        QHelpEvent help(QEvent::ToolTip, middleOf(row), box.viewport()->mapToGlobal(middleOf(row)));
        QCoreApplication::sendEvent(box.viewport(), &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }

    ListBox box;
};

TEST_F(ListBoxTest, LinesAreReadByNumber) {
    EXPECT_EQ(box.ListCount(), 3);
    EXPECT_EQ(box.List(2), QStringLiteral("third"));
    EXPECT_EQ(box.List(-1), QString());
    EXPECT_EQ(box.List(3), QString());
    EXPECT_TRUE(box.setList(1, QStringLiteral("other")));
    EXPECT_FALSE(box.setList(3, QStringLiteral("other")));
    EXPECT_EQ(box.List(1), QStringLiteral("other"));
}

TEST_F(ListBoxTest, NothingIsSelectedUntilSomebodySelects) {
    EXPECT_EQ(box.ListIndex(), -1);
    box.setFocus();
    QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&box, &focus);
    EXPECT_EQ(box.ListIndex(), -1);
    EXPECT_TRUE(box.setListIndex(2));
    EXPECT_FALSE(box.setListIndex(3));
    EXPECT_FALSE(box.setListIndex(-2));
    EXPECT_EQ(box.ListIndex(), 2);
    EXPECT_TRUE(box.setListIndex(-1));
    EXPECT_EQ(box.ListIndex(), -1);
}

TEST_F(ListBoxTest, RemovingTheSelectedLineSelectsNone) {
    box.setListIndex(1);
    EXPECT_TRUE(box.RemoveItem(1));
    EXPECT_EQ(box.ListIndex(), -1);
    EXPECT_EQ(box.List(1), QStringLiteral("third"));
}

TEST_F(ListBoxTest, RemovingAnotherKeepsTheSelectionOnItsLine) {
    box.setListIndex(1);
    EXPECT_TRUE(box.RemoveItem(2));
    EXPECT_EQ(box.ListIndex(), 1);
    EXPECT_TRUE(box.RemoveItem(0));
    EXPECT_EQ(box.ListIndex(), 0);
    EXPECT_EQ(box.List(0), QStringLiteral("second"));
    EXPECT_FALSE(box.RemoveItem(-1));
    EXPECT_FALSE(box.RemoveItem(1));
}

TEST_F(ListBoxTest, ClearLeavesNothing) {
    box.setListIndex(1);
    box.clear();
    EXPECT_EQ(box.ListCount(), 0);
    EXPECT_EQ(box.ListIndex(), -1);
}

TEST_F(ListBoxTest, AClickSelectsAndOneBesideTheLinesDoesNot) {
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, middleOf(1));
    EXPECT_EQ(box.ListIndex(), 1);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, QPoint(50, 190));
    EXPECT_EQ(box.ListIndex(), 1);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(1));
    EXPECT_EQ(box.ListIndex(), 1);
}

TEST_F(ListBoxTest, ADoubleClickOnALineIsTold) {
    QSignalSpy clicks(&box, &ListBox::DblClick);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, middleOf(2));
    QTest::mouseDClick(box.viewport(), Qt::LeftButton, {}, middleOf(2));
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_EQ(box.ListIndex(), 2);
    QTest::mouseDClick(box.viewport(), Qt::LeftButton, {}, QPoint(50, 190));
    QTest::mouseDClick(box.viewport(), Qt::RightButton, {}, middleOf(1));
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(ListBoxTest, KeysWalkAndEnterIsADoubleClick) {
    QSignalSpy clicks(&box, &ListBox::DblClick);
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(clicks.size(), 0);
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(box.ListIndex(), 0);
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(box.ListIndex(), 1);
    QTest::keyClick(&box, Qt::Key_End);
    EXPECT_EQ(box.ListIndex(), 2);
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Enter);
    EXPECT_EQ(clicks.size(), 2);
    box.setListIndex(-1);
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_EQ(box.ListIndex(), 2);
}

TEST_F(ListBoxTest, ItsOwnStateIsWhatEnabledMeans) {
    QWidget window;
    box.setParent(&window);
    window.setEnabled(false);
    EXPECT_TRUE(box.Enabled());
    box.setEnabled(false);
    window.setEnabled(true);
    EXPECT_FALSE(box.Enabled());
    box.setEnabled(true);
    EXPECT_TRUE(box.Enabled());
    box.setParent(nullptr);
}

TEST_F(ListBoxTest, DroppedFilesAreToldAndNothingElse) {
    QSignalSpy drops(&box, &ListBox::FilesDropped);
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/m/B.mp3")),
                   QUrl(QStringLiteral("http://velorama.invalid/c.mp3")),
                   QUrl::fromLocalFile(QStringLiteral("/m/a b.mp3"))});
    // Qt delivers a drop to the widget that took the drag.
    QDragEnterEvent enter(QPoint(5, 5), Qt::MoveAction | Qt::CopyAction, &files, Qt::LeftButton,
                          {});
    QCoreApplication::sendEvent(box.viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::MoveAction | Qt::CopyAction, &files, Qt::LeftButton, {});
    QCoreApplication::sendEvent(box.viewport(), &drop);
    ASSERT_EQ(drops.size(), 1);
    EXPECT_EQ(drops.at(0).at(0).toStringList(),
              QStringList({QStringLiteral("/m/B.mp3"), QStringLiteral("/m/a b.mp3")}));
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    EXPECT_EQ(box.ListCount(), 3);

    QMimeData text;
    text.setText(QStringLiteral("/m/a.mp3"));
    QDragEnterEvent other(QPoint(5, 5), Qt::CopyAction, &text, Qt::LeftButton, {});
    QCoreApplication::sendEvent(box.viewport(), &other);
    EXPECT_FALSE(other.isAccepted());
}

/// As accessibility guidelines define it: 1 for two like colours, 21 for black on white.
double contrast(QRgb one, QRgb other) {
    const auto light = [](QRgb colour) {
        const auto part = [](int value) {
            const double share = value / 255.0;
            return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(qRed(colour)) + 0.7152 * part(qGreen(colour)) +
               0.0722 * part(qBlue(colour));
    };
    const double a = light(one) + 0.05;
    const double b = light(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

// The ground of a picture and the strongest contrast of anything on it.
double strongestContrast(const QImage& image) {
    double strongest = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            strongest = std::max(
                strongest,
                contrast(image.pixel(x, y), image.pixel(image.width() - 3, image.height() / 2)));
        }
    }
    return strongest;
}

TEST_F(ListBoxTest, DisabledItsSelectedLineStaysReadableBesideItsSymbol) {
    const QPalette light = box.palette();
    QPalette dark(QColor(50, 50, 50));
    for (const QPalette& palette : {light, dark}) {
        box.setPalette(palette);
        box.setDisabledSymbol(QString());
        box.setListIndex(1);
        box.setEnabled(false);
        const QRect line = box.visualItemRect(box.item(1));
        const QRect symbol(line.topLeft(), QSize(line.height(), line.height()));
        const QRect text = line.adjusted(symbol.width(), 0, 0, 0);
        const auto shown = [&](const QRect& part) { return box.viewport()->grab(part).toImage(); };
        const QImage plain = shown(line);
        box.setDisabledSymbol(QStringLiteral("pause"));
        EXPECT_NE(shown(line), plain);
        EXPECT_GE(strongestContrast(shown(text)), 4.5);
        EXPECT_GE(strongestContrast(shown(symbol)), 3);  // a picture needs less than text
        const QImage other = shown(box.visualItemRect(box.item(0)));
        EXPECT_LT(strongestContrast(other), strongestContrast(shown(line)));

        box.setEnabled(true);
        const QImage enabled = shown(line);
        box.setDisabledSymbol(QString());
        EXPECT_EQ(shown(line), enabled);
    }
}

TEST_F(ListBoxTest, TheEmptyBoxSaysWhatBelongsThere) {
    const QImage full = box.grab().toImage();
    box.setEmptyText(QStringLiteral("Drop music here"));
    EXPECT_EQ(box.grab().toImage(), full);
    box.clear();
    const QImage withText = box.grab().toImage();
    box.setEmptyText(QString());
    EXPECT_NE(box.grab().toImage(), withText);
}

// The start and the end of a long path are what tells it from others.
TEST_F(ListBoxTest, ALongLineIsCutInItsMiddle) {
    const auto tail = [this](const QString& end) {
        box.clear();
        box.addItem(QStringLiteral("/music/") + QString(200, u'x') + end);
        const QRect line = box.visualItemRect(box.item(0));
        return box.viewport()->grab(line.adjusted(line.width() - 40, 0, 0, 0)).toImage();
    };
    EXPECT_EQ(tail(QStringLiteral("end.mp3")), tail(QStringLiteral("end.mp3")));
    EXPECT_NE(tail(QStringLiteral("end.mp3")), tail(QStringLiteral("bye.wav")));
}

// The edge where a line is cut is where its middle becomes an ellipsis. Lines of many widths, as
// their ends fall on other fractions of a pixel.
TEST_F(ListBoxTest, ALineIsToldExactlyWhereItIsPaintedCut) {
    box.setDisabledSymbol(QStringLiteral("pause"));
    for (int round = 0; round < 16; ++round) {
        const bool isHeld = round % 2 != 0;
        box.clear();
        box.addItem(QStringLiteral("/music/a song of wide letters.") + QString(round / 2, u'e'));
        box.setListIndex(isHeld ? 0 : -1);
        box.setEnabled(!isHeld);
        const auto text = [this] {
            const QRect line = box.visualItemRect(box.item(0));
            return box.viewport()->grab(QRect(line.topLeft(), QSize(140, line.height()))).toImage();
        };
        box.resize(400, 200);
        const QImage whole = text();
        EXPECT_EQ(tip(0), QString());
        int width = 300;
        for (; tip(0).isEmpty() && width > 150; --width) {
            box.resize(width, 200);
            ASSERT_EQ(tip(0).isEmpty(), text() == whole) << width << ' ' << round;
        }
        EXPECT_GT(width, 150);
        QToolTip::hideText();
        ASSERT_TRUE(test::comesTrue([] { return !QToolTip::isVisible(); }));
    }
}

}  // namespace
}  // namespace velorama

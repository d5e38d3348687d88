#include "controls/lists/item_notes.h"

#include "controls/lists/list_view.h"
#include "controls/lists/report_view.h"

#include "support/test_world.h"
#include "support/waiting.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>

#include <gtest/gtest.h>

namespace velorama {
namespace {

class Notes : public ItemNotes {
public:
    ItemMark mark(const QString& key) override { return marks.value(key); }
    QStringList tip(const QString& key) override { return {QStringLiteral("tip of ") + key, more}; }
    void look(const QString& key) override { looked.append(key); }

    QHash<QString, ItemMark> marks;
    QString more;
    QStringList looked;
};

const ItemMark corner{QStringLiteral("check"), QStringLiteral("in the show"),
                      ItemMark::Place::Corner};
const ItemMark middle{QStringLiteral("picture-missing"), QStringLiteral("file not found"),
                      ItemMark::Place::Middle};

/// What the tooltip reads like; empty while there is none.
QString tipText() {
    QTextDocument document;
    document.setHtml(QToolTip::isVisible() ? QToolTip::text() : QString());
    return document.toPlainText();
}

bool tipIsGone() {
    return test::comesTrue([] { return !QToolTip::isVisible(); });
}

void pointAt(QAbstractItemView& view, const QPoint& place) {
    test::expectMessage(QStringLiteral("raise()"));  // of the platform without a screen
    QHelpEvent event(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(view.viewport(), &event);
}

QString description(QAbstractItemView& view, int row) {
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&view);
    QAccessibleInterface* cell = list->tableInterface()->cellAt(row, 0);
    return cell != nullptr ? cell->text(QAccessible::Description) : QStringLiteral("(no cell)");
}

class ListNotes : public testing::Test {
protected:
    ListNotes() {
        icons.setImageSize({64, 64});
        QImage picture(64, 64, QImage::Format_RGB32);
        picture.fill(Qt::gray);
        icons.Add(QStringLiteral("gray"), picture);
        list.resize(600, 300);
        list.setIcons(&icons);
        for (const char* key : {"a", "b", "c"}) {
            list.Add(list.Count() + 1, QLatin1String(key), QLatin1String("<b>x</b>"), 1);
        }
        list.show();
    }
    ~ListNotes() override { QToolTip::hideText(); }
    QRect cell(int row) { return list.visualRect(list.model()->index(row - 1, 0)); }
    QImage look(int row) {
        return list.grab(cell(row).translated(list.viewport()->pos())).toImage();
    }

    ImageList icons;
    ListView list;
    Notes notes;
};

TEST_F(ListNotes, AMarkIsPaintedAndReadOut) {
    list.setNotes(&notes);
    const QImage plain = look(2);
    EXPECT_EQ(description(list, 1), QString());
    notes.marks[QStringLiteral("b")] = corner;
    emit notes.Changed();
    const QImage inCorner = look(2);
    EXPECT_NE(inCorner, plain);
    EXPECT_EQ(description(list, 1), QStringLiteral("in the show"));
    EXPECT_EQ(description(list, 2), QString());
    notes.marks[QStringLiteral("b")] = middle;
    EXPECT_NE(look(2), plain);
    EXPECT_NE(look(2), inCorner);
    EXPECT_EQ(description(list, 1), QStringLiteral("file not found"));
}

TEST_F(ListNotes, AMarkStandsOutInEveryPalette) {
    list.setNotes(&notes);
    for (const QColor& ground : {QColor(0xff, 0xff, 0xff), QColor(0x20, 0x22, 0x24)}) {
        QPalette palette;
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, ground.lightness() > 128 ? Qt::black : Qt::white);
        list.setPalette(palette);
        for (const ItemMark& mark : {corner, middle}) {
            notes.marks.clear();
            const QImage plain = look(1);
            notes.marks[QStringLiteral("a")] = mark;
            const QImage marked = look(1);
            int strong = 0;
            for (int y = 0; y < plain.height(); ++y) {
                for (int x = 0; x < plain.width(); ++x) {
                    strong += qAbs(qGray(plain.pixel(x, y)) - qGray(marked.pixel(x, y))) > 60;
                }
            }
            EXPECT_GT(strong, 40) << mark.text.toStdString();
        }
    }
}

TEST_F(ListNotes, AMarkInTheCornerLeavesTheFrameOfThePictureAlone) {
    list.setNotes(&notes);
    const QImage plain = look(1);
    notes.marks[QStringLiteral("a")] = corner;
    const QImage marked = look(1);
    QRect changed;
    for (int y = 0; y < plain.height(); ++y) {
        for (int x = 0; x < plain.width(); ++x) {
            if (plain.pixel(x, y) != marked.pixel(x, y)) {
                changed |= QRect(x, y, 1, 1);
            }
        }
    }
    QRect picture(0, 0, 64, 64);
    picture.moveCenter(QPoint(plain.width() / 2, picture.center().y()));
    EXPECT_FALSE(changed.isEmpty());
    EXPECT_GT(changed.left(), picture.left() + 32);
    EXPECT_LT(changed.right(), picture.right() - 1);
    EXPECT_LT(changed.height(), 30);
}

TEST_F(ListNotes, WithoutNotesTheTipIsTheCaptionAsItIs) {
    pointAt(list, cell(1).center());
    EXPECT_EQ(tipText(), QStringLiteral("<b>x</b>"));
    pointAt(list, QPoint(590, 290));
    EXPECT_TRUE(tipIsGone());
}

TEST_F(ListNotes, TheTipGrowsWhileItIsUp) {
    list.setNotes(&notes);
    pointAt(list, cell(1).center());
    EXPECT_EQ(tipText().trimmed(), QStringLiteral("tip of a"));
    notes.more = QStringLiteral("40 × 30 pixels");
    emit notes.Changed();
    EXPECT_EQ(tipText(), QStringLiteral("tip of a\n40 × 30 pixels"));
    QToolTip::hideText();
    ASSERT_TRUE(tipIsGone());
    notes.more = QStringLiteral("later");
    emit notes.Changed();
    EXPECT_EQ(tipText(), QString()) << "a tip that is gone stays so";
}

TEST_F(ListNotes, OneItemIsLookedAtOnceWhileItsTipIsUp) {
    list.setNotes(&notes);
    pointAt(list, cell(1).center());
    pointAt(list, cell(1).center() + QPoint(3, 3));
    EXPECT_EQ(notes.looked.join(u' '), QStringLiteral("a"));
    pointAt(list, cell(2).center());
    EXPECT_EQ(notes.looked.join(u' '), QStringLiteral("a b"));
    pointAt(list, cell(1).center());
    EXPECT_EQ(notes.looked.join(u' '), QStringLiteral("a b a"));
    pointAt(list, QPoint(590, 290));
    EXPECT_EQ(notes.looked.size(), 3);
}

TEST_F(ListNotes, TheListOutlivesItsNotes) {
    {
        Notes gone;
        list.setNotes(&gone);
        pointAt(list, cell(1).center());
    }
    pointAt(list, cell(2).center());
    EXPECT_EQ(tipText(), QStringLiteral("<b>x</b>"));
    look(1);
}

TEST_F(ListNotes, CountsWhatIsSelected) {
    const QSignalSpy told(&list, &ListView::SelectionChanged);
    EXPECT_EQ(list.SelectedCount(), 0);
    list.item(1)->setSelected(true);
    list.item(3)->setSelected(true);
    list.item(3)->setSelected(true);
    EXPECT_EQ(list.SelectedCount(), 2);
    EXPECT_EQ(told.size(), 2);
    QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(list.SelectedCount(), 3);
    EXPECT_GE(told.size(), 3);
    list.item(2)->setSelected(false);
    EXPECT_EQ(list.SelectedCount(), 2);
    list.Remove(1);
    EXPECT_EQ(list.SelectedCount(), 1);
    list.Add(1, QStringLiteral("d"), QStringLiteral("d"), 0);
    EXPECT_EQ(list.SelectedCount(), 1);
    list.clearSelection();
    EXPECT_EQ(list.SelectedCount(), 0);
    list.item(1)->setSelected(true);
    list.Clear();
    EXPECT_EQ(list.SelectedCount(), 0);
}

class ReportNotes : public testing::Test {
protected:
    ReportNotes() {
        view.resize(400, 200);
        view.setColumns({QStringLiteral("Slideshow"), QStringLiteral("Description")});
        view.setColumnWidth(1, 3000);
        view.setColumnWidth(2, 1500);
        view.Add(QStringLiteral("a"), QStringLiteral("a.vlr"))->setSubItems(1, note);
        view.Add(QStringLiteral("b"), QStringLiteral("b.vlr"));
        view.setNotes(&notes);
        view.show();
    }
    ~ReportNotes() override { QToolTip::hideText(); }
    QRect cell(int row, int column) {
        return view.visualRect(view.model()->index(row - 1, column - 1));
    }
    QImage look(int row) {
        return view.grab(cell(row, 1).translated(view.viewport()->pos())).toImage();
    }

    const QString note = QStringLiteral("a note that is too long for the column that it stands in");
    ReportView view;
    Notes notes;
};

TEST_F(ReportNotes, ARowWithAMarkIsFaintAndSaysWhy) {
    const QImage plain = look(2);
    EXPECT_EQ(description(view, 1), QString());
    notes.marks[QStringLiteral("b")] = middle;
    emit notes.Changed();
    EXPECT_NE(look(2), plain);
    EXPECT_EQ(description(view, 1), QStringLiteral("file not found"));
    EXPECT_EQ(description(view, 0), QString());
    view.item(2)->setSelected(true);
    EXPECT_EQ(view.SelectedItem(), view.item(2)) << "still there to be chosen";
}

TEST_F(ReportNotes, TheTipTellsTheNoteThatIsCutAndWhatIsKnown) {
    pointAt(view, cell(1, 1).center());
    EXPECT_EQ(tipText().trimmed(), QStringLiteral("tip of a"));
    pointAt(view, cell(1, 2).center());
    EXPECT_EQ(tipText().trimmed(), note + QStringLiteral("\ntip of a"));
    EXPECT_EQ(notes.looked.join(u' '), QStringLiteral("a"));
    notes.more = QStringLiteral("12 slides");
    emit notes.Changed();
    EXPECT_TRUE(tipText().endsWith(QStringLiteral("\n12 slides")));
    pointAt(view, QPoint(50, cell(2, 1).bottom() + 20));
    EXPECT_TRUE(tipIsGone());
}

}  // namespace
}  // namespace velorama

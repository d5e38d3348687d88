#pragma once

#include "controls/lists/empty_state.h"
#include "controls/lists/item_notes.h"
#include "controls/lists/report_item.h"
#include "controls/lists/row_tip.h"

#include <QHash>
#include <QIcon>
#include <QPointer>
#include <QTreeWidget>

#include <vector>

namespace velorama {

/// A list view of rows with columns: ordered items with unique keys, at most one of them selected.
/// Texts too long for their column are cut in the middle, and the tooltip has the whole of them.
class ReportView : public QTreeWidget {
    Q_OBJECT
public:
    explicit ReportView(QWidget* parent = nullptr);

    QString Name() const { return objectName(); }
    void setColumns(const QStringList& headers);
    /// Width of a column, counted from 1, in twips: exactly what was set, or the pixels since the
    /// user has dragged it. 0 where there is no such column.
    float ColumnWidth(int column) const;
    /// False where there is no such column, and for a width that is negative or no number; nothing
    /// changes then.
    bool setColumnWidth(int column, float twips);
    /// Painted in the middle of an empty list.
    void setEmptyText(const QString& text) { empty_.setText(text); }
    EmptyState& emptyState() { return empty_; }
    /// The small picture of every row.
    void setSmallIcon(const QIcon& icon);

    /// Who tells more of the rows in their tooltips, as long as it lives. A row with a mark is
    /// faint, and its symbol is not shown.
    void setNotes(ItemNotes* notes);
    /// What the mark of the row with that key means; empty for none.
    QString lackOf(const QString& key) const;

    int Count() const { return topLevelItemCount(); }
    /// At the end, not selected. Null, and nothing changes, if `key` is empty or another item has
    /// it.
    ReportItem* Add(const QString& key, const QString& text);
    /// Null outside 1 to Count.
    ReportItem* item(int index) const;
    /// Null if no item has the key.
    ReportItem* item(const QString& key) const;
    /// False outside 1 to Count. If the selected row goes, the one that takes its place is selected
    /// then, or the last.
    bool Remove(int index);
    void Clear();
    /// Null where no row is selected.
    ReportItem* SelectedItem() const;

    /// The whole text of the cell at a place of the viewport if it is cut there; empty otherwise.
    QString cutText(const QPoint& point) const;
    /// One line, short enough to be measured at every painting.
    static QString inOneLine(const QString& text);
    /// A place beside the columns belongs to its row too.
    QModelIndex indexAt(const QPoint& point) const override;

signals:
    /// A row was double-clicked with the left button.
    void DblClick();
    /// Character code of the key, before the list's own handling. Enter is 13, and is not repeated
    /// while it is held.
    void KeyPress(int keyAscii);

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    bool hasColumn(int column) const { return column >= 1 && column <= columnCount(); }
    const ReportItem* pointedAt(const QPoint& place) const;
    QStringList tipAt(const QPoint& place) const;
    void paintGround(QPainter& painter, const QRect& row, const QModelIndex& index) const;

    QHash<QString, ReportItem*> keys_;
    std::vector<float> widths_;  // twips, -1 for a column never set
    EmptyState empty_{*this, [this] { return Count() == 0; }};
    QIcon icon_;
    QPointer<ItemNotes> notes_;
    RowTip tip_{*this};
    bool placing_ = false;
};

}  // namespace velorama

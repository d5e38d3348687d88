#pragma once

#include <QIcon>
#include <QTreeWidget>

namespace velorama {

class ReportView;

/// One row of a ReportView. It belongs to its list and dies with Remove and Clear.
class ReportItem {
public:
    QString Key() const;
    QString Text() const;
    /// Text of the further column `column`, from 1; empty outside.
    QString SubItems(int column) const;
    void setSubItems(int column, const QString& text);
    /// Position in the list, from 1.
    int Index() const;
    bool Selected() const;
    /// Selects the row and makes it the current one.
    void setSelected(bool selected);

private:
    friend class ReportView;
    explicit ReportItem(QTreeWidgetItem& row) : row_(row) {}
    QTreeWidgetItem& row_;
};

/// A list view of rows with columns: ordered items with unique keys, one of them selected. Names
/// too long for their column are cut in the middle, and the tooltip has the whole of them.
class ReportView : public QTreeWidget {
    Q_OBJECT
public:
    explicit ReportView(QWidget* parent = nullptr);
    ~ReportView() override;

    QString Name() const { return objectName(); }
    void setColumns(const QStringList& headers);
    /// Width of a column, counted from 1, in twips. Negative: refused, nothing changes.
    float ColumnWidth(int column) const;
    bool setColumnWidth(int column, float twips);
    /// Painted in the middle of an empty list.
    void setEmptyText(const QString& text);
    /// The small picture of every row.
    void setSmallIcon(const QIcon& icon);

    int Count() const;
    /// At the end. Null, and nothing changes, if `key` is empty or another item has it.
    ReportItem* Add(const QString& key, const QString& text);
    /// Null outside 1 to Count.
    ReportItem* item(int index) const;
    /// Null if no item has the key.
    ReportItem* item(const QString& key) const;
    /// False outside 1 to Count. The row that takes its place is selected then, or the last.
    bool Remove(int index);
    void Clear();
    /// Null where no row is selected.
    ReportItem* SelectedItem() const;

signals:
    /// A row was double-clicked.
    void DblClick();
    /// Character code of the key, before the list's own handling.
    void KeyPress(int keyAscii);

protected:
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QHash<QString, ReportItem*> keys_;
    QString emptyText_;
    QIcon icon_;
};

}  // namespace velorama

#pragma once

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
    static constexpr int KeyRole = Qt::UserRole;
    explicit ReportItem(QTreeWidgetItem& row) : row_(row) {}
    QTreeWidgetItem& row_;
};

}  // namespace velorama

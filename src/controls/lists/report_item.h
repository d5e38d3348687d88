#pragma once

#include <QTreeWidget>

namespace velorama {

/// One row of a ReportView. It belongs to its list and dies with Remove and Clear.
class ReportItem : public QTreeWidgetItem {
public:
    explicit ReportItem(const QString& key) : key_(key) {}

    QString Key() const { return key_; }
    QString Text() const { return text(0); }
    /// Text of the further column `column`, from 1; empty outside.
    QString SubItems(int column) const;
    void setSubItems(int column, const QString& text);
    /// Position in the list, from 1.
    int Index() const;
    bool Selected() const { return isSelected(); }
    /// Selects the row and makes it the current one.
    void setSelected(bool selected);

    /// A row whose key the list's notes mark is faint, and described by what the mark means.
    QVariant data(int column, int role) const override;

private:
    QString key_;
};

}  // namespace velorama

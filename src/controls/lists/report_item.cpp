#include "controls/lists/report_item.h"

namespace velorama {

QString ReportItem::Key() const {
    return row_.data(0, KeyRole).toString();
}

QString ReportItem::Text() const {
    return row_.text(0);
}

QString ReportItem::SubItems(int column) const {
    return column >= 1 ? row_.text(column) : QString();
}

void ReportItem::setSubItems(int column, const QString& text) {
    if (column >= 1 && column < row_.treeWidget()->columnCount()) {
        row_.setText(column, text);
    }
}

int ReportItem::Index() const {
    return row_.treeWidget()->indexOfTopLevelItem(&row_) + 1;
}

bool ReportItem::Selected() const {
    return row_.isSelected();
}

void ReportItem::setSelected(bool selected) {
    if (selected) {
        row_.treeWidget()->setCurrentItem(&row_);
    }
    row_.setSelected(selected);
}

}  // namespace velorama

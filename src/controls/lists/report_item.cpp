#include "controls/lists/report_item.h"

namespace velorama {

QString ReportItem::SubItems(int column) const {
    return column >= 1 ? text(column) : QString();
}

void ReportItem::setSubItems(int column, const QString& text) {
    if (column >= 1 && column < treeWidget()->columnCount()) {
        setText(column, text);
    }
}

int ReportItem::Index() const {
    return treeWidget()->indexFromItem(this).row() + 1;
}

void ReportItem::setSelected(bool selected) {
    if (selected) {
        treeWidget()->setCurrentItem(this);
    }
    QTreeWidgetItem::setSelected(selected);
}

}  // namespace velorama

#include "controls/lists/report_item.h"

#include "controls/lists/report_view.h"

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

QVariant ReportItem::data(int column, int role) const {
    // Still to be read, on dark ground and on light.
    constexpr float strength = 0.55F;
    const auto* list = qobject_cast<const ReportView*>(treeWidget());
    if (list == nullptr || (role != Qt::ForegroundRole && role != Qt::AccessibleDescriptionRole)) {
        return QTreeWidgetItem::data(column, role);
    }
    const QString lack = list->lackOf(key_);
    if (lack.isEmpty()) {
        return QTreeWidgetItem::data(column, role);
    }
    if (role == Qt::AccessibleDescriptionRole) {
        return lack;
    }
    QColor colour = list->palette().color(QPalette::Text);
    colour.setAlphaF(strength);
    return QBrush(colour);
}

}  // namespace velorama

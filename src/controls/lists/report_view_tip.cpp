// What a tooltip of the list tells, and what its owner tells of its rows.

#include "controls/lists/cut_text.h"
#include "controls/lists/report_view.h"

namespace velorama {

QString ReportView::inOneLine(const QString& text) {
    constexpr qsizetype most = 1000;
    const QString shown =
        text.size() > 2 * most ? text.left(most) + QChar(0x2026) + text.right(most) : text;
    return shown.simplified();
}

void ReportView::setNotes(ItemNotes* notes) {
    notes_ = notes;
    connect(notes, &ItemNotes::Changed, this, [this] {
        viewport()->update();
        if (const auto place = tip_.place()) {
            tip_.renew(tipAt(*place));
        }
    });
}

QString ReportView::lackOf(const QString& key) const {
    return notes_ ? notes_->mark(key).text : QString();
}

QString ReportView::cutText(const QPoint& point) const {
    const QModelIndex cell = indexAt(point);
    if (!cell.isValid()) {
        return QString();
    }
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(cell);
    option.features = QStyleOptionViewItem::HasDisplay;
    option.text = inOneLine(cell.data().toString());
    if (cell.column() == 0 && !icon_.isNull()) {
        option.features |= QStyleOptionViewItem::HasDecoration;
        option.decorationSize = iconSize();
    }
    return isPaintedCut(option, *this) ? option.text : QString();
}

const ReportItem* ReportView::pointedAt(const QPoint& place) const {
    const QModelIndex row = indexAt(place);
    return row.isValid() ? item(row.row() + 1) : nullptr;
}

QStringList ReportView::tipAt(const QPoint& place) const {
    const ReportItem* pointed = pointedAt(place);
    const QString cut = cutText(place);
    QStringList lines = cut.isEmpty() ? QStringList() : QStringList(cut);
    if (notes_ && pointed != nullptr) {
        // The whole path holds the name.
        lines = indexAt(place).column() == 0 ? QStringList() : lines;
        lines += notes_->tip(pointed->Key());
    }
    return lines;
}

bool ReportView::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QTreeWidget::viewportEvent(event);
    }
    const auto* help = static_cast<QHelpEvent*>(event);
    const std::optional<QPoint> before = tip_.place();
    const ReportItem* pointed = pointedAt(help->pos());
    const bool isNew = !before || pointedAt(*before) != pointed;
    tip_.show(*help, tipAt(help->pos()));
    if (notes_ && pointed != nullptr && isNew) {
        notes_->look(pointed->Key());
    }
    return true;
}

}  // namespace velorama

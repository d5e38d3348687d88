#include "controls/lists/report_view.h"

#include "controls/boxes/list_frame.h"
#include "controls/geometry/twips.h"
#include "controls/lists/report_header.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cmath>

namespace velorama {
namespace {

constexpr int IconSide = 20;
// A user who drags a column to nothing would not find it again.
constexpr int LeastDraggedWidth = 24;
// The header's own limit; a width in pixels has to fit a whole number in any case.
constexpr float MostTwips = 1048575 * twipsPerLogicalPixel;
constexpr qreal Radius = 5;
constexpr float SelectedTint = 0.38F;
constexpr float IdleTint = 0.24F;
constexpr float HoverTint = 0.12F;

/// The row paints the ground under its cells, and a cell only what stands on it.
class CellDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant& value, const QLocale&) const override {
        return ReportView::inOneLine(value.toString());
    }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        return {size.width(), std::max(size.height(), IconSide + 4)};
    }
};

int widthInPixels(float twips) {
    return toPixels(std::min(twips, MostTwips));
}

}  // namespace

ReportView::ReportView(QWidget* parent) : QTreeWidget(parent) {
    setListFrame(*this);
    setHeader(new ReportHeader(this));
    setItemDelegate(new CellDelegate(this));
    setSelectionMode(SingleSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    setIconSize({IconSide, IconSide});
    setRootIsDecorated(false);
    setIndentation(0);
    setUniformRowHeights(true);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setMouseTracking(true);
    connect(header(), &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (!placing_ && width < LeastDraggedWidth) {
            header()->resizeSection(column, LeastDraggedWidth);
        }
    });
    setColumns({QString()});
}

bool ReportView::event(QEvent* event) {
    updateListFrame(*this, event->type());
    const bool painted = event->type() == QEvent::Paint;
    const bool handled = QTreeWidget::event(event);
    if (painted) {
        paintListFrame(*this);
    }
    return handled;
}

void ReportView::setColumns(const QStringList& headers) {
    setColumnCount(static_cast<int>(headers.size()));
    setHeaderLabels(headers);
    widths_.resize(static_cast<size_t>(headers.size()), -1);
}

float ReportView::ColumnWidth(int column) const {
    if (!hasColumn(column)) {
        return 0;
    }
    const int now = columnWidth(column - 1);
    const float exact = widths_[static_cast<size_t>(column) - 1];
    return exact >= 0 && widthInPixels(exact) == now ? exact : toTwips(now);
}

bool ReportView::setColumnWidth(int column, float twips) {
    if (!hasColumn(column) || !std::isfinite(twips) || twips < 0) {
        return false;
    }
    widths_[static_cast<size_t>(column) - 1] = twips;
    placing_ = true;
    QTreeWidget::setColumnWidth(column - 1, widthInPixels(twips));
    placing_ = false;
    return true;
}

void ReportView::setSmallIcon(const QIcon& icon) {
    icon_ = icon;
    for (ReportItem* item : std::as_const(keys_)) {
        item->setIcon(0, icon);
    }
}

ReportItem* ReportView::Add(const QString& key, const QString& text) {
    if (key.isEmpty() || keys_.contains(key)) {
        return nullptr;
    }
    auto* item = new ReportItem(key);
    item->setText(0, text);
    item->setIcon(0, icon_);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren);
    addTopLevelItem(item);
    keys_.insert(key, item);
    return item;
}

ReportItem* ReportView::item(int index) const {
    return static_cast<ReportItem*>(topLevelItem(index - 1));
}

ReportItem* ReportView::item(const QString& key) const {
    return keys_.value(key);
}

bool ReportView::Remove(int index) {
    const ReportItem* gone = item(index);
    if (gone == nullptr) {
        return false;
    }
    ReportItem* selected = SelectedItem();
    const bool goesSelected = selected == gone;
    keys_.remove(gone->Key());
    delete takeTopLevelItem(index - 1);
    // The view would choose a neighbour on its own, the one above.
    clearSelection();
    ReportItem* next = goesSelected ? item(std::min(index, Count())) : selected;
    if (next != nullptr) {
        next->setSelected(true);
    }
    return true;
}

void ReportView::Clear() {
    keys_.clear();
    clear();
}

ReportItem* ReportView::SelectedItem() const {
    // The current row is another thing: the focus gives the list one without selecting it.
    const QList<QTreeWidgetItem*> rows = selectedItems();
    return rows.isEmpty() ? nullptr : static_cast<ReportItem*>(rows.first());
}

QModelIndex ReportView::indexAt(const QPoint& point) const {
    const QModelIndex hit = QTreeWidget::indexAt(point);
    return hit.isValid() ? hit : QTreeWidget::indexAt({columnViewportPosition(0) + 1, point.y()});
}

void ReportView::paintEvent(QPaintEvent* event) {
    QTreeWidget::paintEvent(event);
    empty_.paint();
}

void ReportView::paintGround(QPainter& painter, const QRect& row, const QModelIndex& index) const {
    const bool hovered = viewport()->underMouse() &&
                         indexAt(viewport()->mapFromGlobal(QCursor::pos())).row() == index.row();
    QColor colour = palette().color(QPalette::Active, QPalette::Highlight);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() && currentIndex().row() == index.row() ? QPen(colour, 1)
                                                                     : QPen(Qt::NoPen));
    colour.setAlphaF(selectionModel()->isSelected(index) ? hasFocus() ? SelectedTint : IdleTint
                     : hovered                           ? HoverTint
                                                         : 0);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(row).adjusted(1.5, 1.5, -1.5, -1.5), Radius, Radius);
}

void ReportView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    painter->save();
    paintGround(*painter, QRect(0, option.rect.top(), viewport()->width(), option.rect.height()),
                index.siblingAtColumn(0));
    painter->restore();
    for (int column = 0; column < columnCount(); ++column) {
        const QModelIndex cell = index.siblingAtColumn(column);
        QStyleOptionViewItem part = option;
        part.rect = visualRect(cell);
        part.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
        if (part.rect.isValid()) {
            itemDelegate()->paint(painter, part, cell);
        }
    }
}

void ReportView::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    const QPointer<ReportView> alive(this);
    const QString text = event->text();
    // A key that is held would open the same thing again and again.
    if (!text.isEmpty() && key != Qt::Key_Delete && !(enter && event->isAutoRepeat())) {
        emit KeyPress(text.front().unicode());
    }
    if (!alive || enter) {
        return;
    }
    // Into a list without a selected row, down leads to its first and up to its last.
    if ((key == Qt::Key_Down || key == Qt::Key_Up) && SelectedItem() == nullptr && Count() > 0) {
        item(key == Qt::Key_Down ? 1 : Count())->setSelected(true);
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

void ReportView::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool onRow = indexAt(event->position().toPoint()).isValid();
    QTreeWidget::mouseDoubleClickEvent(event);
    if (onRow && event->button() == Qt::LeftButton) {
        emit DblClick();
    }
}

void ReportView::showEvent(QShowEvent* event) {
    QTreeWidget::showEvent(event);
    if (!event->spontaneous() && SelectedItem() != nullptr) {
        scrollToItem(currentItem());
    }
}

QItemSelectionModel::SelectionFlags ReportView::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const {
    // A selected row stays selected when it is clicked with a key held, and beside the rows.
    if (!index.isValid()) {
        return QItemSelectionModel::NoUpdate;
    }
    const QItemSelectionModel::SelectionFlags command = QTreeWidget::selectionCommand(index, event);
    return command.testFlag(QItemSelectionModel::Deselect)
               ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
               : command;
}

// The ground of a row reaches beyond the columns, and the view would repaint these only.
void ReportView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTreeWidget::currentChanged(current, previous);
    viewport()->update();
}

void ReportView::selectionChanged(const QItemSelection& selected,
                                  const QItemSelection& deselected) {
    QTreeWidget::selectionChanged(selected, deselected);
    viewport()->update();
}

}  // namespace velorama

#include "controls/lists/list_box.h"

#include "controls/boxes/list_frame.h"
#include "controls/buttons/contrast.h"
#include "controls/buttons/icon.h"
#include "controls/geometry/tip_markup.h"
#include "controls/lists/cut_text.h"
#include "controls/lists/local_files.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QToolTip>

namespace velorama {
namespace {

constexpr int SymbolMargin = 1;
constexpr float HeldTint = 0.24F;

/// The place of the text beside the symbol.
QRect heldText(const QStyleOptionViewItem& option) {
    return QStyle::visualRect(option.direction, option.rect,
                              option.rect.adjusted(option.rect.height(), 0, -SymbolMargin, 0));
}

/// The line that waits: not pale as the others are, but without the fill of a selected one.
void paintHeld(QPainter& painter, const QStyleOptionViewItem& option, const QString& symbol) {
    QColor ground = option.palette.color(QPalette::Active, QPalette::Highlight);
    const QColor ink = option.palette.color(QPalette::Active, QPalette::Text);
    ground.setAlphaF(HeldTint);
    painter.fillRect(option.rect, ground);
    const int side = option.rect.height();
    QRect place(option.rect.topLeft(), QSize(side, side));
    place = QStyle::visualRect(option.direction, option.rect, place);
    const QRect text = heldText(option);
    paintSymbol(painter, place.adjusted(SymbolMargin, SymbolMargin, -SymbolMargin, -SymbolMargin),
                symbol, ink);
    painter.setPen(ink);
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeading,
                     option.fontMetrics.elidedText(option.text, Qt::ElideMiddle, text.width()));
}

}  // namespace

class ListBox::LineDelegate : public QStyledItemDelegate {
public:
    explicit LineDelegate(ListBox* box) : QStyledItemDelegate(box), box_(*box) {}

    /// Lines ask for no width of their own: they get the box's, and are cut to it.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {0, QStyledItemDelegate::sizeHint(option, index).height()};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem line = option;
        initStyleOption(&line, index);
        if (box_.isHeld(line.state.testFlag(QStyle::State_Selected))) {
            paintHeld(*painter, line, box_.disabledSymbol_);
        } else {
            QStyledItemDelegate::paint(painter, option, index);
        }
    }

protected:
    // Desktops choose accents that small letters are hard to read on, and the style's mark of the
    // focus makes the ground of a selected line paler still. The frame of the box tells of it.
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if (option->state.testFlag(QStyle::State_Selected)) {
            option->state.setFlag(QStyle::State_HasFocus, false);
        }
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            option->palette.setColor(
                group, QPalette::Highlight,
                readableGround(option->palette.color(group, QPalette::Highlight),
                               option->palette.color(group, QPalette::HighlightedText)));
        }
    }

private:
    const ListBox& box_;
};

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
    setListFrame(*this);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUniformItemSizes(true);
    setItemDelegate(new LineDelegate(this));
    setDragDropMode(QAbstractItemView::DropOnly);
}

QString ListBox::List(int index) const {
    const QListWidgetItem* line = item(index);
    return line ? line->text() : QString();
}

bool ListBox::setList(int index, const QString& text) {
    QListWidgetItem* line = item(index);
    if (line) {
        line->setText(text);
    }
    return line != nullptr;
}

int ListBox::ListIndex() const {
    // The current line is another thing: the focus gives the box one without selecting it.
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? -1 : selected.first().row();
}

bool ListBox::setListIndex(int index) {
    if (index < -1 || index >= count()) {
        return false;
    }
    if (index < 0) {
        clearSelection();
        setCurrentRow(-1, QItemSelectionModel::NoUpdate);
    } else {
        setCurrentRow(index, QItemSelectionModel::ClearAndSelect);
    }
    return true;
}

bool ListBox::RemoveItem(int index) {
    if (index < 0 || index >= count()) {
        return false;
    }
    const int selected = ListIndex();
    // The view would move the selection to a neighbour on its own.
    setListIndex(-1);
    delete takeItem(index);
    if (selected >= 0 && selected != index) {
        setListIndex(selected > index ? selected - 1 : selected);
    }
    return true;
}

bool ListBox::isHeld(bool isSelected) const {
    return isSelected && !isEnabled() && !disabledSymbol_.isEmpty();
}

void ListBox::setDisabledSymbol(const QString& name) {
    disabledSymbol_ = name;
    viewport()->update();
}

bool ListBox::isCut(const QListWidgetItem* line) const {
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualItemRect(line);
    option.features = QStyleOptionViewItem::HasDisplay;
    option.text = line->text();
    if (isHeld(line->isSelected())) {
        return QFontMetricsF(font()).horizontalAdvance(option.text) > heldText(option).width();
    }
    return isPaintedCut(option, *this);
}

bool ListBox::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QListWidgetItem* line = itemAt(help->pos());
        const QStringList cut = line && isCut(line) ? QStringList(line->text()) : QStringList();
        QToolTip::showText(help->globalPos(), tipMarkup(cut, QToolTip::font()), viewport());
        return true;
    }
    return QListWidget::viewportEvent(event);
}

void ListBox::paintEvent(QPaintEvent* event) {
    QListWidget::paintEvent(event);
    empty_.paint();
}

bool ListBox::event(QEvent* event) {
    updateListFrame(*this, event->type());
    const bool painted = event->type() == QEvent::Paint;
    const bool handled = QListWidget::event(event);
    if (painted) {
        paintListFrame(*this);
    }
    return handled;
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && ListIndex() >= 0) {
        if (!event->isAutoRepeat()) {
            emit DblClick();
        }
        return;
    }
    // Into a list without a selected line, down leads to its first and up to its last.
    if ((key == Qt::Key_Down || key == Qt::Key_Up) && ListIndex() < 0 && count() > 0) {
        setListIndex(key == Qt::Key_Down ? 0 : count() - 1);
        return;
    }
    QListWidget::keyPressEvent(event);
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool onLine = itemAt(event->position().toPoint()) != nullptr;
    QListWidget::mouseDoubleClickEvent(event);
    if (onLine && event->button() == Qt::LeftButton) {
        emit DblClick();
    }
}

void ListBox::dragEnterEvent(QDragEnterEvent* event) {
    dragMoveEvent(event);
}

void ListBox::dragMoveEvent(QDragMoveEvent* event) {
    if (localFiles(*event->mimeData()).isEmpty()) {
        event->ignore();
        return;
    }
    // The files stay where they are, also where the file manager proposes to move them.
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void ListBox::dropEvent(QDropEvent* event) {
    const QStringList paths = localFiles(*event->mimeData());
    if (paths.isEmpty()) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    emit FilesDropped(paths);
}

QItemSelectionModel::SelectionFlags ListBox::selectionCommand(const QModelIndex& index,
                                                              const QEvent* event) const {
    // A selected line stays selected when it is clicked with a key held, and beside the lines.
    const auto command = QListWidget::selectionCommand(index, event);
    return index.isValid() && command.testFlag(QItemSelectionModel::Deselect)
               ? QItemSelectionModel::ClearAndSelect
           : index.isValid() ? command
                             : QItemSelectionModel::NoUpdate;
}

}  // namespace velorama

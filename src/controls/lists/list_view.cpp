#include "controls/lists/list_view.h"

#include "controls/boxes/list_frame.h"
#include "controls/geometry/twips.h"
#include "controls/input/keys.h"
#include "controls/lists/list_delegate.h"
#include "controls/lists/list_model.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

namespace velorama {

ListView::ListView(QWidget* parent)
    : QListView(parent), model_(new ListModel(*this)), delegate_(new ListDelegate(*this)) {
    setListFrame(*this);
    setItemDelegate(delegate_);
    setModel(model_);
    setFlow(LeftToRight);
    setMovement(Static);
    setUniformItemSizes(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(EditKeyPressed | SelectedClicked);
    setTextElideMode(Qt::ElideMiddle);
    setMouseTracking(true);
    // The context-menu key and the right button are events of the owner's.
    setContextMenuPolicy(Qt::PreventContextMenu);
    setArrangement(Arrangement::Wrapped);
}

ListView::~ListView() {
    // The items outlive this destructor's body but not the widget: nothing may read them from here.
    model_->end();
}

void ListView::setArrangement(Arrangement arrangement) {
    arrangement_ = arrangement;
    const bool strip = arrangement == Arrangement::Strip;
    setWrapping(!strip);
    setResizeMode(strip ? Fixed : Adjust);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollBarPolicy(strip ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    setHorizontalScrollBarPolicy(strip ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    setSelectionRectVisible(!strip);
    layOutCells();
}

void ListView::setRightRim(int pixels) {
    setViewportMargins(0, 0, pixels, 0);
    auto* spacer = new QWidget(this);
    spacer->setFixedWidth(pixels);
    addScrollBarWidget(spacer, Qt::AlignRight);
}

void ListView::setSelectedItem(int index) {
    ListItem* const chosen = item(index);
    if (chosen == nullptr) {
        return;
    }
    current_ = chosen;
    if (model_->isPublished()) {
        model_->showAppended();
        selectionModel()->setCurrentIndex(model_->index(index - 1), QItemSelectionModel::NoUpdate);
    }
}

void ListView::clearSelection() {
    for (int index = 1; index <= Count(); ++index) {
        items_.select(*item(index), false);
    }
    selectionModel()->clearSelection();
}

void ListView::select(const std::vector<int>& places, int current) {
    for (int index = 1; index <= Count(); ++index) {
        items_.select(*item(index), false);
    }
    for (const int place : places) {
        if (ListItem* const chosen = item(place)) {
            items_.select(*chosen, true);
        }
    }
    // First, so that the list scrolls to it: with the selection it would stay where it is.
    setSelectedItem(current);
    if (model_->isPublished()) {
        model_->publishSelection();
    }
}

void ListView::setIcons(ImageList* icons) {
    if (icons_ != nullptr) {
        icons_->disconnect(this);
    }
    icons_ = icons;
    delegate_->setIcons(icons);
    if (icons != nullptr) {
        connect(icons, &ImageList::changed, this, &ListView::iconsChanged);
    }
    iconsChanged();
}

void ListView::iconsChanged() {
    layOutCells();
    viewport()->update();
}

void ListView::layOutCells() {
    QSize cell =
        ListDelegate::cellSize(icons_ != nullptr ? icons_->ImageSize() : QSize(), fontMetrics());
    if (arrangement_ == Arrangement::Wrapped) {
        // No ragged edge. The base keeps a scroll bar's width free, and a pixel behind the last.
        const int row = maximumViewportSize().width() - 1 -
                        style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
        cell.setWidth(qMax(1, row / qMax(1, row / cell.width())));
    }
    if (cell != gridSize()) {
        setGridSize(cell);
        horizontalScrollBar()->setSingleStep(cell.width() / 2);
        verticalScrollBar()->setSingleStep(cell.height() / 2);
    }
}

void ListView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    if (!model_->isPublishing() && current.isValid()) {
        current_ = item(current.row() + 1);
    }
    QListView::currentChanged(current, previous);
}

void ListView::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    const auto mark = [this](const QItemSelection& ranges, bool on) {
        for (const QItemSelectionRange& range : ranges) {
            for (int row = range.top(); row <= range.bottom() && row < Count(); ++row) {
                items_.select(*item(row + 1), on);
            }
        }
    };
    if (!model_->isPublishing() && model_->isPublished()) {
        mark(deselected, false);
        mark(selected, true);
    }
    QListView::selectionChanged(selected, deselected);
    emit SelectionChanged();
}

void ListView::textEdited(ListItem& item, const QString& text) {
    emit BeforeLabelChange();
    item.setText(text);
    emit AfterLabelEdit(text);
}

bool ListView::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::FontChange:
        case QEvent::StyleChange:
            layOutCells();
            break;
        case QEvent::Show:
        case QEvent::KeyPress:
        case QEvent::InputMethod:
            model_->publish();
            break;
        case QEvent::Paint:
            // Here, not in paintEvent: the layout may show or hide scroll bars.
            if (!model_->isPublished()) {
                model_->publish();
            }
            break;
        default:
            break;
    }
    updateListFrame(*this, event->type());
    const bool painted = event->type() == QEvent::Paint;
    const bool handled = QListView::event(event);
    if (painted) {
        paintListFrame(*this);
    }
    return handled;
}

void ListView::resizeEvent(QResizeEvent* event) {
    layOutCells();
    QListView::resizeEvent(event);
}

bool ListView::viewportEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
            model_->publish();
            break;
        case QEvent::ToolTip:
            model_->publish();
            showTip(*static_cast<QHelpEvent*>(event));
            return true;
        default:
            break;
    }
    return QListView::viewportEvent(event);
}

void ListView::keyPressEvent(QKeyEvent* event) {
    const QPointer<ListView> alive(this);
    emit KeyDown(keyCode(*event), shiftMask(event->modifiers()));
    const QString text = event->text();
    if (alive && !text.isEmpty() && event->key() != Qt::Key_Delete) {
        emit KeyPress(text.front().unicode());
    }
    if (!alive) {
        return;
    }
    model_->publish();
    const ListItem* const before = current_;
    QListView::keyPressEvent(event);
    if (alive && current_ != before) {
        emit CurrentMoved();
    }
}

void ListView::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton;
    QListView::mousePressEvent(event);
}

void ListView::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    entered_ = false;
    const QPointer<ListView> alive(this);
    const bool click = pressed_ && event->button() == Qt::LeftButton;
    if (click) {
        pressed_ = false;
    }
    const int button = mouseButton(event->button());
    if (button != 0) {
        emit MouseUp(button, shiftMask(event->modifiers()), toTwips(event->position().x()),
                     toTwips(event->position().y()));
    }
    if (alive && click) {
        emit Click();
    }
}

void ListView::mouseDoubleClickEvent(QMouseEvent* event) {
    const bool onItem = indexAt(event->position().toPoint()).isValid();
    QListView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton) {
        return;
    }
    pressed_ = false;
    if (onItem) {
        emit DblClick();
    }
}

void ListView::wheelEvent(QWheelEvent* event) {
    if (arrangement_ != Arrangement::Strip || event->angleDelta().y() == 0) {
        QListView::wheelEvent(event);
        return;
    }
    // The one row moves sideways under the ordinary wheel.
    const QPoint pixels = event->pixelDelta();
    QWheelEvent sideways(event->position(), event->globalPosition(), {pixels.y(), 0},
                         {event->angleDelta().y(), 0}, event->buttons(),
                         event->modifiers() & ~Qt::AltModifier, event->phase(), event->inverted(),
                         event->source());
    QListView::wheelEvent(&sideways);
    event->setAccepted(sideways.isAccepted());
}

void ListView::focusInEvent(QFocusEvent* event) {
    model_->publish();
    entered_ = event->reason() == Qt::MouseFocusReason;
    QListView::focusInEvent(event);
    emit GotFocus();
}

bool ListView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    if (trigger == SelectedClicked && event != nullptr) {
        // Only the caption opens for editing, and only where it alone is selected. The click that
        // brings the keyboard here is no wish to type.
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const QRect caption = delegate_->captionArea(visualRect(index), fontMetrics());
        if (entered_ || mouse->modifiers() != Qt::NoModifier ||
            !caption.contains(mouse->position().toPoint()) ||
            selectionModel()->selectedRows().size() != 1) {
            return false;
        }
    }
    return QListView::edit(index, trigger, event);
}

QItemSelectionModel::SelectionFlags ListView::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
    const QItemSelectionModel::SelectionFlags command = QListView::selectionCommand(index, event);
    // Shift alone selects the range and nothing else; Qt would keep what was selected elsewhere.
    if (event != nullptr && command == QItemSelectionModel::SelectCurrent &&
        (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress)) {
        return command | QItemSelectionModel::Clear;
    }
    return command;
}

void ListView::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    empty_.paint();
}

}  // namespace velorama

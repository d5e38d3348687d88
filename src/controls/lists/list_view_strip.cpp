// What a list does along its one row: places between its items, pages, items dragged off.

#include "controls/lists/list_model.h"
#include "controls/lists/list_view.h"

#include <QPointer>

#include <algorithm>

namespace velorama {
namespace {

constexpr int dropLineWidth = 4;   // logical pixels
constexpr int dropLineMargin = 4;  // above and below the line

}  // namespace

int ListView::gapAt(const QPoint& place) {
    model_->publish();
    const int cell = std::max(1, gridSize().width());
    const int left = visualRect(model_->index(0)).left();
    return std::clamp((place.x() - left + cell / 2) / cell, 0, Count());
}

QRect ListView::gapLine(int gap) {
    model_->publish();
    const int middle = visualRect(model_->index(0)).left() + gap * gridSize().width();
    const int most = std::max(0, viewport()->width() - dropLineWidth);
    return {std::clamp(middle - dropLineWidth / 2, 0, most), dropLineMargin, dropLineWidth,
            viewport()->height() - 2 * dropLineMargin};
}

QModelIndex ListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const int step = action == MovePageDown ? 1 : action == MovePageUp ? -1 : 0;
    if (!isStrip() || step == 0 || Count() == 0) {
        return QListView::moveCursor(action, modifiers);
    }
    const int page = std::max(1, viewport()->width() / std::max(1, gridSize().width()));
    return model_->index(std::clamp(currentIndex().row() + step * page, 0, Count() - 1));
}

// The release that ends a drag goes elsewhere. A hand that trembles at the right button wants the
// menu, which comes with the release.
void ListView::startDrag(Qt::DropActions) {
    if (!pressed_) {
        return;
    }
    pressed_ = false;
    entered_ = false;
    const QPointer<ListView> alive(this);
    emit DragOff();
    if (alive) {
        emit Click();
    }
}

}  // namespace velorama

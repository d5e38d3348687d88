#include "controls/lists/list_model.h"
#include "controls/lists/list_view.h"

namespace velorama {

ListItem::ListItem(ListView& list, const QString& key, const QString& text, int icon)
    : list_(list), key_(key), text_(text), icon_(icon) {}

bool ListItem::setKey(const QString& key) {
    return list_.items_.rename(*this, key);
}

void ListItem::setText(const QString& text) {
    text_ = text;
    changed();
}

void ListItem::setIcon(int index) {
    icon_ = index;
    changed();
}

void ListItem::changed() {
    list_.items_.touch();
    if (list_.model_->isPublished()) {
        list_.model_->rowChanged(Index() - 1);
    }
}

int ListItem::Index() const {
    return list_.items_.positionOf(*this);
}

void ListItem::setSelected(bool selected) {
    list_.items_.select(*this, selected);
    if (selected) {
        list_.current_ = this;
    }
    if (!list_.model_->isPublished()) {
        return;
    }
    list_.model_->showAppended();
    const QModelIndex row = list_.model_->index(Index() - 1);
    if (selected) {
        list_.selectionModel()->setCurrentIndex(row, QItemSelectionModel::Select);
    } else {
        list_.selectionModel()->select(row, QItemSelectionModel::Deselect);
    }
}

}  // namespace velorama

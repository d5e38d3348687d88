#include "controls/lists/list_items.h"

#include "platform/process/free_elsewhere.h"

#include <iterator>
#include <utility>

namespace velorama {

ListItem* ListItems::at(int index) const {
    return index >= 1 && index <= count() ? items_[static_cast<size_t>(index) - 1].get() : nullptr;
}

bool ListItems::hasRoomFor(int index, const QString& key) const {
    return index >= 1 && index <= count() + 1 && (key.isEmpty() || !keys_.contains(key));
}

ListItem* ListItems::insert(int index, std::unique_ptr<ListItem> made) {
    ++changes_;
    ListItem* const added = made.get();
    added->position_ = index;
    numbered_ = numbered_ && index == count() + 1;
    items_.insert(items_.begin() + (index - 1), std::move(made));
    if (!added->key_.isEmpty()) {
        keys_.insert(added->key_, added);
    }
    return added;
}

void ListItems::remove(int index) {
    ++changes_;
    select(*at(index), false);
    keys_.remove(at(index)->key_);
    items_.erase(items_.begin() + (index - 1));
    numbered_ = false;
}

void ListItems::remove(const std::vector<int>& places) {
    std::vector<std::unique_ptr<ListItem>> gone;
    gone.reserve(places.size());
    for (const int place : places) {
        select(*at(place), false);
        keys_.remove(at(place)->key_);
        gone.push_back(std::move(items_[static_cast<size_t>(place) - 1]));
    }
    std::erase(items_, nullptr);
    changes_ += static_cast<qint64>(places.size());
    numbered_ = false;
    freeElsewhere(gone);
}

void ListItems::insert(int index, std::vector<std::unique_ptr<ListItem>> made) {
    changes_ += static_cast<qint64>(made.size());
    for (const std::unique_ptr<ListItem>& each : made) {
        if (!each->key_.isEmpty()) {
            keys_.insert(each->key_, each.get());
        }
    }
    items_.insert(items_.begin() + (index - 1), std::make_move_iterator(made.begin()),
                  std::make_move_iterator(made.end()));
    numbered_ = false;
}

void ListItems::clear() {
    ++changes_;
    freeElsewhere(keys_);
    freeElsewhere(items_);
    numbered_ = true;
    selected_ = 0;
}

bool ListItems::rename(ListItem& item, const QString& key) {
    if (key == item.key_) {
        return true;
    }
    if (!key.isEmpty() && keys_.contains(key)) {
        return false;
    }
    keys_.remove(item.key_);
    if (!key.isEmpty()) {
        keys_.insert(key, &item);
    }
    item.key_ = key;
    ++changes_;
    return true;
}

int ListItems::positionOf(const ListItem& item) const {
    if (!numbered_) {
        int position = 0;
        for (const std::unique_ptr<ListItem>& each : items_) {
            each->position_ = ++position;
        }
        numbered_ = true;
    }
    return item.position_;
}

void ListItems::select(ListItem& item, bool selected) {
    selected_ += static_cast<int>(selected) - static_cast<int>(item.selected_);
    item.selected_ = selected;
}

}  // namespace velorama

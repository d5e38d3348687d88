// How items come and go, one by one and by the thousand.

#include "controls/lists/list_model.h"
#include "controls/lists/list_view.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace velorama {

ListItem* ListView::Add(int index, const QString& key, const QString& text, int icon) {
    if (!items_.hasRoomFor(index, key)) {
        return nullptr;
    }
    const bool follows = current_ != nullptr && index == Count() + 1 && isVisible();
    if (!follows || !model_->isPublished()) {
        model_->withdraw();
    }
    ListItem* const added =
        items_.insert(index, std::unique_ptr<ListItem>(new ListItem(*this, key, text, icon)));
    current_ = current_ != nullptr ? current_ : added;
    if (model_->isPublished()) {
        model_->appended();
    }
    return added;
}

bool ListView::Remove(int index) {
    const ListItem* gone = item(index);
    if (gone == nullptr) {
        return false;
    }
    model_->withdraw();
    const bool wasCurrent = gone == current_;
    items_.remove(index);
    if (wasCurrent) {
        current_ = item(qMin(index, Count()));
    }
    return true;
}

void ListView::Clear() {
    if (Count() == 0) {
        return;
    }
    model_->withdraw();
    model_->forgetScroll();
    current_ = nullptr;
    items_.clear();
}

void ListView::forgetScroll() {
    model_->withdraw();
    model_->forgetScroll();
}

void ListView::Add(int index, const std::vector<ListEntry>& entries) {
    if (index < 1 || index > Count() + 1) {
        return;
    }
    QSet<QString> coming;
    std::vector<std::unique_ptr<ListItem>> made;
    made.reserve(entries.size());
    for (const ListEntry& entry : entries) {
        const bool isNew =
            entry.key.isEmpty() || (items_.at(entry.key) == nullptr && !coming.contains(entry.key));
        if (isNew) {
            coming.insert(entry.key);
            made.emplace_back(new ListItem(*this, entry.key, entry.text, entry.icon));
        }
    }
    if (made.empty()) {
        return;
    }
    model_->withdraw();
    current_ = current_ != nullptr ? current_ : made.front().get();
    items_.insert(index, std::move(made));
}

void ListView::Remove(const std::vector<int>& places) {
    std::vector<int> inside;
    std::copy_if(places.begin(), places.end(), std::back_inserter(inside),
                 [this](int place) { return item(place) != nullptr; });
    if (inside.empty()) {
        return;
    }
    model_->withdraw();
    const int at = current_->Index();
    const auto gone = std::lower_bound(inside.begin(), inside.end(), at);
    const bool currentGoes = gone != inside.end() && *gone == at;
    // So many of those before it go, and the ones that stay behind it move up.
    const auto before = static_cast<int>(gone - inside.begin());
    items_.remove(inside);
    if (currentGoes) {
        current_ = item(std::min(at - before, Count()));
    }
}

}  // namespace velorama

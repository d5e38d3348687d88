// What the owner of the list tells of its items.

#include "controls/lists/item_notes.h"
#include "controls/lists/list_model.h"
#include "controls/lists/list_view.h"

namespace velorama {

void ListView::setNotes(ItemNotes* notes) {
    notes_ = notes;
    connect(notes, &ItemNotes::Changed, this, [this] {
        viewport()->update();
        if (const auto place = tip_.place()) {
            tip_.renew(tipAt(*place));
        }
    });
}

ItemMark ListView::markOf(const ListItem& item) const {
    return notes_ ? notes_->mark(item.Key()) : ItemMark();
}

const ListItem* ListView::itemAt(const QPoint& place) const {
    const QModelIndex row = indexAt(place);
    return row.isValid() ? item(row.row() + 1) : nullptr;
}

QStringList ListView::tipAt(const QPoint& place) const {
    const ListItem* pointed = itemAt(place);
    if (pointed == nullptr) {
        return {};
    }
    return notes_ ? notes_->tip(pointed->Key()) : QStringList(pointed->Text());
}

void ListView::showTip(const QHelpEvent& event) {
    const std::optional<QPoint> before = tip_.place();
    const ListItem* pointed = itemAt(event.pos());
    // A hand that trembles on one item asks once.
    const bool isNew = !before || itemAt(*before) != pointed;
    tip_.show(event, tipAt(event.pos()));
    if (notes_ && pointed != nullptr && isNew) {
        notes_->look(pointed->Key());
    }
}

}  // namespace velorama

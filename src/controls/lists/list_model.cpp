#include "controls/lists/list_model.h"

#include "controls/lists/list_view.h"

namespace velorama {
namespace {

// Characters kept of either end of a caption. Its middle is never seen, and a caption of millions
// would take seconds to measure.
constexpr qsizetype shownEnd = 1000;

QString shortened(const QString& caption) {
    return caption.size() <= 2 * shownEnd
               ? caption
               : QString(caption.first(shownEnd) + QChar(0x2026) + caption.last(shownEnd));
}

}  // namespace

ListModel::ListModel(ListView& list) : QAbstractListModel(&list), list_(list) {}

void ListModel::setPublished(bool published) {
    if (published == published_) {
        return;
    }
    beginResetModel();
    published_ = published;
    endResetModel();
}

void ListModel::rowChanged(int row) {
    if (published_) {
        emit dataChanged(index(row), index(row));
    }
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return published_ && !parent.isValid() ? list_.Count() : 0;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const ListItem* item = index.isValid() ? list_.item(index.row() + 1) : nullptr;
    if (item == nullptr) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return shortened(item->Text());
        case Qt::EditRole:
            return item->Text();
        case IconRole:
            return item->Icon();
        default:
            return {};
    }
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    ListItem* item = index.isValid() ? list_.item(index.row() + 1) : nullptr;
    if (item == nullptr || role != Qt::EditRole) {
        return false;
    }
    list_.textEdited(*item, value.toString());
    return true;
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable |
                                 Qt::ItemNeverHasChildren
                           : Qt::NoItemFlags;
}

}  // namespace velorama

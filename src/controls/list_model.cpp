#include "controls/list_model.h"

#include "controls/list_view.h"

namespace velorama {

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
        case Qt::EditRole:
        case Qt::ToolTipRole:
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

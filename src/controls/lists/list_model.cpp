#include "controls/lists/list_model.h"

#include "controls/lists/list_view.h"

#include <QScrollBar>

namespace velorama {
namespace {

// Characters kept of either end of a caption. Its middle is never seen, and a caption of millions
// would take seconds to measure.
constexpr qsizetype shownEnd = 1000;

// So many are laid out within a millisecond or two. Appended to more, rows wait for each other.
constexpr int fewRows = 1000;
constexpr int appendDelay = 100;  // milliseconds

QString shortened(const QString& caption) {
    return caption.size() <= 2 * shownEnd
               ? caption
               : QString(caption.first(shownEnd) + QChar(0x2026) + caption.last(shownEnd));
}

}  // namespace

ListModel::ListModel(ListView& list) : QAbstractListModel(&list), list_(list) {
    appending_.setSingleShot(true);
    connect(&appending_, &QTimer::timeout, this, &ListModel::showAppended);
}

void ListModel::setPublished(bool published) {
    if (published == published_) {
        return;
    }
    beginResetModel();
    published_ = published;
    rows_ = published ? list_.Count() : 0;
    appending_.stop();
    endResetModel();
}

void ListModel::appended() {
    if (!appending_.isActive()) {
        appending_.start(list_.Count() > fewRows ? appendDelay : 0);
    }
}

void ListModel::showAppended() {
    appending_.stop();
    const int count = list_.Count();
    if (published_ && rows_ < count) {
        beginInsertRows({}, rows_, count - 1);
        rows_ = count;
        endInsertRows();
    }
}

void ListModel::end() {
    const QSignalBlocker quiet(this);
    setPublished(false);
}

void ListModel::withdraw() {
    if (!published_) {
        return;
    }
    scroll_ = {list_.horizontalScrollBar()->value(), list_.verticalScrollBar()->value()};
    setPublished(false);
    list_.viewport()->update();
    QMetaObject::invokeMethod(this, &ListModel::publishIfVisible, Qt::QueuedConnection);
}

void ListModel::publishIfVisible() {
    if (list_.isVisible()) {
        publish();
    }
}

void ListModel::publish() {
    showAppended();
    if (published_ || publishing_) {
        return;
    }
    publishing_ = true;
    setPublished(true);
    publishSelection();
    list_.doItemsLayout();
    list_.horizontalScrollBar()->setValue(scroll_.x());
    list_.verticalScrollBar()->setValue(scroll_.y());
    publishing_ = false;
}

void ListModel::publishSelection() {
    showAppended();
    QItemSelection selection;
    int first = 0;
    for (int at = 1; at <= list_.Count() + 1; ++at) {
        const bool selected = at <= list_.Count() && list_.item(at)->Selected();
        if (selected && first == 0) {
            first = at;
        } else if (!selected && first != 0) {
            selection.select(index(first - 1), index(at - 2));
            first = 0;
        }
    }
    list_.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (const ListItem* current = list_.SelectedItem()) {
        const bool follows = list_.hasAutoScroll();
        list_.setAutoScroll(false);
        list_.selectionModel()->setCurrentIndex(index(current->Index() - 1),
                                                QItemSelectionModel::NoUpdate);
        list_.setAutoScroll(follows);
    }
}

void ListModel::rowChanged(int row) {
    if (published_ && row < rows_) {
        emit dataChanged(index(row), index(row));
    }
}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    const ListItem* item = index.isValid() ? list_.item(index.row() + 1) : nullptr;
    if (item == nullptr) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
            return shortened(item->Text());
        case Qt::EditRole:
            return item->Text();
        case IconRole:
            return item->Icon();
        case MarkRole:
            return QVariant::fromValue(list_.markOf(*item));
        case Qt::AccessibleDescriptionRole:
            return list_.markOf(*item).text;
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
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const Qt::ItemFlags flags =
        Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
    return list_.dragEnabled() ? flags | Qt::ItemIsDragEnabled : flags;
}

}  // namespace velorama

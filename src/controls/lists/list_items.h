#pragma once

#include <QHash>
#include <QString>

#include <deque>
#include <memory>
#include <vector>

namespace velorama {

class ListView;

/// What an item is made of.
struct ListEntry {
    QString key;
    QString text;
    int icon = 0;
};

/// One item of a ListView. It belongs to its list and dies with Remove and Clear.
class ListItem {
public:
    QString Key() const { return key_; }
    /// False, and nothing changes, if another item has this key. An empty key is allowed on any
    /// number of items.
    bool setKey(const QString& key);
    QString Text() const { return text_; }
    void setText(const QString& text);
    /// Number of the image in the list's Icons, 0 for none.
    int Icon() const { return icon_; }
    void setIcon(int index);
    /// Position in the list, from 1.
    int Index() const;
    bool Selected() const { return selected_; }
    /// An item that becomes selected becomes the current one too; the others stay selected.
    void setSelected(bool selected);

private:
    friend class ListItems;
    friend class ListView;
    ListItem(ListView& list, const QString& key, const QString& text, int icon);
    void changed();

    ListView& list_;
    QString key_;
    QString text_;
    int icon_;
    // Right only while the list has numbered its items.
    int position_ = 0;
    bool selected_ = false;
};

/// The items of a ListView by position, from 1, and by key.
class ListItems {
public:
    int count() const { return static_cast<int>(items_.size()); }
    /// Null where there is no such item.
    ListItem* at(int index) const;
    ListItem* at(const QString& key) const { return keys_.value(key, nullptr); }

    /// Whether an item can be put at `index`, 1 to count + 1, under a key that no other has.
    bool hasRoomFor(int index, const QString& key) const;
    ListItem* insert(int index, std::unique_ptr<ListItem> made);
    void remove(int index);
    /// Several in one go, `places` rising: one by one from the midst of a long list costs the
    /// square.
    void remove(const std::vector<int>& places);
    void insert(int index, std::vector<std::unique_ptr<ListItem>> made);
    void clear();
    void reserve(int count) { keys_.reserve(count); }
    /// False, and nothing changes, if another item has this key.
    bool rename(ListItem& item, const QString& key);
    int positionOf(const ListItem& item) const;
    void select(ListItem& item, bool selected);
    int selectedCount() const { return selected_; }

    /// Grows whenever an item comes or goes, or changes its key, its caption or its picture.
    qint64 changes() const { return changes_; }
    /// An item has changed its caption or its picture.
    void touch() { ++changes_; }

private:
    std::deque<std::unique_ptr<ListItem>> items_;
    QHash<QString, ListItem*> keys_;
    mutable bool numbered_ = true;
    qint64 changes_ = 0;
    int selected_ = 0;
};

}  // namespace velorama

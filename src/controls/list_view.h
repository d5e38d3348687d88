#pragma once

#include "controls/image_list.h"

#include <QListView>
#include <QPointer>

#include <memory>

namespace velorama {

class ListView;

/// One item of a ListView. It belongs to its list and dies with Remove and Clear.
class ListItem {
public:
    QString Key() const;
    /// False, and nothing changes, if another item has this key. An empty key is allowed on any number
    /// of items.
    bool setKey(const QString& key);
    QString Text() const;
    void setText(const QString& text);
    /// Number of the image in the list's Icons, 0 for none.
    int Icon() const;
    void setIcon(int index);
    /// Position in the list, from 1.
    int Index() const;
    bool Selected() const;
    void setSelected(bool selected);
};

/// A list view of icons with captions: ordered items with unique keys, several of them selected, one
/// of them current, captions edited in place.
class ListView : public QListView {
    Q_OBJECT
public:
    enum class Arrangement { Wrapped, Strip };

    explicit ListView(QWidget* parent = nullptr);
    ~ListView() override;

    /// Rows that wrap and scroll down, or a single row that scrolls sideways.
    void setArrangement(Arrangement arrangement);
    /// The caption painted in the middle of an empty list, and only there.
    void setEmptyText(const QString& text);

    // -- ListItems --
    int Count() const;
    /// Inserts so that the new item has position `index`, 1 to Count + 1. Null, and nothing changes,
    /// if the index is outside or another item has the key. The first item added becomes current.
    ListItem* Add(int index, const QString& key, const QString& text, int icon);
    /// Null outside 1 to Count.
    ListItem* item(int index) const;
    /// Null if no item has the key.
    ListItem* item(const QString& key) const;
    /// False outside 1 to Count. When the current item goes, the one that takes its place becomes
    /// current, or the last.
    bool Remove(int index);
    void Clear();
    /// The current item; null only in an empty list. It need not be selected.
    ListItem* SelectedItem() const;
    /// Makes an item current without selecting it. Outside 1 to Count: nothing.
    void setSelectedItem(int index);
    void clearSelection();

    ImageList* Icons() const;
    void setIcons(ImageList* icons);

signals:
    void GotFocus();
    /// A press of the left button, or of the keyboard's way to it.
    void Click();
    void DblClick();
    /// Before the list's own handling of the key. Codes and masks of controls/keys.h.
    void KeyDown(int keyCode, int shift);
    void KeyPress(int keyAscii);
    /// Button 1 left, 2 right, 4 middle; position in twips within the control.
    void MouseUp(int button, int shift, float x, float y);
    /// After the user has edited the caption of the current item; the item has the new text already.
    void AfterLabelEdit(const QString& newText);
};

}  // namespace velorama

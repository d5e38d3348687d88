#pragma once

#include "controls/lists/empty_state.h"
#include "controls/lists/image_list.h"
#include "controls/lists/item_notes.h"
#include "controls/lists/list_items.h"
#include "controls/lists/row_tip.h"

#include <QListView>
#include <QPointer>

#include <vector>

namespace velorama {

class ListDelegate;
class ListModel;
/// A list view of icons with captions: ordered items with unique keys, several of them selected,
/// one of them current, captions edited in place.
class ListView : public QListView {
    Q_OBJECT
public:
    enum class Arrangement { Wrapped, Strip };

    explicit ListView(QWidget* parent = nullptr);
    ~ListView() override;

    /// Rows that wrap and scroll down, or a single row that scrolls sideways.
    void setArrangement(Arrangement arrangement);
    bool isStrip() const { return arrangement_ == Arrangement::Strip; }
    /// Leaves the last `pixels` (logical) at the right to what is behind the list.
    void setRightRim(int pixels);
    /// The caption painted in the middle of an empty list, and only there.
    void setEmptyText(const QString& text) { empty_.setText(text); }
    EmptyState& emptyState() { return empty_; }

    /// Who tells of marks and tooltips, as long as it lives. Without notes the tooltip is the
    /// caption.
    void setNotes(ItemNotes* notes);

    // -- Of a strip, list_view_strip.cpp --
    /// The gap between two items that is nearest to a place of the viewport, told by the number of
    /// items before it.
    int gapAt(const QPoint& place);
    /// Where on the viewport a line stands in that gap; at its edge if the gap is out of sight.
    QRect gapLine(int gap);

    /// Grows whenever an item comes or goes, or changes its key, its caption or its picture.
    qint64 changes() const { return items_.changes(); }

    // -- ListItems, list_view_items.cpp --
    int Count() const { return items_.count(); }
    /// Inserts so that the new item has position `index`, 1 to Count + 1. Null, and nothing
    /// changes, if the index is outside or another item has the key. The first item added becomes
    /// current.
    ListItem* Add(int index, const QString& key, const QString& text, int icon);
    /// Null outside 1 to Count.
    ListItem* item(int index) const { return items_.at(index); }
    /// Null if no item has the key.
    ListItem* item(const QString& key) const { return items_.at(key); }
    /// False outside 1 to Count. When the current item goes, the one that takes its place becomes
    /// current, or the last.
    bool Remove(int index);
    void Clear();

    // -- Several at once --
    /// As Add for each from `index` on; those that Add would refuse are passed over.
    void Add(int index, const std::vector<ListEntry>& entries);
    /// As Remove for each from the last to the first. `places` rise; those outside are passed over.
    void Remove(const std::vector<int>& places);

    /// A list that is out of sight begins at its start when it is shown again, as after Clear.
    void forgetScroll();
    /// Makes room for so many in all: a table that grows on the way holds the window up.
    void reserve(int count) { items_.reserve(count); }
    /// The current item; null only in an empty list. It need not be selected.
    ListItem* SelectedItem() const { return current_; }
    /// Makes an item current without selecting it. Outside 1 to Count: nothing.
    void setSelectedItem(int index);
    void clearSelection();
    /// Selects the items at `places`, from 1, and no others, and makes `current` the current one as
    /// setSelectedItem does. However many they are, the change is told once. Places outside the
    /// list are passed over.
    void select(const std::vector<int>& places, int current);
    /// How many items are selected.
    int SelectedCount() const { return items_.selectedCount(); }

    ImageList* Icons() const { return icons_; }
    void setIcons(ImageList* icons);

signals:
    void GotFocus();
    /// The left button has been released, on an item or beside one; not at the end of a double
    /// click.
    void Click();
    /// On an item; beside the items a double click is none.
    void DblClick();
    /// Before the list's own handling of the key. Codes and masks of controls/keys.h.
    void KeyDown(int keyCode, int shift);
    void KeyPress(int keyAscii);
    /// A key has made another item current: after KeyDown, which comes while the old one still is.
    void CurrentMoved();
    /// Other items are selected than before. Not where none is left in the list.
    void SelectionChanged();
    /// Button 1 left, 2 right, 4 middle; position in twips within the control.
    void MouseUp(int button, int shift, float x, float y);
    /// The user has edited the caption of the current item, which still has the old one.
    void BeforeLabelChange();
    /// The selected items are being dragged off; where a list can be dragged from. The drag is over
    /// when this returns, and a Click follows.
    void DragOff();
    /// After the user has edited the caption of the current item; the item has the new text
    /// already.
    void AfterLabelEdit(const QString& newText);

protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void startDrag(Qt::DropActions actions) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

private:
    friend class ListItem;
    friend class ListModel;

    void layOutCells();
    void iconsChanged();

    // list_view_notes.cpp
    ItemMark markOf(const ListItem& item) const;
    const ListItem* itemAt(const QPoint& place) const;
    QStringList tipAt(const QPoint& place) const;
    void showTip(const QHelpEvent& event);

    void textEdited(ListItem& item, const QString& text);

    ListItems items_;
    ListItem* current_ = nullptr;

    ListModel* model_;
    ListDelegate* delegate_;
    QPointer<ImageList> icons_;
    QPointer<ItemNotes> notes_;
    RowTip tip_{*this};
    EmptyState empty_{*this, [this] { return Count() == 0; }};
    Arrangement arrangement_ = Arrangement::Wrapped;
    bool pressed_ = false;
    /// The press of the mouse that goes on has brought the keyboard here.
    bool entered_ = false;
};

}  // namespace velorama

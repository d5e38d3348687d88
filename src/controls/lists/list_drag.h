#pragma once

#include "controls/lists/list_view.h"

#include <QMimeData>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>

class QDrag;
class QDropEvent;

namespace velorama {

class DropLine;
class ListDrag;

/// What is dragged off a list: nothing for other programs, or files.
class DraggedItems : public QMimeData {
    Q_OBJECT
public:
    explicit DraggedItems(ListDrag& source);

    /// Null when its list is gone, or has changed since: then it no longer has what is dragged.
    ListDrag* source() const;

private:
    QPointer<ListDrag> source_;
    qint64 changes_;
};

/// Drag and drop of a list: its selected items can be dragged off, and it takes those of other
/// lists, and files of other programs. In a strip a line shows where they would land, and the strip
/// scrolls while they are held near one of its ends.
///
/// What a drop does is its owner's. The owner is told when the drag is over, from the event loop,
/// so that it may take its time and let events run. A list that has changed since a drag began no
/// longer has what is dragged, and nothing is told. While a modal window is up nothing is taken.
class ListDrag : public QObject {
    Q_OBJECT
public:
    /// Belongs to the list.
    explicit ListDrag(ListView& list);

    /// From here on the selected items can be dragged off: within the program only, or, with
    /// `files`, to other programs too, as copies of the files whose paths it then gives.
    void offer(std::function<QStringList()> files = {});
    /// Items of that list, which may be this one, can be dropped here.
    void takeFrom(ListDrag& source);
    /// Files and folders of this machine that come from other programs can be dropped here.
    void takeFiles();

    ListView& list() const { return list_; }
    /// The selected items, to be dragged.
    std::unique_ptr<DraggedItems> items();
    /// A step towards the end that the pointer is near: what the timer does meanwhile.
    void scroll();

signals:
    /// The selected items of a list; `gap` is the number of items before the place, 0 where this
    /// list is no strip.
    void ItemsDropped(const ListView* source, int gap);
    void FilesDropped(const QStringList& paths, int gap);

protected:
    bool eventFilter(QObject* viewport, QEvent* event) override;

private:
    void dragOff();
    void showUnderPointer(QDrag& drag) const;
    void tellItems(ListDrag& source, int to);

    void enter(QDropEvent& event);
    void move(QDropEvent& event);
    void leave();
    void drop(QDropEvent& event);
    bool takes() const;
    bool takesFrom(const ListDrag* source) const;
    bool answer(QDropEvent& event) const;
    void follow(const QPoint& place);
    int gap() const;

    ListView& list_;
    DropLine* line_;
    QTimer timer_;

    // Of this list's own drag.
    std::function<QStringList()> files_;
    std::function<void()> dropped_;

    // Of the drag that is over this list.
    QList<ListDrag*> sources_;
    bool takesFiles_ = false;
    QPointer<const DraggedItems> items_;
    QStringList paths_;
    QPoint place_;
    int speed_ = 0;  // logical pixels a step
};

}  // namespace velorama

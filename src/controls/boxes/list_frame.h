#pragma once

#include <QAbstractScrollArea>
#include <QEvent>

namespace velorama {

/// Gives a list room for the frame that paintListFrame paints.
void setListFrame(QAbstractScrollArea& list);

/// The frame of a list, in whole pixels of the screen at any scale, and in the accent while the
/// list has the keyboard. For the list's event(), when it has handled a paint event.
void paintListFrame(QAbstractScrollArea& list);

/// The same frame for a list of the toolkit's own, whose event() nobody can reach.
void frameOtherList(QAbstractScrollArea& list);

/// Has the frame painted anew where the keyboard comes or goes. For the list's event(), before its
/// own handling: a handler may delete the list.
void updateListFrame(QAbstractScrollArea& list, QEvent::Type type);

}  // namespace velorama

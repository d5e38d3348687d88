#pragma once

#include <QAbstractScrollArea>

namespace velorama {

/// Gives a list room for the frame that paintListFrame paints.
void setListFrame(QAbstractScrollArea& list);

/// The frame of a list, in whole pixels of the screen at any scale, and in the accent while the
/// list has the keyboard. For the list's event(), after its own handling.
void paintListFrame(QAbstractScrollArea& list, const QEvent& event);

}  // namespace velorama

#pragma once

#include "controls/lists/item_notes.h"

#include <QPalette>
#include <QRect>

class QPainter;

namespace velorama {

/// Paints a mark over the picture of an item, which fills `picture`. It stands out from any
/// picture, and from the ground of a list in the colours of `palette`.
void paintMark(QPainter& painter, const ItemMark& mark, const QRect& picture,
               const QPalette& palette);

}  // namespace velorama

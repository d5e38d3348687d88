#pragma once

#include <QAbstractItemView>

namespace velorama {

/// Paints what is told in the middle of an empty list, in the font of the desktop, and in a list
/// without a frame the accent around it while it has the keyboard. For the list's paintEvent.
void paintEmptyText(QAbstractItemView& list, const QString& text);

}  // namespace velorama

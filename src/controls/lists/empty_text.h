#pragma once

#include <QAbstractItemView>

namespace velorama {

/// Paints what is told in the middle of an empty list, and the accent around it while the list has
/// the keyboard. For the list's paintEvent.
void paintEmptyText(QAbstractItemView& list, const QString& text);

}  // namespace velorama

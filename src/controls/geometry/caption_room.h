#pragma once

#include <QFont>
#include <QWidget>

namespace velorama {

/// Room for captions in whatever font the desktop has. A design was drawn for one font: its sizes
/// are the least that a control gets, and its caption may need more. All lengths are in twips but
/// where pixels are said.

/// As place(), and the size is kept as that of the design.
void placeDesign(QWidget& control, float left, float top, float width, float height);

/// Makes a control as large as its design or as its caption needs, whichever is larger; not higher
/// than `most`, unless its design is. One without a design of its own stays as it is.
void giveRoom(QWidget& control, float most);

/// The same for controls below one another, which hang from the first one's place, `gap` apart, and
/// are all as wide as the widest. Where there is too little room above `bottom` they become lower
/// than their design, as low as letters can be read. Their right edge comes back.
float giveRoomInColumn(const QList<QWidget*>& column, float gap, float bottom);

/// A font whose lines are at most `height` logical pixels high: the same one if it can be.
QFont fontForHeight(const QFont& font, int height);

}  // namespace velorama

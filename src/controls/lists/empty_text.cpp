#include "controls/lists/empty_text.h"

#include <QPainter>

namespace velorama {

void paintEmptyText(QAbstractItemView& list, const QString& text) {
    constexpr int margin = 12;
    constexpr int leastWidth = 90;
    constexpr float strength = 0.75F;
    QPainter painter(list.viewport());
    const QRect ground = list.viewport()->rect();
    if (list.hasFocus()) {
        painter.setPen(list.palette().color(QPalette::Active, QPalette::Highlight));
        painter.drawRect(ground.adjusted(1, 1, -2, -2));
    }
    const QRect place = ground.adjusted(margin, margin, -margin, -margin);
    // A text broken into letters tells nothing.
    if (place.width() >= leastWidth) {
        QColor colour = list.palette().color(QPalette::Text);
        colour.setAlphaF(strength);
        painter.setPen(colour);
        painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, text);
    }
}

}  // namespace velorama

#include "controls/lists/empty_text.h"

#include <QApplication>
#include <QPainter>

namespace velorama {

void paintEmptyText(QAbstractItemView& list, const QString& text) {
    constexpr int margin = 12;
    constexpr int leastWidth = 90;
    constexpr float strength = 0.75F;
    QPainter painter(list.viewport());
    const QRect ground = list.viewport()->rect();
    // A list with a frame shows it there.
    if (list.hasFocus() && list.frameWidth() == 0) {
        painter.setPen(list.palette().color(QPalette::Active, QPalette::Highlight));
        painter.drawRect(ground.adjusted(1, 1, -2, -2));
    }
    const QRect place = ground.adjusted(margin, margin, -margin, -margin);
    // A text broken into letters tells nothing.
    if (place.width() >= leastWidth) {
        QColor colour = list.palette().color(QPalette::Text);
        colour.setAlphaF(strength);
        painter.setPen(colour);
        // The captions of the list may be small. This is no caption.
        painter.setFont(QApplication::font(&list));
        painter.drawText(place, Qt::AlignCenter | Qt::TextWordWrap, text);
    }
}

}  // namespace velorama

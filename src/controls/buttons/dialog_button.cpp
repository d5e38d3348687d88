#include "controls/buttons/dialog_button.h"

#include <QPainter>

namespace velorama {

void DialogButton::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    if (!hasFocus()) {
        return;
    }
    // Logical pixels.
    constexpr qreal inset = 3.5;
    constexpr qreal radius = 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Active, QPalette::Highlight));
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
}

}  // namespace velorama

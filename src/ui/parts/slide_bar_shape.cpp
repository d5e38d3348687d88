#include "ui/parts/slide_bar_shape.h"

#include <QPainter>

namespace velorama {

void SlideBarShape::setFillColor(const QColor& fill) {
    fill_ = fill;
    update();
}

void SlideBarShape::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(fill_);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
}

}  // namespace velorama

#include "ui/parts/surface.h"

#include <QPainter>

namespace velorama {

void Surface::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // Nearly all of it lies behind controls; the rest is no more than a shade.
    painter.setPen(palette().color(QPalette::Midlight));
    painter.drawLine(separator_);
}

}  // namespace velorama

#include "ui/parts/surface.h"

#include <QPainter>

namespace velorama {

void Surface::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // Its ends are those of the design, and what of it no control hides divides nothing: it has the
    // colour of its ground.
    painter.setPen(palette().color(QPalette::Window));
    painter.drawLine(separator_);
}

}  // namespace velorama

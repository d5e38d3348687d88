#include "controls/lists/drop_line.h"

#include <QPainter>

namespace velorama {

DropLine::DropLine(QWidget* viewport) : QWidget(viewport) {
    setObjectName(QStringLiteral("dropLine"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DropLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Active, QPalette::Highlight));
    const double radius = width() / 2.0;
    painter.drawRoundedRect(QRectF(rect()), radius, radius);
}

}  // namespace velorama

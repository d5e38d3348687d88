#include "controls/buttons/swatch.h"

#include <QPainter>

namespace velorama {

QColor shownColour(Colour colour) {
    const Colour plain = qMax(0, OleTranslateColor(colour));
    return {plain & 255, (plain >> 8) & 255, (plain >> 16) & 255};
}

QString colourName(Colour colour) {
    return shownColour(colour).name().toUpper();
}

void paintSwatch(QPainter& painter, const QRectF& place, const QColor& colour, QColor ink) {
    constexpr float edge = 0.4F;
    constexpr qreal radius = 3;
    ink.setAlphaF(edge);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, 1));
    painter.setBrush(colour);
    painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

Swatch::Swatch(QWidget* button) : QWidget(button) {
    // The button is what is clicked.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setMinimumWidth(button->fontMetrics().averageCharWidth() * 8);
}

void Swatch::setBackColor(const QColor& colour) {
    colour_ = colour;
    update();
}

void Swatch::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSwatch(painter, rect(), colour_, palette().color(QPalette::ButtonText));
}

}  // namespace velorama

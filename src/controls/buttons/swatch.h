#pragma once

#include "platform/session/system_colours.h"

#include <QColor>
#include <QWidget>

namespace velorama {

/// The colour that 0x00BBGGRR or a system colour looks like. Black for a system colour that there
/// is not.
QColor shownColour(Colour colour);
/// "#RRGGBB" of it, upper case.
QString colourName(Colour colour);

/// Paints a colour into a place, with an edge in `ink`: without it a colour like the ground would
/// not be seen.
void paintSwatch(QPainter& painter, const QRectF& place, const QColor& colour, QColor ink);

/// Shows a colour on a button.
class Swatch : public QWidget {
    Q_OBJECT
public:
    explicit Swatch(QWidget* button);

    QColor BackColor() const { return colour_; }
    void setBackColor(const QColor& colour);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor colour_ = Qt::black;
};

}  // namespace velorama

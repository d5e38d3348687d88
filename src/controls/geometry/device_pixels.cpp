#include "controls/geometry/device_pixels.h"

namespace velorama {

void drawDevicePixels(QPainter& painter, const QPointF& place, const QImage& bitmap) {
    const QTransform device = painter.deviceTransform();
    const QPointF corner = device.map(place);
    // Without the scale of the screen and with the widget's own corner left out, so that what is
    // drawn is moved and never resampled.
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    const QTransform toWorld = device.inverted() * painter.worldTransform();
    painter.setWorldTransform(QTransform::fromTranslate(qRound(corner.x()), qRound(corner.y())) *
                              toWorld);
    painter.drawImage(0, 0, bitmap);
    painter.restore();
}

}  // namespace velorama

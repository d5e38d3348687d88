#pragma once

#include <QImage>
#include <QPainter>

namespace velorama {

/// Draws a bitmap a pixel to the device pixel, whatever the screen's scale. `place`: its corner in
/// logical pixels, moved to the next whole device pixel.
void drawDevicePixels(QPainter& painter, const QPointF& place, const QImage& bitmap);

}  // namespace velorama

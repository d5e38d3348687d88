#pragma once

#include "platform/session/system_colours.h"

#include <QImage>

namespace velorama {

/// The two colours behind a show, as the user has stored them or as they are from the start.
Colour showBackground();
Colour showGradient();

/// Paints a gradient over the whole of `target` (32 bits a pixel) with the one shared painter.
/// `angle` in degrees, 0 left to right, 90 bottom to top.
void GradientPaint(QImage& target, float angle, Colour color1, Colour color2);

}  // namespace velorama

#pragma once

#include <QImage>

namespace velorama {

/// Blends `source` over `target` with one constant alpha, 0 to 255, over the area both share from
/// their top left corners. Each channel becomes round((s * alpha + d * (255 - alpha)) / 255). Both
/// in 32 bits a pixel; anything else is left alone and gives false.
bool AlphaBlend(QImage& target, const QImage& source, int alpha);

}  // namespace velorama

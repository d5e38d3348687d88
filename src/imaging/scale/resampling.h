#pragma once

#include <QRectF>
#include <QSize>

class QImage;

namespace velorama {

/// Scales the part `extent` of `source` (32 bits a pixel; a null extent means all) to `size` pixels
/// written at `target`, rows `stride` bytes apart. See `resampled`.
void resampleInto(uchar* target, qsizetype stride, QSize size, const QImage& source,
                  const QRectF& extent = {});

}  // namespace velorama

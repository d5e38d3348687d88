#pragma once

#include <QSize>
#include <QtGlobal>

class QImage;

namespace velorama {

/// Scales all of `source` (32 bits a pixel) to `size` pixels written at `target`, rows `stride`
/// bytes apart. See `resampled`.
void resampleInto(uchar* target, qsizetype stride, QSize size, const QImage& source);

}  // namespace velorama

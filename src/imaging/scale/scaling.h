#pragma once

#include "imaging/decode/picture.h"
#include "platform/session/system_colours.h"

namespace velorama {

/// `source` scaled to `size` pixels: bicubic (a = -0.5) whose kernel widens with the reduction,
/// each direction in turn, edges repeated, in fixed-point arithmetic. Each channel is within 1 of
/// 255 of the same computation in double precision. Null for a null source or an empty size.
QImage resampled(const QImage& source, QSize size);

/// Rectangle, in target pixels, that a picture of `picture` pixels takes in a target of `target`
/// pixels with its aspect kept, centred; numbers rounded with halves to even.
QRect fittedRect(QSize picture, QSize target);

/// `picture` drawn into a new opaque bitmap of `size` pixels filled with `fill` (plain colour):
/// stretched, or with its aspect kept and centred. Null for a null picture or an empty size. Pure,
/// for worker threads too.
QImage fittedBitmap(const Picture& picture, QSize size, Colour fill, bool keepAspect);

/// The same for the user interface thread, yielding to pending events three times. Uses
/// `picture.fitted` where that has the size asked for, aspect is kept and the fill is white.
Picture PictureResize(const Picture& picture, int width, int height, Colour fill, bool keepAspect);

}  // namespace velorama

#pragma once

#include "platform/session/system_colours.h"

#include <QImage>
#include <QRectF>

namespace velorama {

// Bitmaps have 32 bits a pixel: QImage::Format_RGB32, or Format_ARGB32_Premultiplied. `extent` is
// the part of an opaque one, in its pixels, that its picture fills; null: all of it.

/// `source` scaled to `size` pixels: bicubic (a = -0.5) whose kernel widens with the reduction,
/// each direction in turn, edges repeated, in fixed-point arithmetic. Each channel is within 1 of
/// 255 of the same computation in double precision. Null for a null source or an empty size; a
/// bitmap of the size asked for is given back.
QImage resampled(const QImage& source, QSize size, const QRectF& extent = {});

/// `bitmap` drawn into a new opaque one of `size` pixels filled with `fill` (plain colour), its
/// aspect kept, centred. Null for a null bitmap or an empty size. Pure, for worker threads too.
QImage fittedBitmap(const QImage& bitmap, QSize size, Colour fill, const QRectF& extent = {});

/// The same for the user interface thread, yielding to pending events three times.
QImage PictureResize(const QImage& bitmap, QSize size, Colour fill);

}  // namespace velorama

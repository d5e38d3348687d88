#pragma once

#include <QByteArray>
#include <QImage>

namespace velorama {

/// The pixels of a small bitmap in the fewest bytes that take no time to speak of, exactly.
/// Format_RGB32 and Format_ARGB32_Premultiplied; empty for any other and for a null image.
QByteArray packPixels(const QImage& image);

/// The bitmap that `packPixels` was given; null for bytes that are of no such bitmap.
QImage unpackPixels(const QByteArray& packed);

}  // namespace velorama

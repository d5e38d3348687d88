#pragma once

#include <QImage>

namespace velorama {

/// A GIF, JPEG, PNG or BMP file; null for anything else and for a picture too large to be one of a
/// page.
QImage pagePicture(const QByteArray& file);

}  // namespace velorama

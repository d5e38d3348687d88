#pragma once

#include <QSize>
#include <QString>

namespace velorama {

/// Width and height of a picture file as a viewer shows it, EXIF orientation applied, from the
/// head of the file alone: nothing is decoded, and damage behind the head goes unnoticed. JPEG,
/// GIF, BMP or PNG, told by its content. Empty for anything else.
QSize PictureFileSize(const QString& path);

}  // namespace velorama

#pragma once

#include "imaging/pixels/fit.h"

#include <QByteArrayView>
#include <QImage>
#include <QRectF>

namespace velorama {

/// A picture as it has been decoded, perhaps smaller than it is: whoever needs its size asks `size`
/// and never the bitmap. Cheap to copy.
struct Picture {
    /// Width and height of the picture as a viewer shows it, orientation applied.
    QSize size;
    /// QImage::Format_RGB32, or Format_ARGB32_Premultiplied where the picture has see-through
    /// parts.
    QImage bitmap;
    /// Part of the bitmap, in its pixels, that the picture fills; null: all of it. A bitmap decoded
    /// smaller may end in a pixel that is only partly picture.
    QRectF extent = {};

    bool isNull() const { return bitmap.isNull(); }
};

/// Loads a picture file: JPEG, GIF (first frame), BMP or PNG, told by its content and not by its
/// name. EXIF orientation is applied, colours come out as sRGB. `fit` says what for: a JPEG of more
/// than 512 x 512 pixels is decoded at 1/8, 1/4 or 1/2 of its linear size where that is no smaller
/// than it is drawn; on photographs the drawn bitmap stays above 36 dB of a full decode. A JPEG
/// that would take more than 320 MiB is decoded smaller still. A BMP that ends too early shows what
/// there is. Null for anything else that ends too early, cannot be read or is damaged beyond use,
/// for files of more than 128 MiB and for what takes more than 320 MiB all the same. All threads
/// together stay within 512 MiB; a call may have to wait for another thread's to end. Safe on any
/// thread; never throws.
Picture LoadPicture(const QString& path, const Fit& fit = Fit::whole());

/// The same from the bytes of a picture file.
Picture decodePicture(QByteArrayView bytes, const Fit& fit = Fit::whole());

/// Whether a picture of `size` pixels comes out as one and the same bitmap for both.
bool decodesAlike(QSize size, const Fit& one, const Fit& other);

}  // namespace velorama

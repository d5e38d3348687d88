#pragma once

#include "imaging/decode/byte_source.h"
#include "imaging/decode/memory_share.h"
#include "imaging/decode/picture.h"

#include <QColorSpace>

namespace velorama {

/// What reading pictures may take, in bytes, on all threads together.
constexpr qint64 pictureMemory = 512LL * 1024 * 1024;

/// The part of it that the files' own bytes come from; no file may be larger.
MemoryPool& fileMemory();

/// The part for decoders and bitmaps. Whoever has a share of it never waits for one of the files'.
MemoryPool& decodingMemory();

/// Width and height of a picture as a viewer shows it, from its head alone; empty where the reader
/// of its kind would not take it. Reads no more than 128 MiB, as no larger file is loaded.
QSize pictureSize(ByteSource& source);

/// The same for a JPEG, by its reader.
QSize jpegSize(ByteSource& source);

/// The JPEG reader; null picture on failure.
Picture readJpeg(QByteArrayView bytes, const Fit& fit);

/// Eighths of the linear size that a JPEG of `size` pixels is decoded to for `fit`: 1, 2, 4 or 8.
int jpegEighths(QSize size, const Fit& fit);

/// EXIF orientation, 1 to 8, of the content of an APP1 segment; 0 if it holds none.
int exifOrientation(QByteArrayView segment);

/// `bitmap` as a viewer shows it, by an EXIF orientation; anything but 2 to 8 leaves it as it is.
QImage oriented(QImage bitmap, int orientation);

/// The colours that an ICC profile describes, if it is one of RGB, or of grey where the pixels are;
/// not valid for others, which say nothing about these pixels, and for what is no profile.
QColorSpace profiledSpace(QByteArray profile, bool grey = false);

/// One of the two formats that pictures are kept in; conversions happen in place where they can.
QImage asPixels(QImage image);

/// Colours of `space` brought to sRGB in place. Does nothing if `space` is sRGB or not valid.
void convertToSrgb(QImage& bitmap, const QColorSpace& space);

}  // namespace velorama

#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QRectF>
#include <QSize>
#include <QString>

namespace velorama {

enum class PictureType : int { None = 0, Bitmap = 1, Metafile = 2, Icon = 3, EnhancedMetafile = 4 };

/// A picture object: its type, its size in pixels and its pixels. The pixels may have been decoded
/// smaller than the picture is; whoever needs a size asks `size`, never the bitmap. Cheap to copy.
struct Picture {
    PictureType Type = PictureType::None;
    /// Width and height of the picture as a viewer shows it, orientation applied.
    QSize size;
    /// QImage::Format_RGB32, or Format_ARGB32_Premultiplied where the picture has see-through
    /// parts.
    QImage bitmap;
    /// Where a worker has already fitted the picture (see `fittedBitmap`): the result, otherwise
    /// null.
    QImage fitted;
    /// Part of the bitmap, in its pixels, that the picture fills; null: all of it. A bitmap decoded
    /// smaller may end in a pixel that is only partly picture.
    QRectF extent = {};

    bool isNull() const { return Type == PictureType::None; }
};

/// A bitmap as a picture object; null bitmap, null picture.
Picture PictureFromBitmap(const QImage& bitmap);

/// What a picture is loaded for: the picture area of a show, or a square thumbnail cell.
struct Fit {
    enum class Kind { Whole, Area, Cell };
    Kind kind = Kind::Whole;
    /// Pixels: the area, or the cell (width = height). Not used for Whole.
    QSize box;
    bool operator==(const Fit&) const = default;

    static Fit whole() { return {}; }
    static Fit area(QSize pixels) { return {Kind::Area, pixels}; }
    static Fit cell(int pixels) { return {Kind::Cell, QSize(pixels, pixels)}; }
};

/// Size in pixels, fractions kept, of a picture in a square cell: the longer side becomes `cell`,
/// the other keeps the aspect; a square picture fills the cell. Empty size in, empty size out.
QSizeF cellSize(QSize picture, int cell);

/// Pixel size of the bitmap that `fit` asks for: the area, or the cell size rounded with halves to
/// even and at least 1.
QSize fitTarget(QSize picture, const Fit& fit);

/// Loads a picture file: JPEG, GIF (first frame), BMP or PNG, told by its content and not by its
/// name. EXIF orientation is applied, colours come out as sRGB. `fit` says what for: a JPEG of more
/// than 512 x 512 pixels is decoded at 1/8, 1/4 or 1/2 of its linear size where that is no smaller
/// than it is drawn; on photographs the drawn bitmap stays above 36 dB of a full decode. A JPEG
/// that would take more than 320 MiB is decoded smaller still. Null for anything that cannot be
/// read, ends too early or is damaged beyond use, for files of more than 128 MiB and for what takes
/// more than 320 MiB all the same. All threads together stay within 512 MiB; a call may have to
/// wait for another thread's to end. Safe on any thread; never throws.
Picture LoadPicture(const QString& path, const Fit& fit = Fit::whole());

/// The same from the bytes of a picture file.
Picture decodePicture(QByteArrayView bytes, const Fit& fit = Fit::whole());

}  // namespace velorama

#pragma once

#include <QRect>
#include <QSize>

namespace velorama {

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

/// Rectangle, in target pixels, that a picture takes in a target of `target` pixels with its aspect
/// kept, centred; numbers rounded with halves to even.
QRect fittedRect(QSizeF picture, QSize target);

}  // namespace velorama

#pragma once

#include "controls/lists/image_origin.h"
#include "imaging/ahead/cell_source.h"

#include <QString>

#include <memory>

namespace velorama {

/// One of the two kinds of thumbnail, for screens of one ratio: what it looks like, and where it
/// comes from when it is wanted again. Any call may come from any thread.
class ThumbnailMaker {
public:
    enum class Kind { Found, Slide };
    /// `ratio`: device pixels to the logical pixel; thumbnails are composed in device pixels.
    ThumbnailMaker(Kind kind, double ratio, const CellSource& cells);

    static constexpr int foundCell = 64;
    static constexpr int slideCell = 90;

    /// Of the cell, in device pixels.
    int side() const { return empty_.width(); }
    double ratio() const { return ratio_; }
    /// The thumbnail of a bitmap that was loaded for `side`. One and the same for all files that
    /// cannot be loaded, whose bitmaps are null: an album of lost pictures takes no memory for
    /// them.
    QImage compose(const QImage& bitmap) const;

    const CellSource& cells() const { return cells_; }

    /// With nothing in it, not even the frame.
    const QImage& empty() const { return empty_; }

private:
    QImage painted(const QImage& picture) const;

    Kind kind_;
    double ratio_;
    CellSource cells_;
    QImage empty_;
    QImage blank_;
};

/// Where the thumbnail of a cell comes from again, cheaply or by decoding; null for that of a file
/// that could not be loaded, which takes no memory of its own.
std::shared_ptr<const ImageOrigin> originOf(std::shared_ptr<const ThumbnailMaker> maker,
                                            const QString& path, const Cell& cell);
/// The same for a cell that has not been made yet.
std::shared_ptr<const ImageOrigin> originOf(std::shared_ptr<const ThumbnailMaker> maker,
                                            const QString& path);

}  // namespace velorama

#pragma once

#include "albums/album_fields.h"

#include <vector>

namespace velorama {

/// How a path that an album names led to a file.
enum class SlideFind {
    AsWritten,
    /// By the folder that stands for its drive.
    OnDrive,
    /// By another letter case, or another kind of slash.
    OtherSpelling,
    Missing,
    /// Its file is there, but the path before it is missing and may have been cut at a comma: this
    /// one counts as the rest of it.
    Lost,
};

/// A slide as the album's file names it.
struct NamedSlide {
    QString path;
    SlideFind find;
};

/// An album read in one go, as opening it in the window reads it bit by bit.
struct AlbumSlides {
    AlbumHeader header;
    /// Those of the window, in their order. A path that comes again is left out, as the slide list
    /// takes none twice.
    std::vector<AlbumSlide> slides;
    /// The same, each missing one as the two that it was put together from.
    std::vector<NamedSlide> named;
};

/// Nothing if there is no such file, or if it cannot be read to its end or is too large for an
/// album. Blocks on the disks of the album and of its slides; lets no events run.
std::optional<AlbumSlides> slidesOfAlbum(const QString& album);

/// The caption that a slide of an album gets: the path itself where there is no file.
QString slideCaption(const AlbumSlide& slide);

}  // namespace velorama

#pragma once

#include "webalbum/web_album_values.h"

#include <QStringList>

namespace velorama {

/// What the page WebAlbum offers, and what of it is kept between two runs.

/// Font lists as a style sheet has them; those of the bar differ from those of the text in one
/// letter.
QStringList webAlbumFonts();
QStringList webAlbumBarFonts();
/// Labels such as "3 (12 pt)".
QStringList webAlbumFontSizes();

/// Sizes of pictures on the pages, in pixels.
struct WebAlbumSizes {
    int least;
    int most;
};
inline constexpr WebAlbumSizes webAlbumPhotoSizes = {100, 3000};
inline constexpr WebAlbumSizes webAlbumThumbnailSizes = {10, 2000};

/// What the page shows before anything was chosen; without a title.
WebAlbumValues webAlbumDesign();

/// The eleven values of the settings. One that is absent, or is to be a number and is none, is that
/// of `fallback`; so is the title, which is not kept. A font or a size may be one that is not
/// offered.
WebAlbumValues loadWebAlbumValues(WebAlbumValues fallback);
void saveWebAlbumValues(const WebAlbumValues& values);

}  // namespace velorama

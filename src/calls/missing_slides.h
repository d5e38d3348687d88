#pragma once

#include "albums/album_slides.h"

namespace velorama {

/// Those that the window shows no picture of.
int countOfMissing(const AlbumSlides& album);

/// Part of a message: how many slides are missing, and the first of them; empty where none is.
QString missingSlides(const AlbumSlides& album);

}  // namespace velorama

#pragma once

#include "imaging/cache/thumbnail_cache.h"

#include <memory>

namespace velorama {

/// The user's cache of thumbnails, as large as the settings allow: `Thumbnail Cache` beside the
/// dialog's own values, in MB of 1,048,576 bytes; 512 if there is no such number, none for 0.
std::shared_ptr<ThumbnailCache> keptThumbnails();

}  // namespace velorama

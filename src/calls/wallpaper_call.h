#pragma once

#include "calls/call.h"

namespace velorama {

/// Makes a picture the desktop's background, by the file and the ways of the window. Not done where
/// the picture cannot be loaded or kept, and where no desktop takes it.
CallResult run(const WallpaperCall& call, char* program);

}  // namespace velorama

#pragma once

#include "calls/call.h"

namespace velorama {

/// Writes an album as pages, in the settings of the window where the call says nothing else. Not
/// done where anything could not be written, and where slides are missing: the pages of the others
/// are there all the same.
CallResult run(const WebAlbumCall& call, char* program);

}  // namespace velorama

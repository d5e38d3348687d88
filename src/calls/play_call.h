#pragma once

#include "calls/call.h"

namespace velorama {

/// Shows an album over a whole screen, without the main window. Makes the application object it
/// needs; `program` is the program's own name as it was called. Done when the show has been left,
/// has come to its end, or was ended by the system.
CallResult run(const PlayCall& call, char* program);

}  // namespace velorama

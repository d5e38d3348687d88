#pragma once

#include "calls/call.h"

namespace velorama {

/// Carries a call out, in a process that has no application object yet: each call makes the one it
/// needs. `program` is the program's own name as it was called. What it tells is the process's exit
/// code.
CallResult runCall(const Call& call, char* program);

}  // namespace velorama

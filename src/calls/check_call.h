#pragma once

#include "calls/call.h"

namespace velorama {

/// Lists an album's slides and how each was found. Not done where the album cannot be read, and
/// where slides are missing, which scripts want to know; the list is printed all the same.
CallResult run(const CheckCall& call, char* program);

}  // namespace velorama

#pragma once

#include "calls/call.h"

namespace velorama {

/// Writes all settings as a registry text.
CallResult run(const ExportSettingsCall& call);
/// Takes over what a registry text says, all of it or nothing, unless a main window is open: that
/// writes its own lists at its end.
CallResult run(const ImportSettingsCall& call, char* program);

}  // namespace velorama

#pragma once

#include "platform/store/registry_table.h"

namespace velorama {

/// The system's version, as the system itself would hold it: the first one whose pictures are
/// scaled and faded the modern way.
const AddressedValue& systemVersion();

/// Puts in what the system itself would hold and the table has not. True if anything was missing.
bool seedSystemValues(RegistryTable& table);

}  // namespace velorama

#pragma once

#include "platform/store/registry_table.h"

namespace velorama {

/// One step of a registry text: a value that is set, one that is removed (no value), or a key that
/// is removed with all its values and all keys below it.
struct RegistryEdit {
    enum class Kind { Value, Key };
    Kind kind = Kind::Value;
    AddressedValue at;
};

/// What a store of these values has to be told so that it holds what the edits leave of them, taken
/// one after the other. Values that stay as they are do not come into it.
std::vector<AddressedValue> changesBy(const std::vector<RegistryEdit>& edits,
                                      const std::vector<AddressedValue>& stored);

}  // namespace velorama

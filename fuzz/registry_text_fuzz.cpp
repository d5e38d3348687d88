#include "platform/store/registry_text.h"

#include <cstdint>
#include <cstdlib>

using namespace velorama;

namespace {

std::vector<AddressedValue> heldAfter(const RegistryText& text) {
    return changesBy(text.edits, {});
}

}  // namespace

// Reads the bytes as a registry text, and what is written of it once more.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto* bytes = reinterpret_cast<const char*>(data);
    const RegistryText text = readRegistryText(QByteArray(bytes, static_cast<qsizetype>(size)));
    if (text.fault.has_value() && (!text.edits.empty() || text.fault->line < 1)) {
        std::abort();
    }
    for (const RegistryEncoding encoding : {RegistryEncoding::Utf8, RegistryEncoding::Utf16}) {
        const QByteArray written = registryText(heldAfter(text), encoding);
        const RegistryText again = readRegistryText(written);
        if (again.fault.has_value() || registryText(heldAfter(again), encoding) != written) {
            std::abort();
        }
    }
    return 0;
}

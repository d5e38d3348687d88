#include "platform/midi_length.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(data, qsizetype(size));
    velorama::midiLength(velorama::unwrappedMidi(bytes));
    return 0;
}

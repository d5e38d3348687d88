#include "platform/sound/midi_length.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(data, qsizetype(size));
    const QByteArrayView midi = velorama::unwrappedMidi(bytes);
    velorama::midiLength(midi);
    velorama::playableMidi(midi);
    return 0;
}

#include "entry.h"
#include "platform/sound/midi_length.h"

// A MIDI file, and what the synthesizer is given of it: both must last as long.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velorama;
    const QByteArray bytes = fuzz::asBytes(data, size);
    const QByteArrayView midi = unwrappedMidi(bytes);
    const auto length = midiLength(midi);
    const PlayableMidi playable = playableMidi(midi);
    fuzz::require(!length || !playable.bytes.isEmpty());
    if (length && playable.tempo == 0) {
        fuzz::require(midiLength(playable.bytes) == length);
    }
    return 0;
}

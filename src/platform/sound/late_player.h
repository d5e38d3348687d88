#pragma once

#include "platform/sound/media_commands.h"

#include <QString>

#include <memory>

namespace velorama {

/// The name of the function in the library that `makeLatePlayer` loads.
constexpr char soundEntry[] = "velorama_media_player";
/// What it does: the music device over the system's sound output, for the caller to delete.
using SoundEntry = MediaCommands* (*)();

/// The music device of a library that is loaded with the first `open`: the sound formats and the
/// sound server bring some forty libraries, a third of the time to the first paint, and many a
/// session plays no music. `library` is its full path. Where it cannot be loaded every command
/// fails, as without a sound output.
std::unique_ptr<MediaCommands> makeLatePlayer(const QString& library);

}  // namespace velorama

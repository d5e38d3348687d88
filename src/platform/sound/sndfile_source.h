#pragma once

#include "platform/sound/audio_source.h"

#include <QString>

#include <memory>

namespace velorama {

/// A file that libsndfile knows, WAV of any sample format above all. Of a number of channels that
/// no device takes, the first two are played. Of a WAV file that was never
/// finished, all that is there. Null if it is damaged or holds no sound.
std::unique_ptr<AudioSource> openSoundFile(const QString& path);

}  // namespace velorama

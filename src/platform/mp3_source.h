#pragma once

#include "platform/audio_source.h"

namespace velorama {

/// An MPEG audio file, always as two channels. Null if no frame of sound is found near its start.
std::unique_ptr<AudioSource> openMp3(const QString& file);

}  // namespace velorama

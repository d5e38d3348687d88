#pragma once

#include "platform/sound/audio_source.h"

#include <QIODevice>

#include <functional>
#include <memory>

namespace velorama {

/// Opens the file once more, at its start; null if it cannot. Called from any thread.
using OpenMp3File = std::function<std::unique_ptr<QIODevice>()>;

/// An MPEG audio file, always as two channels. Null if no frame of sound is found near its start.
/// Its length is a guess until the file has been looked through, which neither the length nor the
/// end of the source waits for.
std::unique_ptr<AudioSource> openMp3(const OpenMp3File& openFile);
std::unique_ptr<AudioSource> openMp3(const QString& path);

}  // namespace velorama

#include "platform/sound/audio_source.h"

#include "platform/sound/midi_source.h"
#include "platform/sound/mp3_source.h"
#include "platform/sound/sndfile_source.h"

#include <QFile>
#include <QFileInfo>

namespace velorama {
namespace {

/// The first twelve bytes, fewer of a shorter file. Empty for what is no plain file: a pipe or a
/// device would keep its reader waiting.
QByteArray head(const QString& file) {
    QFile handle(file);
    if (!QFileInfo(file).isFile() || !handle.open(QIODevice::ReadOnly)) {
        return QByteArray();
    }
    return handle.read(12);
}

}  // namespace

std::unique_ptr<AudioSource> openAudioSource(const QString& file, MidiSynth& synth) {
    const QByteArray start = head(file);
    if (start.isEmpty()) {
        return nullptr;
    }
    const bool riff = start.startsWith("RIFF");
    if (start.startsWith("MThd") || (riff && start.mid(8) == "RMID")) {
        return openMidi(file, synth);
    }
    // The other two are WAV as well: high byte first, and of more than four gigabytes.
    return riff || start.startsWith("RIFX") || start.startsWith("RF64") ? openSoundFile(file)
                                                                        : openMp3(file);
}

}  // namespace velorama

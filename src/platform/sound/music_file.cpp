#include "platform/sound/music_file.h"

#include "platform/sound/mp3_source.h"
#include "platform/sound/sndfile_source.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

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

MusicFile openMusicFile(const QString& file) {
    const QByteArray start = head(file);
    if (start.isEmpty()) {
        return {};
    }
    const bool riff = start.startsWith("RIFF");
    if (start.startsWith("MThd") || (riff && start.mid(8) == "RMID")) {
        return {nullptr, readMidi(file)};
    }
    // The other two are WAV as well: high byte first, and of more than four gigabytes.
    const bool isWave = riff || start.startsWith("RIFX") || start.startsWith("RF64");
    return {isWave ? openSoundFile(file) : openMp3(file), std::nullopt};
}

std::unique_ptr<AudioSource> sourceOf(MusicFile file, MidiSynth& synth) {
    return file.midi ? playMidi(*file.midi, synth) : std::move(file.sound);
}

}  // namespace velorama

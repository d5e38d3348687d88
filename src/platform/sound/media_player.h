#pragma once

#include "platform/sound/audio_output.h"
#include "platform/sound/audio_source.h"
#include "platform/sound/media_commands.h"
#include "platform/sound/midi_source.h"
#include "platform/sound/output_watch.h"

namespace velorama {

/// The music device: command texts in, sound out.
class MediaPlayer : public MediaCommands {
public:
    /// `soundFont` as in MidiSynth.
    explicit MediaPlayer(const QString& soundFont = QString());
    ~MediaPlayer() override;

    bool send(const QString& command, QString* answer = nullptr) override;
    void whenPulled(std::function<void()> told) override;

private:
    struct Verb;
    static const Verb verbs[];

    bool open(const QString& rest, QString& answer);
    bool play(const QString& rest, QString& answer);
    bool pause(const QString& rest, QString& answer);
    bool resume(const QString& rest, QString& answer);
    bool close(const QString& rest, QString& answer);
    bool set(const QString& rest, QString& answer);
    bool status(const QString& rest, QString& answer);

    void forgetUnheard();
    bool isOpen(const QString& name) const;
    qint64 milliseconds(qint64 frames) const;
    qint64 position();

    // The device lets go of the source before the source goes, and that before the synthesizer.
    MidiSynth synth_;
    std::unique_ptr<AudioSource> source_;
    AudioOutput output_;
    QString alias_;
    bool started_ = false;
    std::unique_ptr<OutputWatch> watch_;
};

}  // namespace velorama

#pragma once

#include "platform/sound/audio_output.h"
#include "platform/sound/media_commands.h"
#include "platform/sound/music_opening.h"
#include "platform/sound/output_watch.h"

#include <memory>
#include <optional>

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

    void lookAgain();
    void takeUp();
    void setRunning(bool running);
    bool isAnyOpen() const { return opening_ || output_.track(); }
    bool isOpen(const QString& name) const;
    qint64 length() const;
    qint64 position() const;

    MidiSynth synth_;
    std::optional<MusicOpening> opening_;  // of a track that is not there yet
    AudioOutput output_;
    QString alias_;
    bool started_ = false;
    bool running_ = false;
    std::unique_ptr<OutputWatch> watch_;
};

}  // namespace velorama

#pragma once

#include <QString>

#include <functional>
#include <memory>

namespace velorama {

/// The one music device, driven by command texts. One track can be open at a time; it is named by
/// the alias it was opened under.
///
/// - `open "PATH" type MPEGVideo alias NAME` succeeds if no track is open and the file plays, which
///   then stands at 0. A file that a disk keeps waiting for more than a second is taken for open:
///   it stands at 0 until it is there, and is forgotten if it does not play after all.
/// - `play NAME` starts, or goes on after a pause, from where the track stands.
/// - `pause NAME` and `resume NAME` stop the position and let it run again; `resume` starts no
///   stopped track.
/// - `close NAME` silences and forgets the track.
/// - `set NAME time format s` changes nothing: answers stay in milliseconds.
/// - `status NAME length` and `status NAME position` answer whole milliseconds as decimal text.
///
/// Letter case of words and alias does not matter, nor do blanks around the text. Any other text
/// fails. The file's content decides whether it is MP3, WAV or MIDI; its path goes through
/// `hostFile`.
class MediaCommands {
public:
    MediaCommands() = default;
    MediaCommands(const MediaCommands&) = delete;
    MediaCommands& operator=(const MediaCommands&) = delete;
    virtual ~MediaCommands() = default;

    /// True if the command was carried out. `answer` becomes what the device answers, and empty
    /// where it answers nothing or fails. Never waits for sound to be heard.
    virtual bool send(const QString& /*command*/, QString* answer = nullptr) {
        if (answer) {
            answer->clear();
        }
        return false;
    }

    /// From the first track on, `told` is called from the event loop when the output that plays is
    /// pulled out (`OutputWatch`). An empty function ends that.
    // NOLINTNEXTLINE(performance-unnecessary-value-param): who overrides it keeps the function.
    virtual void whenPulled(std::function<void()> /*told*/) {}
};

/// The device over the system's sound output. Nothing is opened before the first `open`. It is used
/// from one thread. Who calls it needs the sound libraries: see `makeLatePlayer`.
std::unique_ptr<MediaCommands> makeMediaPlayer();

}  // namespace velorama

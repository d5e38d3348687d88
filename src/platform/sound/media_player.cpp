#include "platform/sound/media_player.h"

#include "platform/numbers.h"

#include <QRegularExpression>

#include <algorithm>
#include <chrono>
#include <utility>

namespace velorama {
namespace {

using namespace std::chrono_literals;

// How long the user interface waits for a file: more than any disk takes that is awake, few enough
// for one that does not answer, which is waited for once a track.
constexpr auto LongestOpening = 1s;
// What a track is said to last as long as its file is waited for: with less it would be over.
constexpr qint64 UnknownLength = 2000;  // milliseconds

qint64 milliseconds(qint64 frames, int rate) {
    return frames * 1000 / rate;
}

}  // namespace

struct MediaPlayer::Verb {
    const char* word;
    bool (MediaPlayer::*run)(const QString& rest, QString& answer);
};

const MediaPlayer::Verb MediaPlayer::verbs[] = {
    {"open", &MediaPlayer::open},     {"play", &MediaPlayer::play},
    {"pause", &MediaPlayer::pause},   {"resume", &MediaPlayer::resume},
    {"close", &MediaPlayer::close},   {"set", &MediaPlayer::set},
    {"status", &MediaPlayer::status},
};

MediaPlayer::MediaPlayer(const QString& soundFont) : synth_(soundFont) {}

MediaPlayer::~MediaPlayer() {
    output_.close();
}

bool MediaPlayer::send(const QString& command, QString* answer) {
    lookAgain();
    QString said;
    bool done = false;
    const QString text = command.trimmed();
    const QString word = text.section(u' ', 0, 0);
    for (const Verb& verb : verbs) {
        if (word.compare(QLatin1String(verb.word), Qt::CaseInsensitive) == 0) {
            done = (this->*verb.run)(text.mid(word.size()).trimmed(), said);
        }
    }
    if (answer) {
        *answer = said;
    }
    return done;
}

void MediaPlayer::whenPulled(std::function<void()> told) {
    watch_.reset();
    if (told) {
        watch_ = std::make_unique<OutputWatch>(std::move(told));
    }
}

/// A track whose file or device did not come after all is one that could not be opened.
void MediaPlayer::lookAgain() {
    if (opening_ && opening_->isDoneWithin(0s)) {
        takeUp();
    }
    if (output_.failed()) {
        output_.close();
    }
}

void MediaPlayer::takeUp() {
    std::unique_ptr<AudioSource> source = sourceOf(opening_->take(), synth_);
    opening_.reset();
    if (source && output_.open(std::move(source))) {
        output_.track()->setRunning(running_);
        if (watch_) {
            watch_->renew();
        }
    }
}

bool MediaPlayer::isOpen(const QString& name) const {
    return isAnyOpen() && name.compare(alias_, Qt::CaseInsensitive) == 0;
}

bool MediaPlayer::open(const QString& rest, QString&) {
    // A name may hold quotes itself: the path ends at the last one.
    static const QRegularExpression form(
        QStringLiteral(R"re(^"(.*)"\s+type\s+MPEGVideo\s+alias\s+(\S+)$)re"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = form.match(rest);
    if (!match.hasMatch() || isAnyOpen()) {
        return false;
    }
    alias_ = match.captured(2);
    started_ = false;
    running_ = false;
    opening_.emplace(match.captured(1));
    if (opening_->isDoneWithin(LongestOpening)) {
        takeUp();
    }
    return isAnyOpen();
}

void MediaPlayer::setRunning(bool running) {
    running_ = running;
    if (AudioTrack* track = output_.track()) {
        track->setRunning(running);
    }
}

bool MediaPlayer::play(const QString& rest, QString&) {
    if (!isOpen(rest)) {
        return false;
    }
    started_ = true;
    setRunning(true);
    return true;
}

bool MediaPlayer::pause(const QString& rest, QString&) {
    if (!isOpen(rest)) {
        return false;
    }
    setRunning(false);
    return true;
}

bool MediaPlayer::resume(const QString& rest, QString&) {
    if (!isOpen(rest)) {
        return false;
    }
    setRunning(started_);
    return true;
}

bool MediaPlayer::close(const QString& rest, QString&) {
    if (!isOpen(rest)) {
        return false;
    }
    opening_.reset();
    output_.close();
    return true;
}

bool MediaPlayer::set(const QString& rest, QString&) {
    const QString name = rest.section(u' ', 0, 0);
    const QString what = rest.mid(name.size()).simplified();
    return isOpen(name) && what.compare(QLatin1String("time format s"), Qt::CaseInsensitive) == 0;
}

bool MediaPlayer::status(const QString& rest, QString& answer) {
    const QString name = rest.section(u' ', 0, 0);
    const QString what = rest.mid(name.size()).trimmed();
    if (!isOpen(name)) {
        return false;
    }
    if (what.compare(QLatin1String("length"), Qt::CaseInsensitive) == 0) {
        answer = decimalText(length());
    } else if (what.compare(QLatin1String("position"), Qt::CaseInsensitive) == 0) {
        answer = decimalText(position());
    }
    return !answer.isEmpty();
}

/// In milliseconds, as the position.
qint64 MediaPlayer::length() const {
    const AudioTrack* track = output_.track();
    return track ? milliseconds(track->length(), track->rate()) : UnknownLength;
}

/// A file that gives less than it promised is at its end when it has nothing more.
qint64 MediaPlayer::position() const {
    const AudioTrack* track = output_.track();
    if (!track) {
        return 0;
    }
    const qint64 frames =
        track->ended() ? track->length() : std::min(track->framesHanded(), track->length());
    return milliseconds(frames, track->rate());
}

std::unique_ptr<MediaCommands> makeMediaPlayer() {
    return std::make_unique<MediaPlayer>();
}

}  // namespace velorama

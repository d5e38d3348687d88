#include "platform/sound/media_player.h"

#include "platform/files/paths.h"
#include "platform/numbers.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace velorama {

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
    forgetUnheard();
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

/// A track whose device did not come after all is one that could not be opened.
void MediaPlayer::forgetUnheard() {
    if (source_ && output_.failed()) {
        output_.close();
        source_.reset();
    }
}

bool MediaPlayer::isOpen(const QString& name) const {
    return source_ && name.compare(alias_, Qt::CaseInsensitive) == 0;
}

bool MediaPlayer::open(const QString& rest, QString&) {
    // A name may hold quotes itself: the path ends at the last one.
    static const QRegularExpression form(
        QStringLiteral(R"re(^"(.*)"\s+type\s+MPEGVideo\s+alias\s+(\S+)$)re"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = form.match(rest);
    if (!match.hasMatch() || source_) {
        return false;
    }
    source_ = openAudioSource(hostFile(match.captured(1)), synth_);
    if (!source_ || !output_.open(*source_)) {
        source_.reset();
        return false;
    }
    if (watch_) {
        watch_->renew();
    }
    alias_ = match.captured(2);
    started_ = false;
    return true;
}

bool MediaPlayer::play(const QString& rest, QString&) {
    if (!isOpen(rest)) {
        return false;
    }
    started_ = true;
    output_.setRunning(true);
    return true;
}

bool MediaPlayer::pause(const QString& rest, QString&) {
    if (!isOpen(rest)) {
        return false;
    }
    output_.setRunning(false);
    return true;
}

bool MediaPlayer::resume(const QString& rest, QString&) {
    if (!isOpen(rest)) {
        return false;
    }
    output_.setRunning(started_);
    return true;
}

bool MediaPlayer::close(const QString& rest, QString&) {
    if (!isOpen(rest)) {
        return false;
    }
    output_.close();
    source_.reset();
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
        answer = decimalText(milliseconds(source_->length()));
    } else if (what.compare(QLatin1String("position"), Qt::CaseInsensitive) == 0) {
        answer = decimalText(milliseconds(position()));
    }
    return !answer.isEmpty();
}

qint64 MediaPlayer::milliseconds(qint64 frames) const {
    return frames * 1000 / source_->rate();
}

/// In frames. A file that gives less than it promised is at its end when it has nothing more.
qint64 MediaPlayer::position() {
    return output_.sourceEnded() ? source_->length()
                                 : std::min(output_.framesHanded(), source_->length());
}

std::unique_ptr<MediaCommands> makeMediaPlayer() {
    return std::make_unique<MediaPlayer>();
}

}  // namespace velorama

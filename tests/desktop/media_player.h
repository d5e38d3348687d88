#pragma once

#include "desktop/session.h"

namespace velorama::desktop {

/// The program as other programs of the session see it: a media player on the bus, spoken to by
/// playerctl.
class MediaPlayer {
public:
    explicit MediaPlayer(const DesktopSession& session) : session_(session) {}

    bool order(const char* word) const { return playerctl({QLatin1String(word)}).has_value(); }
    /// What playerctl has no word for.
    bool call(const char* method) const {
        return session_
            .run(QStringLiteral("dbus-send"),
                 {QStringLiteral("--session"), QStringLiteral("--print-reply"),
                  QStringLiteral("--dest=org.mpris.MediaPlayer2.velorama"),
                  QStringLiteral("/org/mpris/MediaPlayer2"),
                  QStringLiteral("org.mpris.MediaPlayer2.") + QLatin1String(method)})
            .has_value();
    }

    QByteArray status() const { return ask({QStringLiteral("status")}); }
    bool comesToStatus(const char* wanted) const {
        return waitFor([&] { return status() == wanted; });
    }
    QByteArray metadata(const char* name) const {
        return ask({QStringLiteral("metadata"), QLatin1String(name)});
    }
    bool comesToMetadata(const char* name, const QByteArray& value) const {
        return waitFor([&] { return metadata(name) == value; });
    }
    bool comesToPlay(const char* title) const {
        return waitFor([&] { return status() == "Playing" && metadata("xesam:title") == title; });
    }
    /// Seconds.
    double position() const { return ask({QStringLiteral("position")}).toDouble(); }
    bool comesToMoveOn() const {
        const double before = position();
        return waitFor([&] { return position() > before + 0.5; });
    }

private:
    /// What playerctl prints; nothing where it fails.
    QByteArray ask(const QStringList& words) const {
        return playerctl(words).value_or(QByteArray());
    }
    std::optional<QByteArray> playerctl(const QStringList& words) const {
        const QStringList all =
            QStringList{QStringLiteral("--no-messages"), QStringLiteral("--player=velorama")} +
            words;
        const auto answer = session_.run(QStringLiteral("playerctl"), all);
        return answer ? std::optional(answer->trimmed()) : std::nullopt;
    }

    const DesktopSession& session_;
};

}  // namespace velorama::desktop

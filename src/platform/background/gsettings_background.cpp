#include "platform/background/background_means.h"

namespace velorama {
namespace {

const QString program = QStringLiteral("gsettings");
constexpr std::chrono::seconds longestReturn{5};

/// Nothing if the desktop's settings have no such key.
std::optional<QString> read(const BackgroundSession& session, const QString& schema,
                            const QString& key) {
    const auto output = session.run(program, {QStringLiteral("get"), schema, key});
    return output ? std::optional(fromSettingText(QString::fromUtf8(*output).trimmed()))
                  : std::nullopt;
}

void write(const BackgroundSession& session, const QString& schema, const QString& key,
           const QString& value, std::chrono::milliseconds atLeast = {}) {
    session.run(program, {QStringLiteral("set"), schema, key, settingText(value)}, atLeast);
}

bool change(const BackgroundSession& session, const QString& schema, const QString& key,
            const QString& value) {
    const auto before = read(session, schema, key);
    if (!before) {
        return false;
    }
    if (*before == value) {
        // To write what is there already would tell the desktop nothing.
        write(session, schema, key, QString());
        // Also where the time is up by now: what has been taken away must not stay away.
        write(session, schema, key, value, longestReturn);
    } else {
        write(session, schema, key, value);
    }
    // Without a bus the command reports success and changes nothing.
    return read(session, schema, key) == value;
}

/// Sets the picture under `key`, and that it is shown: a desktop set to plain colour would not.
bool showPicture(const BackgroundSession& session, const QString& schema, const QString& key,
                 const QString& value) {
    const QString options = QStringLiteral("picture-options");
    if (!change(session, schema, key, value)) {
        return false;
    }
    if (read(session, schema, options) == QStringLiteral("none")) {
        write(session, schema, options, QStringLiteral("zoom"));
    }
    return true;
}

}  // namespace

bool setGnomeBackground(const BackgroundSession& session, const QString& file) {
    const QString schema = QStringLiteral("org.gnome.desktop.background");
    const QString address = fileAddress(file);
    if (!showPicture(session, schema, QStringLiteral("picture-uri"), address)) {
        return false;
    }
    // Not there before GNOME 42.
    change(session, schema, QStringLiteral("picture-uri-dark"), address);
    return true;
}

bool setCinnamonBackground(const BackgroundSession& session, const QString& file) {
    return showPicture(session, QStringLiteral("org.cinnamon.desktop.background"),
                       QStringLiteral("picture-uri"), fileAddress(file));
}

bool setMateBackground(const BackgroundSession& session, const QString& file) {
    return showPicture(session, QStringLiteral("org.mate.background"),
                       QStringLiteral("picture-filename"), file);
}

}  // namespace velorama

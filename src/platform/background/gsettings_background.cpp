#include "platform/background/background_means.h"

namespace velorama {
namespace {

const QString program = QStringLiteral("gsettings");

/// Nothing if the desktop's settings have no such key.
std::optional<QString> read(const BackgroundSession& session, const QString& schema,
                            const QString& key) {
    const auto output = session.run(program, {QStringLiteral("get"), schema, key});
    return output ? std::optional(fromSettingText(QString::fromUtf8(*output).trimmed()))
                  : std::nullopt;
}

void write(const BackgroundSession& session, const QString& schema, const QString& key,
           const QString& value) {
    session.run(program, {QStringLiteral("set"), schema, key, settingText(value)});
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
    }
    write(session, schema, key, value);
    // Without a bus the command reports success and changes nothing.
    return read(session, schema, key) == value;
}

/// A desktop set to show plain colour would not show any picture.
void wantPicture(const BackgroundSession& session, const QString& schema) {
    const QString key = QStringLiteral("picture-options");
    if (read(session, schema, key) == QStringLiteral("none")) {
        write(session, schema, key, QStringLiteral("zoom"));
    }
}

}  // namespace

bool setGnomeBackground(const BackgroundSession& session, const QString& file) {
    const QString schema = QStringLiteral("org.gnome.desktop.background");
    const QString address = fileAddress(file);
    if (!change(session, schema, QStringLiteral("picture-uri"), address)) {
        return false;
    }
    // Not there before GNOME 42.
    change(session, schema, QStringLiteral("picture-uri-dark"), address);
    wantPicture(session, schema);
    return true;
}

bool setCinnamonBackground(const BackgroundSession& session, const QString& file) {
    const QString schema = QStringLiteral("org.cinnamon.desktop.background");
    if (!change(session, schema, QStringLiteral("picture-uri"), fileAddress(file))) {
        return false;
    }
    wantPicture(session, schema);
    return true;
}

bool setMateBackground(const BackgroundSession& session, const QString& file) {
    const QString schema = QStringLiteral("org.mate.background");
    if (!change(session, schema, QStringLiteral("picture-filename"), file)) {
        return false;
    }
    wantPicture(session, schema);
    return true;
}

}  // namespace velorama

#include "platform/background/background_means.h"

#include <QFileInfo>
#include <QSettings>

namespace velorama {
namespace {

/// The way to fit the picture that has to be asked for: none, so that the user's own stays, unless
/// that is to show plain colour, as it is where nobody has chosen.
QString wantedMode(const BackgroundSession& session) {
    const QSettings settings(
        session.configFolder() + QStringLiteral("/pcmanfm-qt/lxqt/settings.conf"),
        QSettings::IniFormat);
    const QString mode = settings.value(QStringLiteral("Desktop/WallpaperMode")).toString();
    const bool plain = mode.isEmpty() || mode == QStringLiteral("none");
    // The service does not know "zoom", which the desktop's own dialog has.
    return plain ? QStringLiteral("fit") : QString();
}

}  // namespace

bool setLxqtBackground(const BackgroundSession& session, const QString& file) {
    const QString service = QStringLiteral("org.pcmanfm.PCManFM");
    // The desktop must be there: the service would otherwise be started as a file manager.
    if (!session.hasService(service)) {
        return false;
    }
    const QString mode = wantedMode(session);
    const auto show = [&](const QString& path) {
        return session.call(service, QStringLiteral("/Application"),
                            QStringLiteral("org.pcmanfm.Application"),
                            QStringLiteral("setWallpaper"), {path, mode});
    };
    // It does not look again at a path that it shows already, however the file has changed.
    const QFileInfo info(file);
    show(info.path() + QStringLiteral("/./") + info.fileName());
    return show(file).has_value();
}

}  // namespace velorama

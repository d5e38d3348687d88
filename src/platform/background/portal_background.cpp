#include "platform/background/background_means.h"

#include <QDBusUnixFileDescriptor>
#include <QFile>

namespace velorama {

bool setPortalBackground(const BackgroundSession& session, const QString& file) {
    QFile picture(file);
    if (!picture.open(QIODevice::ReadOnly)) {
        return false;
    }
    // Addresses of files are refused here: an open file shows that the program may read it.
    const QVariantMap options = {{QStringLiteral("show-preview"), false},
                                 {QStringLiteral("set-on"), QStringLiteral("background")}};
    const auto request = session.call(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Wallpaper"), QStringLiteral("SetWallpaperFile"),
        {QString(), QVariant::fromValue(QDBusUnixFileDescriptor(picture.handle())), options});
    return request.has_value();
}

}  // namespace velorama

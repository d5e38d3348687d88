#include "platform/background/background_means.h"

#include <QDBusArgument>
#include <QDBusVariant>

namespace velorama {
namespace {

const QString channel = QStringLiteral("xfce4-desktop");

std::optional<QVariantList> store(const BackgroundSession& session, const QString& method,
                                  const QVariantList& arguments) {
    const QString name = QStringLiteral("org.xfce.Xfconf");
    return session.call(name, QStringLiteral("/org/xfce/Xfconf"), name, method, arguments);
}

void write(const BackgroundSession& session, const QString& property, const QVariant& value) {
    store(session, QStringLiteral("SetProperty"),
          {channel, property, QVariant::fromValue(QDBusVariant(value))});
}

/// The settings of all backgrounds, one a monitor and workspace; the desktop makes them at its
/// start.
QVariantMap backgrounds(const BackgroundSession& session) {
    const auto answer =
        store(session, QStringLiteral("GetAllProperties"), {channel, QStringLiteral("/backdrop")});
    return answer ? qdbus_cast<QVariantMap>(answer->value(0)) : QVariantMap();
}

bool isPicture(const QString& property) {
    return property.endsWith(QStringLiteral("/last-image"));
}

void change(const BackgroundSession& session, const QString& property, const QVariant& before,
            const QString& file) {
    if (before.toString() == file) {
        // To write what is there already would tell the desktop nothing.
        write(session, property, QString());
    }
    write(session, property, file);
}

}  // namespace

bool setXfceBackground(const BackgroundSession& session, const QString& file) {
    const QVariantMap before = backgrounds(session);
    for (auto one = before.begin(); one != before.end(); ++one) {
        if (isPicture(one.key())) {
            change(session, one.key(), one.value(), file);
        } else if (one.key().endsWith(QStringLiteral("/image-style")) && one->toInt() == 0) {
            constexpr int zoomed = 5;  // 0, no picture at all, would show nothing of it
            write(session, one.key(), zoomed);
        }
    }
    const QVariantMap after = backgrounds(session);
    int taken = 0;
    for (auto one = after.begin(); one != after.end(); ++one) {
        taken += isPicture(one.key()) && one->toString() == file ? 1 : 0;
    }
    return taken > 0;
}

}  // namespace velorama

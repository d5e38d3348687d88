#include "platform/background/background_means.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace velorama {
namespace {

/// A text as a literal of JavaScript: a list of one in JSON without its brackets.
QString scriptText(const QString& text) {
    const QByteArray list = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.mid(1, list.size() - 2));
}

/// What the script printed, line by line; empty if it could not be run.
QStringList evaluated(const BackgroundSession& session, const QString& script) {
    const auto answer = session.call(
        QStringLiteral("org.kde.plasmashell"), QStringLiteral("/PlasmaShell"),
        QStringLiteral("org.kde.PlasmaShell"), QStringLiteral("evaluateScript"), {script});
    return answer ? answer->value(0).toString().split(u'\n', Qt::SkipEmptyParts) : QStringList();
}

/// Runs the statements for each desktop, then prints on a line which picture it has.
QString plasmaScript(const QString& statements, const QString& address) {
    // Older shells speak a JavaScript without let and for-of.
    return QStringLiteral("var address = ") + scriptText(address) +
           QStringLiteral(
               "; var all = desktops();"
               "for (var i = 0; i < all.length; ++i) {"
               " var desktop = all[i];"
               " desktop.wallpaperPlugin = 'org.kde.image';"
               " desktop.currentConfigGroup = ['Wallpaper', 'org.kde.image', 'General']; ") +
           statements + QStringLiteral(" print(desktop.readConfig('Image') + '\\n'); }");
}

}  // namespace

bool setPlasmaBackground(const BackgroundSession& session, const QString& file) {
    const QString address = fileAddress(file);
    // The shell keeps the picture of an address that it shows already, however the file has
    // changed.
    const QString forget = QStringLiteral(
        "if (desktop.readConfig('Image') == address) { desktop.writeConfig('Image', ''); }");
    const QString show = QStringLiteral("desktop.writeConfig('Image', address);");
    evaluated(session, plasmaScript(forget, address));
    const QStringList shown = evaluated(session, plasmaScript(show, address));
    return !shown.isEmpty() && shown.count(address) == shown.size();
}

}  // namespace velorama

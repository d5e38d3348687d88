#include "platform/background/background_session.h"

#include <QFile>
#include <QProcess>

#include <algorithm>

namespace velorama {

BackgroundSession::BackgroundSession(const QProcessEnvironment& environment,
                                     const QDBusConnection& bus, QDeadlineTimer deadline)
    : environment_(environment), bus_(bus), deadline_(deadline) {}

QString BackgroundSession::variable(const char* name) const {
    return environment_.value(QLatin1String(name));
}

QStringList BackgroundSession::desktops() const {
    QStringList names = variable("XDG_CURRENT_DESKTOP").toLower().split(u':', Qt::SkipEmptyParts);
    // Some login managers give the path of the session's file.
    names.append(variable("DESKTOP_SESSION").toLower().section(u'/', -1));
    names.removeAll(QString());
    return names;
}

QString BackgroundSession::configFolder() const {
    const QString folder = variable("XDG_CONFIG_HOME");
    return folder.isEmpty() ? variable("HOME") + QStringLiteral("/.config") : folder;
}

int BackgroundSession::patience() const {
    return static_cast<int>(deadline_.remainingTime());
}

std::optional<QByteArray> BackgroundSession::run(const QString& program,
                                                 const QStringList& arguments,
                                                 std::chrono::milliseconds atLeast) const {
    QProcess process;
    process.setProcessEnvironment(environment_);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(std::max(patience(), static_cast<int>(atLeast.count())))) {
        process.kill();
        process.waitForFinished();
        return std::nullopt;
    }
    const bool done = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return done ? std::optional(process.readAllStandardOutput()) : std::nullopt;
}

bool BackgroundSession::hasService(const QString& name) const {
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    const auto answer = call(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                             QStringLiteral("NameHasOwner"), {name});
    return answer && answer->value(0).toBool();
}

std::optional<QVariantList> BackgroundSession::call(const QString& service, const QString& path,
                                                    const QString& interface, const QString& method,
                                                    const QVariantList& arguments) const {
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    // A wait of 0 would be one without end.
    const QDBusMessage answer = bus_.call(message, QDBus::Block, std::max(1, patience()));
    return answer.type() == QDBusMessage::ReplyMessage ? std::optional(answer.arguments())
                                                       : std::nullopt;
}

QString fileAddress(const QString& file) {
    const QByteArray path = QFile::encodeName(file).toPercentEncoding("/");
    return QStringLiteral("file://") + QString::fromLatin1(path);
}

}  // namespace velorama

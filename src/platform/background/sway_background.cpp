#include "platform/background/background_means.h"

#include <QFile>

namespace velorama {
namespace {

/// Sway reads the path of a picture as a shell would, command substitution included: all but the
/// plainest letters need a backslash. Bytes above ASCII stand for themselves.
bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '/' ||
           c == '.' || c == '_' || c == '-' || static_cast<signed char>(c) < 0;
}

}  // namespace

QString swayCommand(const QString& file) {
    QByteArray path;
    for (const char c : QFile::encodeName(file)) {
        path += isPlain(c) ? QByteArray(1, c) : QByteArray(1, '\\') + c;
    }
    // The quotes keep blanks, commas and semicolons from ending the command.
    return QStringLiteral("output * bg \"") + QString::fromUtf8(path) + QStringLiteral("\" fill");
}

bool setSwayBackground(const BackgroundSession& session, const QString& file) {
    // A line break ends a command, and no escape helps.
    if (file.contains(u'\n') || file.contains(u'\r')) {
        return false;
    }
    return session.run(QStringLiteral("swaymsg"), {QStringLiteral("--"), swayCommand(file)})
        .has_value();
}

}  // namespace velorama

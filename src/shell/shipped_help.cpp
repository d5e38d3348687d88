#include "shell/shipped_help.h"

#include <QFile>
#include <QRegularExpression>

namespace velorama {
namespace {

/// Of a page what stands between its head and the line above the links at its foot.
QString bodyOf(const QString& page) {
    QFile file(QStringLiteral(":/help/") + page);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    static const QRegularExpression frame(
        QStringLiteral("^.*<body>|<hr>.*$|<p><img[^>]*></p>|</?a\\b[^>]*>"),
        QRegularExpression::DotMatchesEverythingOption);
    return QString::fromUtf8(file.readAll()).remove(frame);
}

}  // namespace

QString shippedHelp() {
    return bodyOf(QStringLiteral("menuhelpgettingstarted.html")) +
           bodyOf(QStringLiteral("keys.html"));
}

}  // namespace velorama

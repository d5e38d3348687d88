#include "controls/dialogs/file_kinds.h"

namespace velorama {
namespace {

QStringList patternsOf(const QString& text) {
    QStringList patterns;
    for (const QString& part : text.split(QLatin1Char(';'))) {
        const QString pattern = part.trimmed();
        if (!pattern.isEmpty()) {
            patterns.append(pattern == QLatin1String("*.*") ? QStringLiteral("*") : pattern);
        }
    }
    return patterns.isEmpty() ? QStringList(QStringLiteral("*")) : patterns;
}

}  // namespace

QList<FileKind> fileKinds(const QString& filter) {
    const QStringList pieces = filter.split(QLatin1Char('|'));
    QList<FileKind> kinds;
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
        kinds.append({pieces.at(i).trimmed(), patternsOf(pieces.at(i + 1))});
    }
    return kinds;
}

}  // namespace velorama

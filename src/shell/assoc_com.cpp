#include "shell/assoc_com.h"

#include "core/documents.h"
#include "platform/files/paths.h"

#include <QFile>
#include <QFileInfo>

namespace velorama {

bool FileExistsQuick(const QString& path) {
    QString plain = QuotesStrip(path);
    if (plain.endsWith(pathSeparator(plain))) {
        plain.chop(1);
    }
    const QString file = hostFile(plain);
    return QFileInfo(file).isFile() && QFile(file).open(QIODevice::ReadOnly);
}

QString FileSlash(const QString& path) {
    const QChar separator = pathSeparator(path);
    return path.endsWith(separator) ? path : path + separator;
}

QString ShortPath(const QString& longPath) {
    return longPath;
}

void StringSplit(const QString& text, QStringList& result, const QString& delimiter) {
    result = delimiter.isEmpty() ? QStringList(text) : text.split(delimiter);
}

QString QuotesStrip(const QString& text) {
    const QString trimmed = withoutOuterBlanks(text);
    const bool quoted =
        trimmed.size() >= 2 && trimmed.startsWith(QChar(u'"')) && trimmed.endsWith(QChar(u'"'));
    return quoted ? trimmed.mid(1, trimmed.size() - 2) : trimmed;
}

}  // namespace velorama

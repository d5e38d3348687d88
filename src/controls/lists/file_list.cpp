#include "controls/lists/file_list.h"

#include "platform/files/name_order.h"
#include "platform/files/paths.h"

#include <QDir>
#include <QDirIterator>

namespace velorama {
namespace {

QStringList wildcards(const QString& pattern) {
    QStringList list;
    for (const QString& part : pattern.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        const QString wildcard = part.trimmed();
        // "*.*" means any file, also one without a dot.
        list.append(wildcard == QLatin1String("*.*") ? QStringLiteral("*") : wildcard);
    }
    return list;
}

}  // namespace

void FileList::setPath(const QString& path) {
    path_ = path;
    read();
}

void FileList::setPattern(const QString& pattern) {
    if (pattern != pattern_) {
        pattern_ = pattern;
        read();
    }
}

void FileList::setPath(const QString& path, const QStringList& names) {
    path_ = path;
    names_ = names;
}

void FileList::read() {
    names_ = namesIn(path_, pattern_);
}

QStringList FileList::namesIn(const QString& path, const QString& pattern) {
    QStringList names;
    if (path.isEmpty()) {
        return names;
    }
    QDirIterator entries(hostFile(path), wildcards(pattern), QDir::Files);
    while (entries.hasNext()) {
        entries.next();
        names.append(entries.fileName());
    }
    NameOrder().sort(names);
    return names;
}

}  // namespace velorama

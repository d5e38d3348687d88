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

void FileList::read() {
    names_.clear();
    if (path_.isEmpty()) {
        return;
    }
    QDirIterator entries(hostFile(path_), wildcards(pattern_), QDir::Files);
    while (entries.hasNext()) {
        entries.next();
        names_.append(entries.fileName());
    }
    NameOrder().sort(names_);
}

}  // namespace velorama

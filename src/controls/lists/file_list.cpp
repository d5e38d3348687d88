#include "controls/lists/file_list.h"

#include "platform/files/name_order.h"
#include "platform/files/paths.h"

#include <QDir>
#include <QDirIterator>
#include <QRegularExpression>

#include <algorithm>
#include <vector>

namespace velorama {
namespace {

/// The parts of a pattern; without any, every name matches.
class Wildcards {
public:
    explicit Wildcards(const QString& pattern) {
        for (const QString& part : pattern.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            const QString wildcard = part.trimmed();
            // "*.*" means any file, also one without a dot.
            parts_.push_back(QRegularExpression::fromWildcard(
                wildcard == QLatin1String("*.*") ? QStringLiteral("*") : wildcard,
                Qt::CaseInsensitive));
        }
    }
    bool match(const QString& name) const {
        return parts_.empty() ||
               std::any_of(parts_.begin(), parts_.end(), [&](const QRegularExpression& part) {
                   return part.match(name).hasMatch();
               });
    }

private:
    std::vector<QRegularExpression> parts_;
};

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

void FileList::setPath(const QString& path, FolderFiles files) {
    path_ = path;
    files_ = std::move(files);
}

void FileList::read() {
    files_ = filesIn(path_, pattern_, isOther_);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): a copy is what is asked
FolderFiles FileList::filesIn(const QString& path, const QString& pattern, Teller isOther) {
    FolderFiles files;
    if (path.isEmpty()) {
        return files;
    }
    const Wildcards listed(pattern);
    QDirIterator entries(hostFile(path), QDir::Files);
    while (entries.hasNext()) {
        entries.next();
        const QString name = entries.fileName();
        if (listed.match(name)) {
            files.names.append(name);
        } else if (isOther && isOther(name)) {
            ++files.others;
        }
    }
    NameOrder().sort(files.names);
    return files;
}

}  // namespace velorama

#include "platform/files/paths.h"

#include "platform/files/drives.h"
#include "platform/files/exact_names.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace velorama {
namespace {

bool isAsciiLetter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

bool hasDrive(const QString& path) {
    return path.size() >= 2 && isAsciiLetter(path[0]) && path[1] == u':';
}

bool isSlash(QChar c) {
    return c == u'/' || c == u'\\';
}

/// The names of one folder by their case-folded form. A missing file is often one of many in the
/// same folder, so the folder read last is kept for as long as it does not change.
class FolderNames {
public:
    /// Name as it stands in the folder, empty if there is none. `folder` ends in a slash.
    QString find(const QString& folder, const QString& name) {
        const QDateTime changed = QFileInfo(folder).lastModified();
        if (folder != folder_ || changed != changed_ || !settled_) {
            read(folder, changed);
        }
        return names_.value(folded(name));
    }

private:
    /// The fold alone keeps the dotted capital I, which in small letters is an i and its dot.
    static QString folded(const QString& name) { return name.toLower().toCaseFolded(); }

    /// A folder changed a moment ago may change again without a new time stamp; a server's clock
    /// may go before ours. One farther ahead is wrong, or ours was set back: to read such a folder
    /// for each name anew would go on until we have caught up with it.
    static bool isSettled(qint64 age) {
        constexpr qint64 moment = 2'000;  // milliseconds
        constexpr qint64 farAhead = 600'000;
        return age > moment || age < -farAhead;
    }
    void read(const QString& folder, const QDateTime& changed) {
        settled_ = isSettled(changed.msecsTo(QDateTime::currentDateTime()));
        folder_ = folder;
        changed_ = changed;
        names_.clear();
        const QStringList names = QDir(folder).entryList(
            QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
        for (const QString& name : names) {
            const QString key = folded(name);
            if (!names_.contains(key)) {
                names_.insert(key, name);
            }
        }
    }

    QString folder_;
    QDateTime changed_;
    bool settled_ = false;
    QHash<QString, QString> names_;
};

QStringList segments(const QString& path) {
    QString plain = path;
    plain.replace(u'\\', u'/');
    return plain.split(u'/', Qt::SkipEmptyParts);
}

struct Walk {
    QString reached;  // the part of the path that stands on this machine
    QString missing;  // the rest, empty if all was found
};

/// Follows the path one folder at a time, the exact name first, then one that differs in case.
/// `start` ends in a slash, or is empty for the current folder.
Walk walk(const QString& start, const QString& path) {
    thread_local FolderNames folderNames;
    const QStringList parts = segments(path);
    QString folder = start;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        QString name = parts[i];
        if (!QFileInfo::exists(folder + name)) {
            name = folderNames.find(folder.isEmpty() ? QStringLiteral("./") : folder, name);
        }
        if (name.isEmpty()) {
            return {folder, parts.mid(i).join(u'/')};
        }
        folder += name;
        if (i + 1 < parts.size()) {
            folder += u'/';
        }
    }
    return {folder, QString()};
}

Walk walk(const QString& path) {
    return walk(isSlash(path[0]) ? QStringLiteral("/") : QString(), path);
}

QString withSlash(const QString& folder) {
    return folder.endsWith(u'/') ? folder : folder + u'/';
}

Walk walk(const DrivePath& path) {
    const QString exact = path.below.isEmpty() ? path.folder : withSlash(path.folder) + path.below;
    if (QFileInfo::exists(exact)) {
        return {exact, QString()};
    }
    // A disk that is not there has nothing, and gets nothing: that would be written below the
    // place it hangs in.
    if (path.below.isEmpty() || !QFileInfo(path.folder).isDir()) {
        return {QString(), exact};
    }
    return walk(withSlash(path.folder), path.below);
}

// Characters. No system takes a longer path.
constexpr qsizetype longestPath = 32767;

bool canBeName(const QString& path) {
    return !path.isEmpty() && path.size() <= longestPath && !path.contains(QChar(u'\0'));
}

/// False for a path of another system that no file of this one can have.
bool canStandHere(const QString& path) {
    return canBeName(path) && !(hasDrive(path) && path.mid(2).contains(u'\\'));
}

/// `name`, as it was given, in the folder that a walk has led to or ended before.
QString placeIn(const Walk& folder, const QString& name) {
    const QString way = folder.reached + folder.missing;
    return way.isEmpty() ? name : withSlash(way) + name;
}

QString placeHere(const QString& path) {
    const QChar separator = pathSeparator(path);
    qsizetype end = path.size();
    while (end > 1 && path[end - 1] == separator) {
        --end;
    }
    const qsizetype cut = path.lastIndexOf(separator, end - 1);
    const QString folder = path.left(std::max<qsizetype>(cut, 1));
    const bool isThere = separator == u'/' && QFileInfo(folder).isDir();
    if (cut < 0 || ExactNames::hold(path) || QFileInfo::exists(path) || isThere) {
        return path;
    }
    return placeIn(walk(folder), path.sliced(cut + 1, end - cut - 1));
}

}  // namespace

QChar pathSeparator(const QString& path) {
    const bool windowsForm = hasDrive(path) || (path.contains(u'\\') && !path.contains(u'/'));
    return windowsForm ? u'\\' : u'/';
}

QChar otherSeparator(const QString& path) {
    return pathSeparator(path) == u'\\' ? u'/' : u'\\';
}

qsizetype driveRootLength(const QString& path) {
    return pathSeparator(path) == u'\\' ? 3 : 1;
}

QString joinPath(const QString& folder, const QString& name) {
    return folder + pathSeparator(folder) + name;
}

QString lastSegment(const QString& path) {
    qsizetype at = path.lastIndexOf(pathSeparator(path));
    if (at < 0) {
        at = path.lastIndexOf(otherSeparator(path));
    }
    return path.mid(at + 1);
}

QString hostFile(const QString& path) {
    if (!canBeName(path)) {
        return QString();
    }
    if (QFileInfo::exists(path)) {
        return path;
    }
    const std::optional<DrivePath> drive = onDrive(path);
    if (!drive && (!canStandHere(path) || ExactNames::hold(path))) {
        return path;
    }
    const Walk found = drive ? walk(*drive) : walk(path);
    return found.missing.isEmpty() ? found.reached : path;
}

QString hostPlace(const QString& path) {
    const std::optional<DrivePath> drive = onDrive(path);
    if (!drive) {
        return canStandHere(path) ? placeHere(path) : QString();
    }
    // A disk that is not there gets nothing: that would be written below the place it hangs in.
    if (!QFileInfo(drive->folder).isDir()) {
        return QString();
    }
    const qsizetype slash = drive->below.lastIndexOf(u'/');
    const QString start = withSlash(drive->folder);
    return drive->below.isEmpty() ? drive->folder
                                  : placeIn(walk(start, drive->below.left(slash < 0 ? 0 : slash)),
                                            drive->below.mid(slash + 1));
}

}  // namespace velorama

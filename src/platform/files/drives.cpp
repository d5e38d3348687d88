#include "platform/files/drives.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QStandardPaths>
#include <QStringList>

namespace velorama {
namespace {

// Far more than 26 lines with the longest paths; what is longer is no drives file.
constexpr qint64 MostBytes = 256LL * 1024;
// Milliseconds, of the coarsest clock that a file system stamps its files with.
constexpr qint64 LongestTick = 2000;

/// 0 to 25, -1 for what is no drive letter.
int driveNumber(QChar letter) {
    const char16_t c = letter.unicode() | 0x20;
    return c >= u'a' && c <= u'z' ? c - u'a' : -1;
}

bool isSlash(QChar c) {
    return c == u'/' || c == u'\\';
}

/// Nothing for a line of another kind.
QString folderOf(const QString& line) {
    const QString folder = line.mid(2).trimmed();
    const bool damaged =
        folder.contains(QChar(u'\0')) || folder.contains(QChar::ReplacementCharacter);
    // The toolkit takes a path with a colon in front for one of its own files.
    const bool own = folder.startsWith(u':');
    return !damaged && !own && QDir::isAbsolutePath(folder) ? QDir::cleanPath(folder) : QString();
}

void readLine(const QString& line, DriveFolders& folders) {
    const int number = line.size() > 2 && line[1] == u':' ? driveNumber(line[0]) : -1;
    if (number < 0) {
        return;
    }
    const QString folder = folderOf(line);
    if (!folder.isEmpty()) {
        folders[static_cast<size_t>(number)] = folder;
    }
}

/// As the other system walks it: `..` in the root leads nowhere.
QString belowRoot(const QString& path) {
    QString plain = path;
    plain.replace(u'\\', u'/');
    QStringList names;
    for (const QString& name : plain.split(u'/', Qt::SkipEmptyParts)) {
        if (name == QLatin1String("..")) {
            names = names.mid(0, names.size() - 1);
        } else if (name != QLatin1String(".")) {
            names.append(name);
        }
    }
    return names.join(u'/');
}

/// The drives file as it was when it was last looked at.
class DrivesFile {
public:
    QString folder(int number) {
        const QMutexLocker locker(&mutex_);
        look();
        return folders_[static_cast<size_t>(number)];
    }

private:
    void look() {
        const QFileInfo info(drivesFilePath());
        // A pipe would keep the program waiting for its other end.
        const qint64 size = info.isFile() ? info.size() : -1;
        const QDateTime changed = size < 0 ? QDateTime() : info.lastModified();
        if (size == size_ && changed == changed_ && settled_) {
            return;
        }
        // A file changed a moment ago may change again without a new time stamp.
        settled_ = size < 0 || changed.msecsTo(QDateTime::currentDateTime()) > LongestTick;
        QFile file(info.filePath());
        const bool readable = size >= 0 && file.open(QIODevice::ReadOnly);
        folders_ = readable ? driveFolders(file.read(MostBytes + 1)) : DriveFolders();
        size_ = readable ? size : -1;
        changed_ = readable ? changed : QDateTime();
    }

    QMutex mutex_;
    DriveFolders folders_;
    qint64 size_ = -1;
    QDateTime changed_;
    bool settled_ = false;
};

DrivesFile& drivesFile() {
    static DrivesFile file;
    return file;
}

}  // namespace

DriveFolders driveFolders(const QByteArray& text) {
    DriveFolders folders;
    QByteArray whole = text;
    if (whole.size() > MostBytes) {
        // The last line of the part that is read would be a piece of a path.
        whole.truncate(whole.lastIndexOf('\n', MostBytes - 1) + 1);
    }
    if (whole.startsWith("\xEF\xBB\xBF")) {
        whole.remove(0, 3);
    }
    for (const QByteArray& line : whole.split('\n')) {
        readLine(QString::fromUtf8(line).trimmed(), folders);
    }
    return folders;
}

std::optional<DrivePath> onDrive(const QString& path) {
    const int number =
        path.size() > 2 && path[1] == u':' && isSlash(path[2]) ? driveNumber(path[0]) : -1;
    if (number < 0 || path.contains(QChar(u'\0'))) {
        return std::nullopt;
    }
    const QString folder = drivesFile().folder(number);
    if (folder.isEmpty()) {
        return std::nullopt;
    }
    return DrivePath{folder, belowRoot(path.mid(2))};
}

QString drivesFilePath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/velorama/drives");
}

}  // namespace velorama

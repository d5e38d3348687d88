#include "platform/session/file_types.h"

#include "platform/files/file_write.h"
#include "platform/session/file_type_texts.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QThreadPool>

#include <algorithm>
#include <utility>

namespace velorama {
namespace {

QString entryFile(const FileType& type) {
    return QStringLiteral("applications/") + type.id + QStringLiteral(".desktop");
}

/// What a first run writes besides the entry, below the user's data folder.
QStringList iconFiles(const FileType& type) {
    const QString icons = QStringLiteral("icons/hicolor/scalable/");
    return {icons + QStringLiteral("apps/") + type.id + QStringLiteral(".svg"),
            icons + QStringLiteral("mimetypes/") + mimeIconName(type.mimeType) +
                QStringLiteral(".svg")};
}

QString packageFile(const FileType& type) {
    return QStringLiteral("mime/packages/") + type.id + QStringLiteral(".xml");
}

bool stands(const QStringList& folders, const QString& file) {
    return std::any_of(folders.begin(), folders.end(), [&](const QString& folder) {
        return QFileInfo::exists(folder + u'/' + file);
    });
}

bool isProgram(const QString& path) {
    const QFileInfo file(path);
    return file.isAbsolute() && file.isFile() && file.isExecutable();
}

/// Build trees come and go, and what a desktop keeps of them is soon a dead entry.
bool isInBuildTree(const QString& program) {
    return QFileInfo::exists(QFileInfo(program).path() + QStringLiteral("/CMakeCache.txt"));
}

bool isLinkable(const QString& program) {
    return isProgram(program) && !isInBuildTree(program);
}

/// The text of an entry that a first run has made; nothing where there is none or the user's own.
QString madeEntry(const QString& file) {
    QFile entry(file);
    if (!entry.open(QIODevice::ReadOnly)) {
        return QString();
    }
    const QString text = QString::fromUtf8(entry.readAll());
    return text.split(u'\n').contains(madeForUser) ? text : QString();
}

void write(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    writeFileWhole(path, bytes, Lasting::Yes);
}

/// Nobody waits for it, and it outlives the program if it must. Absent commands are passed over.
void runBeside(const QString& command, const QStringList& arguments) {
    const QString path = QStandardPaths::findExecutable(command);
    if (path.isEmpty()) {
        return;
    }
    QProcess process;
    process.setProgram(path);
    process.setArguments(arguments);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.startDetached();
}

void updateDatabases(const QString& folder) {
    runBeside(QStringLiteral("update-mime-database"), {folder + QStringLiteral("/mime")});
    runBeside(QStringLiteral("update-desktop-database"),
              {folder + QStringLiteral("/applications")});
}

void makeLink(const FileType& type, const QString& folder) {
    const QStringList icons = iconFiles(type);
    write(folder + u'/' + icons.first(), type.programIcon);
    write(folder + u'/' + icons.last(), type.icon);
    write(folder + u'/' + packageFile(type), mimePackage(type).toUtf8());
    write(folder + u'/' + entryFile(type), desktopEntry(type).toUtf8());
    updateDatabases(folder);
    runBeside(QStringLiteral("xdg-mime"),
              {QStringLiteral("default"), type.id + QStringLiteral(".desktop"), type.mimeType});
}

void takeLinkAway(const FileType& type, const QString& folder) {
    const QStringList files = iconFiles(type) + QStringList{packageFile(type), entryFile(type)};
    for (const QString& file : files) {
        QFile::remove(folder + u'/' + file);
    }
    updateDatabases(folder);
}

/// Where the entries of one user and of all users lie.
struct DataFolders {
    QString own;
    QStringList ofSystem;

    bool areKnown() const { return !own.isEmpty(); }
    bool systemKnows(const FileType& type) const {
        return stands(ofSystem, entryFile(type)) && stands(ofSystem, packageFile(type));
    }
};

DataFolders dataFolders() {
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    const QString own = folders.isEmpty() ? QString() : folders.takeFirst();
    return {own, folders};
}

/// Writes or removes four small files and starts the commands. The program's end waits for it.
template <typename Work>
void start(Work work) {
    QThreadPool::globalInstance()->start(std::move(work));
}

class DesktopFileTypes : public FileTypes {
public:
    void link(const FileType& type) override {
        const DataFolders folders = dataFolders();
        if (!folders.areKnown() || !isLinkable(type.program) || folders.systemKnows(type)) {
            tidy(type);
            return;
        }
        const QString entry = folders.own + u'/' + entryFile(type);
        if (!QFileInfo::exists(entry) || !madeEntry(entry).isEmpty()) {
            start([type, own = folders.own] { makeLink(type, own); });
        }
    }

    void tidy(const FileType& type) override {
        const DataFolders folders = dataFolders();
        const QString entry = madeEntry(folders.own + u'/' + entryFile(type));
        const bool isOfUse = !folders.systemKnows(type) && isLinkable(entryProgram(entry));
        if (folders.areKnown() && !entry.isEmpty() && !isOfUse) {
            start([type, own = folders.own] { takeLinkAway(type, own); });
        }
    }
};

}  // namespace

std::unique_ptr<FileTypes> makeDesktopFileTypes() {
    return std::make_unique<DesktopFileTypes>();
}

}  // namespace velorama

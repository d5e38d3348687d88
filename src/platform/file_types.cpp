#include "platform/file_types.h"

#include "platform/file_type_texts.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace velorama {
namespace {

QString entryFile(const FileType& type) {
    return QStringLiteral("applications/") + type.id + QStringLiteral(".desktop");
}

QString packageFile(const FileType& type) {
    return QStringLiteral("mime/packages/") + type.id + QStringLiteral(".xml");
}

bool stands(const QStringList& folders, const QString& file) {
    for (const QString& folder : folders) {
        if (QFileInfo::exists(folder + u'/' + file)) {
            return true;
        }
    }
    return false;
}

bool isProgram(const QString& path) {
    const QFileInfo file(path);
    return file.isAbsolute() && file.isFile() && file.isExecutable();
}

/// True if the entry may be written: none is there, or one that an earlier first run has made.
bool isFree(const QString& file) {
    QFile entry(file);
    if (!entry.exists()) {
        return true;
    }
    const QByteArray line = madeForUser.toUtf8();
    return entry.open(QIODevice::ReadOnly) && entry.readAll().split('\n').contains(line);
}

void write(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.write(bytes);
        file.commit();
    }
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

void makeLink(const FileType& type, const QString& folder) {
    const QString icons = folder + QStringLiteral("/icons/hicolor/scalable/");
    write(icons + QStringLiteral("apps/") + type.id + QStringLiteral(".svg"), type.programIcon);
    write(
        icons + QStringLiteral("mimetypes/") + mimeIconName(type.mimeType) + QStringLiteral(".svg"),
        type.icon);
    write(folder + u'/' + packageFile(type), mimePackage(type).toUtf8());
    write(folder + u'/' + entryFile(type), desktopEntry(type).toUtf8());
    runBeside(QStringLiteral("update-mime-database"), {folder + QStringLiteral("/mime")});
    runBeside(QStringLiteral("update-desktop-database"),
              {folder + QStringLiteral("/applications")});
    runBeside(QStringLiteral("xdg-mime"),
              {QStringLiteral("default"), type.id + QStringLiteral(".desktop"), type.mimeType});
}

class DesktopFileTypes : public FileTypes {
public:
    ~DesktopFileTypes() override { finish(); }

    void link(const FileType& type) override {
        QStringList folders =
            QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
        if (folders.isEmpty() || !isProgram(type.program)) {
            return;
        }
        const QString own = folders.takeFirst();
        const bool known = stands(folders, entryFile(type)) && stands(folders, packageFile(type));
        if (!known && isFree(own + u'/' + entryFile(type))) {
            start([type, own] { makeLink(type, own); });
        }
    }

private:
    template <typename Work>
    void start(Work work) {
        finish();
        try {
            thread_ = std::thread(std::move(work));
        } catch (const std::system_error&) {
            // The machine is out of threads: no link this time.
        }
    }

    void finish() {
        if (thread_.joinable()) {
            thread_.join();
        }
    }

    std::thread thread_;  // writes four small files and starts three commands
};

}  // namespace

std::unique_ptr<FileTypes> makeDesktopFileTypes() {
    return std::make_unique<DesktopFileTypes>();
}

}  // namespace velorama

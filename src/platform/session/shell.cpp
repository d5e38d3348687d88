#include "platform/session/shell.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <array>

namespace velorama {
namespace {

struct SpecialFolder {
    int id;
    QStandardPaths::StandardLocation location;
    const char* ending;
};

constexpr int documentsId = 5;

/// By CSIDL number. The documents folder carries its closing separator: the paths of a web album
/// are put together on it.
constexpr std::array<SpecialFolder, 9> specialFolders = {{
    {0, QStandardPaths::DesktopLocation, ""},
    {documentsId, QStandardPaths::DocumentsLocation, "/"},
    {13, QStandardPaths::MusicLocation, ""},
    {14, QStandardPaths::MoviesLocation, ""},
    {16, QStandardPaths::DesktopLocation, ""},
    {26, QStandardPaths::GenericConfigLocation, ""},
    {28, QStandardPaths::GenericDataLocation, ""},
    {39, QStandardPaths::PicturesLocation, ""},
    {40, QStandardPaths::HomeLocation, ""},
}};

/// A path that was put behind the protocol as it stands is no address: "#", "?" and "%" mean
/// something there.
QString address(const QString& target) {
    const QString protocol = QStringLiteral("file://");
    const QString path = target.mid(protocol.size());
    if (!target.startsWith(protocol) || !QDir::isAbsolutePath(path) || !QFileInfo::exists(path)) {
        return target;
    }
    return protocol + QString::fromLatin1(QUrl::toPercentEncoding(path, "/"));
}

class DesktopShell : public Shell {
public:
    bool open(const QString& target) override {
        if (target.isEmpty()) {
            return false;
        }
        // A name that looks like an option is still a name.
        const QString argument =
            target.startsWith(u'-') ? QString(QStringLiteral("./") + target) : address(target);
        return QProcess::startDetached(QStringLiteral("xdg-open"), {argument});
    }

    QString specialFolder(int folderId) const override {
        for (const SpecialFolder& folder : specialFolders) {
            const QString path = QStandardPaths::writableLocation(folder.location);
            if (folder.id == folderId && !path.isEmpty()) {
                if (folderId == documentsId) {
                    QDir().mkpath(path);
                }
                return path + QLatin1String(folder.ending);
            }
        }
        return QString();
    }
};

}  // namespace

std::unique_ptr<Shell> makeDesktopShell() {
    return std::make_unique<DesktopShell>();
}

QString applicationFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/velorama");
}

QString sampleFolder() {
    return QFileInfo(programDataFolder() + QStringLiteral("/samples")).canonicalFilePath();
}

QString firstFolder() {
    const QString own = applicationFolder();
    const QString samples = sampleFolder();
    return samples.isEmpty() || QFileInfo(own).isDir() ? own : samples;
}

QString programDataFolder() {
    if (QCoreApplication::instance() != nullptr) {
        QString beside = QCoreApplication::applicationDirPath();
        if (QFileInfo(beside + QStringLiteral("/images")).isDir()) {
            return beside;  // a build tree
        }
        const QString moved = beside + QStringLiteral("/../share/velorama");
        if (QFileInfo(moved).isDir()) {
            return QFileInfo(moved).canonicalFilePath();
        }
    }
    return QStringLiteral(VELORAMA_DATA_FOLDER);
}

QString programFile(const QString& name) {
    const QString own = applicationFolder() + u'/' + name;
    return QFileInfo::exists(own) ? own : programDataFolder() + u'/' + name;
}

QString programLibrary(const QString& name) {
    const QString beside = QCoreApplication::applicationDirPath();
    for (const QString& folder :
         QStringList{beside, beside + QStringLiteral("/../" VELORAMA_LIBRARY_PLACE)}) {
        QString path = folder + u'/' + name;
        if (QFileInfo::exists(path)) {
            return path;
        }
    }
    return QStringLiteral(VELORAMA_LIBRARY_FOLDER "/") + name;
}

}  // namespace velorama

#include "album_window.h"
#include "peers.h"
#include "pictures.h"
#include "stopwatch.h"
#include "works.h"

#include "controls/boxes/progress_bar.h"
#include "controls/lists/list_view.h"
#include "core/globals.h"
#include "support/memory_registry_store.h"
#include "webalbum/web_album.h"
#include "world.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <filesystem>
#include <memory>

#include <fcntl.h>
#include <unistd.h>

namespace velorama::bench {
namespace {

constexpr int manyPictures = 500;
constexpr double copyingGoal = 1.25;
constexpr double callGoal = 1.0;
constexpr int fewerPictures = 100;
constexpr double galleryGoal = 0.1;

/// What earlier work has left to be written to the disk would be written in this one's time.
void settleDisk(const QString& folder) {
    const int number =
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number >= 0) {
        ::syncfs(number);
        ::close(number);
    }
}

/// A folder on the disk of the pictures for one measurement. All are gone at the end of the
/// program and not before: the disk is slow to give the places of deleted files to new ones. Until
/// then their files are empty.
class Place {
public:
    Place() : path_(all().filePath(QString::number(++number))) {
        QDir().mkpath(path_);
        settleDisk(path_);
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
    ~Place() {
        QDirIterator files(path_, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile::resize(files.next(), 0);
        }
    }

    const QString& path() const { return path_; }

private:
    static const QTemporaryDir& all() {
        static const QTemporaryDir folder(dataFolder(QStringLiteral("web")) + u"/run-XXXXXX");
        return folder;
    }

    static inline int number = 0;
    QString path_;
};

class DocumentsShell : public NoShell {
public:
    QString specialFolder(int) const override { return documents + u'/'; }

    QString documents;
};

/// The services know a documents folder from then on.
DocumentsShell& shellWithDocuments() {
    static MemoryRegistryStore store;
    static DocumentsShell shell;
    makeServices(store, shell);
    return shell;
}

bool isComplete(const QString& folder, int pictures) {
    const QDir album(folder);
    const auto pages = album.entryList({QStringLiteral("*.jpg.html")}).size();
    const auto copies = QDir(album.filePath(QStringLiteral("pictures"))).entryList(QDir::Files);
    return pages == pictures && copies.size() == pictures;
}

/// The page WebAlbum and a slide list of so many photographs.
class WebAlbumWindow {
public:
    explicit WebAlbumWindow(int pictures) : pictures_(pictures), shell_(shellWithDocuments()) {
        for (const QString& path : filesOf(albumFolder(pictures))) {
            ListView& list = *slides_.lvwSLIDEBAR;
            list.Add(list.Count() + 1, path, QFileInfo(path).fileName(), 0);
        }
    }

    std::optional<double> timeOfBuild() {
        const Place place;
        shell_.documents = place.path();
        const Stopwatch watch;
        album_.cbtnWEBALBUM_Click();
        const double time = watch.milliseconds();
        return isComplete(place.path() + QStringLiteral("/My WebAlbum/Bench"), pictures_)
                   ? std::optional(time)
                   : std::nullopt;
    }

private:
    static WebAlbumValues values() {
        WebAlbumValues values;
        values.txtTITLE = QStringLiteral("Bench");
        values.udnPHOTO = QStringLiteral("500");
        values.udnTHUMBNAIL = QStringLiteral("95");
        return values;
    }

    int pictures_;
    DocumentsShell& shell_;
    QWidget surface_;
    SlideControls slides_{surface_};
    Commands commands_;
    WebAlbum album_{slides_, commands_, values};
};

std::optional<double> timeOfCopying(const QStringList& files) {
    const Place target;
    return timeOfProgram(QStringLiteral("cp"), QStringList(files) + QStringList(target.path()));
}

/// It works in the folder of the pictures itself, and copies nothing.
std::optional<double> timeOfGallery(const QStringList& files) {
    const QTemporaryDir place(dataFolder(QStringLiteral("web")) + u"/gallery-XXXXXX");
    for (const QString& file : files) {
        const QString name = place.filePath(QFileInfo(file).fileName());
        std::error_code failed;
        std::filesystem::create_hard_link(file.toStdString(), name.toStdString(), failed);
    }
    return timeOfProgram(QStringLiteral("llgal"), {QStringLiteral("-d"), place.path()});
}

/// From the start of the process to its end.
std::optional<double> timeOfCall(const QString& program, const QString& album) {
    const Place place;
    const auto time = timeOfProgram(
        program, {QStringLiteral("--web-album"), album, QStringLiteral("--to"), place.path()});
    return isComplete(place.path(), manyPictures) ? time : std::nullopt;
}

Measure build(int pictures) {
    const auto window = std::make_shared<WebAlbumWindow>(pictures);
    return [window] { return window->timeOfBuild(); };
}

}  // namespace

Contest webAlbumAgainstCopying() {
    const QStringList files = filesOf(albumFolder(manyPictures));
    return {.work = QStringLiteral("Web album of 500 photographs, 2592 x 1728"),
            .unit = QStringLiteral("ms"),
            .rounds = 7,
            .ours = build(manyPictures),
            .against = {{.name = QStringLiteral("cp of the photographs, same disk"),
                         .goal = copyingGoal,
                         .measure = [files] { return timeOfCopying(files); }}}};
}

Contest webAlbumByCall() {
    const auto folder = std::make_shared<QTemporaryDir>();
    const QString album = writtenAlbum(filesOf(albumFolder(manyPictures)), *folder);
    const QString program = QCoreApplication::applicationDirPath() + QStringLiteral("/velorama");
    const bool isBuilt = QFileInfo::exists(program);
    return {.work = QStringLiteral("velorama --web-album, the same 500 photographs"),
            .unit = QStringLiteral("ms"),
            .rounds = 7,
            .ours = [folder, program, album] { return timeOfCall(program, album); },
            .against = {{.name = QStringLiteral("Create WebAlbum in the window"),
                         .goal = callGoal,
                         .measure = build(manyPictures)}},
            .absent =
                isBuilt ? QString() : QStringLiteral("the program is not built beside the bench")};
}

Contest webAlbumAgainstGallery() {
    const QStringList files = filesOf(albumFolder(fewerPictures));
    return {.work = QStringLiteral("Web album of 100 photographs, 2592 x 1728"),
            .unit = QStringLiteral("ms"),
            .rounds = 3,
            .ours = build(fewerPictures),
            .against = {{.name = QStringLiteral("llgal, same photographs"),
                         .goal = galleryGoal,
                         .measure = [files] { return timeOfGallery(files); },
                         .absent = whyAbsent(QStringLiteral("llgal"), QStringLiteral("llgal"))}},
            .warmUp = false};
}

}  // namespace velorama::bench

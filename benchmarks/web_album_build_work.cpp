#include "peers.h"
#include "pictures.h"
#include "stopwatch.h"
#include "works.h"

#include "controls/list_view.h"
#include "controls/progress_bar.h"
#include "core/globals.h"
#include "platform/memory_registry_store.h"
#include "webalbum/web_album.h"
#include "world.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <memory>

#include <fcntl.h>
#include <unistd.h>

namespace velorama::bench {
namespace {

constexpr int manyPictures = 500;
constexpr double copyingGoal = 1.25;
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

/// An empty folder beside the pictures, on their disk.
QString emptied(const QString& name) {
    const QString folder = dataFolder(name);
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    settleDisk(folder);
    return folder;
}

class DocumentsShell : public NoShell {
public:
    QString specialFolder(int) const override {
        return dataFolder(QStringLiteral("web-albums")) + u'/';
    }
};

/// The services know a documents folder from then on.
void useDocuments() {
    static MemoryRegistryStore store;
    static DocumentsShell shell;
    makeServices(store, shell);
}

/// The page WebAlbum and a slide list of so many photographs.
class WebAlbumWindow {
public:
    explicit WebAlbumWindow(int pictures) : pictures_(pictures) {
        for (const QString& path : filesOf(albumFolder(pictures))) {
            lvwSLIDEBAR_.Add(lvwSLIDEBAR_.Count() + 1, path, QFileInfo(path).fileName(), 0);
        }
    }

    std::optional<double> timeOfBuild() {
        const QString place = emptied(QStringLiteral("web-albums"));
        const Stopwatch watch;
        album_.cbtnWEBALBUM_Click();
        const double time = watch.milliseconds();
        const QDir album(place + QStringLiteral("/My WebAlbum/Bench"));
        const auto pages = album.entryList({QStringLiteral("*.jpg.html")}).size();
        const auto copies = QDir(album.filePath(QStringLiteral("pictures"))).entryList(QDir::Files);
        return pages == pictures_ && copies.size() == pictures_ ? std::optional(time)
                                                                : std::nullopt;
    }

private:
    static WebAlbumValues values() {
        WebAlbumValues values;
        values.txtTITLE = [] { return QStringLiteral("Bench"); };
        values.udnPHOTO = [] { return QStringLiteral("500"); };
        values.udnTHUMBNAIL = [] { return QStringLiteral("95"); };
        return values;
    }

    int pictures_;
    ListView lvwSLIDEBAR_;
    ProgressBar prgBARSLIDES_;
    WebAlbum album_{{&lvwSLIDEBAR_, &prgBARSLIDES_, nullptr}, values(), {}};
};

std::optional<double> timeOfCopying(const QStringList& files) {
    const QString target = emptied(QStringLiteral("copies"));
    return timeOfProgram(QStringLiteral("cp"), QStringList(files) + QStringList(target));
}

/// It works in the folder of the pictures itself, and copies nothing.
std::optional<double> timeOfGallery(const QStringList& files) {
    const QString folder = emptied(QStringLiteral("gallery"));
    for (const QString& file : files) {
        ::link(QFile::encodeName(file).constData(),
               QFile::encodeName(folder + u'/' + QFileInfo(file).fileName()).constData());
    }
    return timeOfProgram(QStringLiteral("llgal"), {QStringLiteral("-d"), folder});
}

Measure build(int pictures) {
    useDocuments();
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

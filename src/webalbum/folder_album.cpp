#include "webalbum/folder_album.h"

#include "core/globals.h"
#include "platform/files/exact_names.h"
#include "platform/files/obstacles.h"
#include "platform/files/paths.h"
#include "platform/process/events.h"
#include "webalbum/album_folder.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <optional>
#include <utility>

namespace velorama {
namespace {

const QString styleSheet = QStringLiteral("mainwa.css");

/// Empty for a file that is not there.
QString realPath(const QString& path) {
    return QFileInfo(path).canonicalFilePath();
}

}  // namespace

/// A file of the album, and the slide's that it is a copy of; empty for one that is made.
struct FolderAlbum::Target {
    QString path;
    QString source{};
};

FolderAlbum::FolderAlbum(const SlideControls& slides, const WebAlbumValues& values,
                         const QString& folder, std::stop_source stop)
    : c_(slides),
      values_(values),
      folder_(folder.endsWith(u'/') ? folder : folder + u'/'),
      stop_(std::move(stop)) {}

QString FolderAlbum::images() const {
    return folder_ + QStringLiteral("images/");
}

QString FolderAlbum::pictures() const {
    return folder_ + QStringLiteral("pictures/");
}

QString FolderAlbum::write() {
    // Pages name their files letter by letter, and browsers ask for them so.
    const ExactNames exactNames(folder_.chopped(1));
    failure_ = whatIsInTheWay();
    if (failure_.isEmpty() && makeFolders()) {
        // First of all: it is by this that the folder is known for a web album the next time.
        writeStyleSheet();
        copyProgramImages();
        copyPictures();
        writePages();
    }
    return failure_;
}

std::vector<FolderAlbum::Target> FolderAlbum::targets() const {
    std::vector<Target> all;
    for (const QString& name : programImageNames()) {
        all.push_back({images() + name});
    }
    const int count = c_.lvwSLIDEBAR->Count();
    const int pages = modWEBALBUM::WebAlbumPageCount(count);
    for (int page = 1; page <= pages; ++page) {
        all.push_back({folder_ + modWEBALBUM::WebAlbumPageName(page)});
    }
    for (int i = 1; i <= count; ++i) {
        const ListItem& item = *c_.lvwSLIDEBAR->item(i);
        const QString name = lastSegment(item.Key());
        all.push_back({fileIn(pictures(), name), hostFile(item.Key())});
        all.push_back({fileIn(folder_, item.Text() + QStringLiteral(".html"))});
    }
    return all;
}

/// A web album is written over; anything else of the user's is not, and neither is a slide that
/// lies in the folder already.
QString FolderAlbum::whatIsInTheWay() const {
    const std::vector<Target> all = targets();
    QSet<QString> slides;
    for (const Target& target : all) {
        slides.insert(target.source.isEmpty() ? QString() : realPath(target.source));
    }
    slides.remove(QString());
    const bool isAlbum = QFileInfo(images() + styleSheet).isFile();
    for (const Target& target : all) {
        const QString there = target.path.isEmpty() ? QString() : realPath(target.path);
        if (there.isEmpty() || (!target.source.isEmpty() && there == realPath(target.source))) {
            continue;
        }
        if (slides.contains(there)) {
            return target.path + u": it is a slide of the album and would be written over";
        }
        if (!isAlbum) {
            return target.path + u": it is there already, and the folder holds no web album";
        }
    }
    return QString();
}

bool FolderAlbum::makeFolders() {
    for (const QString& folder : {folder_, images(), pictures()}) {
        const QString path = folder.chopped(1);
        if (!QDir().mkpath(folder)) {
            const bool isFile = QFileInfo(path).isFile();
            fail(path + u": the folder cannot be made: " +
                 (isFile ? QStringLiteral("a file has its name") : writingObstacle(path)));
            return false;
        }
    }
    return true;
}

void FolderAlbum::writeStyleSheet() {
    const QString file = images() + styleSheet;
    if (!modWEBALBUM::WebAlbumStyleSheetSave(values_, file)) {
        fail(file + u": " + writingObstacle(file));
    }
}

void FolderAlbum::copyProgramImages() {
    for (const QString& name : programImageNames()) {
        if (name != styleSheet) {
            copy(programImage(name), images() + name);
        }
    }
}

/// What is to be copied: of several of one name the last, as it would take the others' place. From
/// behind, so that of those that cannot be read the first is told.
std::vector<FileCopy> FolderAlbum::copies() {
    std::vector<FileCopy> all;
    QSet<QString> known;
    for (int i = c_.lvwSLIDEBAR->Count(); i >= 1; --i) {
        const QString key = c_.lvwSLIDEBAR->item(i)->Key();
        const QString target = fileIn(pictures(), gFileFoldr->FileNameFromPath(key, true));
        if (known.contains(target) || !gFileFoldr->FileExists(key)) {
            continue;
        }
        known.insert(target);
        if (QFileInfo(hostFile(key)).isReadable()) {
            all.push_back({key, target});
        } else {
            // The others may be better off.
            failure_ = key + u": " + readingObstacle(hostFile(key));
        }
    }
    std::reverse(all.begin(), all.end());
    return all;
}

void FolderAlbum::copyPictures() {
    const std::vector<FileCopy> all = copies();
    const auto told = [this, count = static_cast<int>(all.size())](int done) {
        if (step_) {
            step_(QStringLiteral("picture"), done, count);
        }
        // The system's request to end is one.
        DoEvents();
    };
    const std::optional<FileCopy> failed =
        copyFiles(all, folder_.chopped(1), stop_.get_token(), told);
    if (failed) {
        tellFailed(*failed);
    }
}

void FolderAlbum::copy(const QString& source, const QString& target) {
    if (!isStopped() && !gFileFoldr->FileCopyNew(source, target)) {
        tellFailed({source, target});
    }
}

void FolderAlbum::tellFailed(const FileCopy& failed) {
    const QString from = hostFile(failed.source);
    fail(QFileInfo(from).isReadable() ? failed.target + u": " + writingObstacle(failed.target)
                                      : failed.source + u": " + readingObstacle(from));
}

void FolderAlbum::writePages() {
    AlbumBuild build{[this] { return values_; }, *c_.prgBARSLIDES, stop_.get_token()};
    build.unwritten = [this](const QString& name) {
        // The caption of a missing slide is a path, and no page has that for its name.
        if (isPlainName(name)) {
            fail(folder_ + name + u": " + writingObstacle(folder_ + name));
        }
    };
    QString what = QStringLiteral("overview");
    const ProgressBar& bar = *c_.prgBARSLIDES;
    const auto told = QObject::connect(&bar, &QProgressBar::valueChanged, &bar, [&] {
        if (step_) {
            step_(what, static_cast<int>(bar.Value()), static_cast<int>(bar.Max()));
        }
    });
    modWEBALBUM::WebAlbumMainPagesWrite(build, folder_, values_.txtTITLE, *c_.lvwSLIDEBAR);
    what = QStringLiteral("page");
    modWEBALBUM::WebAlbumSlidePagesWrite(build, folder_, values_.txtTITLE, *c_.lvwSLIDEBAR);
    QObject::disconnect(told);
}

/// Nothing more is tried in a place that takes nothing.
void FolderAlbum::fail(const QString& what) {
    if (failure_.isEmpty()) {
        failure_ = what;
    }
    stop_.request_stop();
}

}  // namespace velorama

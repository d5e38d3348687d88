#include "webalbum/web_album.h"

#include "browse/screen_pointer.h"
#include "core/globals.h"
#include "platform/files/exact_names.h"
#include "platform/process/await_work.h"
#include "webalbum/album_folder.h"

#include <optional>
#include <utility>

namespace velorama {
namespace {

const QString images = QStringLiteral("images");
const QString pictures = QStringLiteral("pictures");

AlbumPaths pathsOf(const QString& title) {
    return albumPaths(gRegistry->SpecialFLDRMyDocuments(), title);
}

}  // namespace

WebAlbum::WebAlbum(const SlideControls& controls, Commands& commands, AskForValues values)
    : c_(controls), commands_(commands), values_(std::move(values)) {}

void WebAlbum::cbtnWEBALBUM_Click() {
    turn_.runLast([this] {
        if (!stop_.stop_requested()) {
            buildAndTell();
        }
    });
}

void WebAlbum::buildAndTell() {
    const QString chosen = title();
    if (chosen.isEmpty()) {
        emit NoTitle(QStringLiteral("You must choose a title for your WebAlbum"),
                     QStringLiteral("Folder Error"));
        commands_.viewWebAlbum.setEnabled(false);
        return;
    }
    setScreenPointer(ScreenPointer::Hourglass);
    build(chosen);
    commands_.viewWebAlbum.setEnabled(true);
    setScreenPointer(ScreenPointer::Default);
    if (!stop_.stop_requested()) {
        emit Complete(QStringLiteral("Your WebAlbum is now complete"), QStringLiteral("WebAlbum"));
    }
}

void WebAlbum::cbtnVIEWWEBALB_Click(const QString& hWnd) const {
    gRegistry->InternetLinkRun(hWnd, QString(), pathsOf(title()).view);
}

QString WebAlbum::folder() const {
    return pathsOf(title()).album;
}

void WebAlbum::build(const QString& chosen) {
    const AlbumPaths paths = pathsOf(chosen);
    exact_ = paths.parent.left(paths.parent.size() - 1);
    const ExactNames exactNames(exact_);
    AlbumBuild work{values_, *c_.prgBARSLIDES, stop_.get_token()};
    makeFolders(paths.parent, paths.album);
    WebAlbumPicturesCopy(*c_.lvwSLIDEBAR, folderIn(paths.album, pictures));
    modWEBALBUM::WebAlbumStyleSheetWrite(values_());
    copyProgramImages(paths.album);
    modWEBALBUM::WebAlbumMainPagesWrite(work, paths.album, title(), *c_.lvwSLIDEBAR);
    modWEBALBUM::WebAlbumSlidePagesWrite(work, paths.album, title(), *c_.lvwSLIDEBAR);
    exact_.clear();
}

void WebAlbum::makeFolders(const QString& parent, const QString& album) const {
    WebAlbumFolderCreate(parent);
    WebAlbumFolderCreate(album);
    WebAlbumFolderCreate(folderIn(album, images));
    WebAlbumFolderCreate(folderIn(album, pictures));
}

void WebAlbum::WebAlbumFolderCreate(const QString& path) const {
    gFileFoldr->FolderCreate(path);
}

void WebAlbum::WebAlbumPicturesCopy(const ListView& list, const QString& destination) const {
    const int count = list.Count();
    // Closing the window is kept for later, too, as all that hands do: it ends the pages behind.
    c_.prgBARSLIDES->setWork(QStringLiteral("Copying"), {});
    for (int i = 1; i <= count && !stop_.stop_requested(); ++i) {
        c_.prgBARSLIDES->tell(i, count);
        const ListItem* item = list.item(i);
        if (item != nullptr) {
            const QString key = item->Key();
            copyFile(key, fileIn(destination, gFileFoldr->FileNameFromPath(key, true)));
        }
        // The user's hands stay off the list here; the window only shows itself.
        PaintEvents();
    }
    c_.prgBARSLIDES->tell(0, 0);
}

void WebAlbum::copyProgramImages(const QString& album) const {
    for (const QString& name : programImageNames()) {
        copyFile(programImage(name), fileIn(folderIn(album, images), name));
    }
}

/// Another thread copies, since a picture may be large and its disk slow. The window shows itself
/// meanwhile, and hands stay off as between the pictures, until the disk seems to hang. A copy that
/// is left comes to its end.
void WebAlbum::copyFile(const QString& source, const QString& target) const {
    const auto copy = [source, target, exact = exact_] {
        std::optional<ExactNames> exactNames;
        if (!exact.isEmpty()) {
            exactNames.emplace(exact);
        }
        // The program's own may be gone where a thread is late.
        clsFILEFOLDR().FileCopyNew(source, target);
        return true;
    };
    awaitWork(
        copy, [stop = stop_.get_token()] { return stop.stop_requested(); }, Events::PaintingFirst);
}

}  // namespace velorama

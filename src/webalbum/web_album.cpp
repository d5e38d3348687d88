#include "webalbum/web_album.h"

#include "core/globals.h"
#include "platform/files/exact_names.h"
#include "platform/process/events.h"
#include "platform/session/shell.h"
#include "webalbum/album_folder.h"

#include <array>
#include <utility>

namespace velorama {
namespace {

const QString images = QStringLiteral("images");
const QString pictures = QStringLiteral("pictures");

constexpr std::array<const char16_t*, 6> programImages = {
    u"arrowleft.gif",     u"arrowleftdis.gif", u"arrowright.gif",
    u"arrowrightdis.gif", u"mainwa.css",       u"end.gif",
};

QString documents() {
    return gRegistry ? gRegistry->SpecialFLDRMyDocuments() : QString();
}

template <typename Function, typename... Values>
void call(const Function& function, const Values&... values) {
    if (function) {
        function(values...);
    }
}

}  // namespace

WebAlbum::WebAlbum(const WebAlbumControls& controls, Commands& commands, WebAlbumValues values,
                   WebAlbumScreen screen)
    : controls_(controls),
      commands_(commands),
      values_(std::move(values)),
      screen_(std::move(screen)) {}

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
        call(screen_.critical, QStringLiteral("You must choose a title for your WebAlbum"),
             QStringLiteral("Folder Error"));
        commands_.viewWebAlbum.setEnabled(false);
        return;
    }
    call(screen_.hourglass, true);
    build(chosen);
    commands_.viewWebAlbum.setEnabled(true);
    call(screen_.hourglass, false);
    if (!stop_.stop_requested()) {
        call(screen_.information, QStringLiteral("Your WebAlbum is now complete"),
             QStringLiteral("WebAlbum"));
    }
}

void WebAlbum::cbtnVIEWWEBALB_Click(const QString& hWnd) const {
    if (gRegistry) {
        gRegistry->InternetLinkRun(hWnd, QString(), albumPaths(documents(), title()).view);
    }
}

void WebAlbum::build(const QString& chosen) {
    const AlbumPaths paths = albumPaths(documents(), chosen);
    // Pages name their files letter by letter, and browsers ask for them so.
    const ExactNames exactNames(paths.parent.left(paths.parent.size() - 1));
    AlbumBuild work{values_, *controls_.prgBARSLIDES, stop_.get_token()};
    makeFolders(paths.parent, paths.album);
    WebAlbumPicturesCopy(*controls_.lvwSLIDEBAR, folderIn(paths.album, pictures));
    modWEBALBUM::WebAlbumStyleSheetWrite(values_);
    copyProgramImages(paths.album);
    modWEBALBUM::WebAlbumMainPagesWrite(work, paths.album, title(), *controls_.lvwSLIDEBAR);
    modWEBALBUM::WebAlbumSlidePagesWrite(work, paths.album, title(), *controls_.lvwSLIDEBAR);
}

void WebAlbum::makeFolders(const QString& parent, const QString& album) const {
    WebAlbumFolderCreate(parent);
    WebAlbumFolderCreate(album);
    WebAlbumFolderCreate(folderIn(album, images));
    WebAlbumFolderCreate(folderIn(album, pictures));
}

void WebAlbum::WebAlbumFolderCreate(const QString& path) const {
    clsFILEFOLDR().FolderCreate(path);
}

void WebAlbum::WebAlbumPicturesCopy(const ListView& list, const QString& destination) const {
    const clsFILEFOLDR files;
    const int count = list.Count();
    for (int i = 1; i <= count && !stop_.stop_requested(); ++i) {
        const ListItem* item = list.item(i);
        if (item != nullptr) {
            const QString key = item->Key();
            files.FileCopyNew(key, fileIn(destination, files.FileNameFromPath(key, true)));
        }
        // The user's hands stay off the list here; the window only shows itself.
        PaintEvents();
    }
}

void WebAlbum::copyProgramImages(const QString& album) const {
    for (const char16_t* image : programImages) {
        const QString name = QString::fromUtf16(image);
        clsFILEFOLDR().FileCopyNew(programFile(images + u'/' + name),
                                   fileIn(folderIn(album, images), name));
    }
}

}  // namespace velorama

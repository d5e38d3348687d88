#include "calls/web_album_call.h"

#include "albums/album_slides.h"
#include "calls/call_application.h"
#include "calls/call_output.h"
#include "calls/call_services.h"
#include "calls/missing_slides.h"
#include "platform/files/obstacles.h"
#include "platform/files/paths.h"
#include "platform/process/termination.h"
#include "webalbum/folder_album.h"
#include "webalbum/web_album_settings.h"

#include <QDir>
#include <QFileInfo>

namespace velorama {
namespace {

/// The album's file name without its ending.
QString nameOf(const QString& album) {
    const QString name = lastSegment(album);
    const QString ending = QStringLiteral(".vlr");
    const bool hasEnding =
        name.size() > ending.size() && name.endsWith(ending, Qt::CaseInsensitive);
    return hasEnding ? name.chopped(ending.size()) : name;
}

WebAlbumValues valuesOf(const WebAlbumCall& call) {
    WebAlbumValues values = loadWebAlbumValues(webAlbumDesign());
    const AlbumColours& said = call.colours;
    values.txtTITLE = call.title.value_or(nameOf(call.album));
    values.picBACKGROUND = said.page.value_or(values.picBACKGROUND);
    values.picTEXTCOLOR = said.text.value_or(values.picTEXTCOLOR);
    values.picBARCOL = said.bar.value_or(values.picBARCOL);
    values.picTITLEBARCOL = said.titleBar.value_or(values.picTITLEBARCOL);
    values.picTITLEBARTEXTCOL = said.titleBarText.value_or(values.picTITLEBARTEXTCOL);
    if (call.photoSize) {
        values.udnPHOTO = QString::number(*call.photoSize);
    }
    if (call.thumbnailSize) {
        values.udnTHUMBNAIL = QString::number(*call.thumbnailSize);
    }
    return values;
}

void fill(ListView& list, const AlbumSlides& album) {
    for (const AlbumSlide& slide : album.slides) {
        list.Add(list.Count() + 1, slide.path, slideCaption(slide), 0);
    }
}

/// Whatever its form, the folder's own separator is the system's.
QString absoluteFolder(const QString& folder) {
    return QDir::current().absoluteFilePath(folder);
}

/// What could not be done; empty where all was.
QString written(const WebAlbumCall& call, const AlbumSlides& album) {
    QWidget surface;
    const SlideControls slides(surface);
    fill(*slides.lvwSLIDEBAR, album);
    std::stop_source stop;
    FolderAlbum pages(slides, valuesOf(call), absoluteFolder(call.folder), stop);
    const TerminationWatch watch([&stop] { stop.request_stop(); });
    ProgressLine progress;
    pages.onStep(
        [&progress](const QString& what, int done, int of) { progress.show(what, done, of); });
    const QString failure = pages.write();
    const bool isLeft = failure.isEmpty() && stop.stop_requested();
    return isLeft ? call.album + u": stopped before its pages were complete" : failure;
}

CallResult build(const WebAlbumCall& call) {
    const std::optional<AlbumSlides> album = slidesOfAlbum(call.album);
    if (!album) {
        return notDone(call.album + u": " + readingObstacle(hostFile(call.album)));
    }
    if (album->slides.empty()) {
        return notDone(call.album + u": the album has no slides");
    }
    const QString failure = written(call, *album);
    const QString missing = missingSlides(*album);
    if (failure.isEmpty() && missing.isEmpty()) {
        return CallResult::Done;
    }
    return notDone(failure.isEmpty() ? call.album + u": " + missing : failure);
}

}  // namespace

CallResult run(const WebAlbumCall& call, char* program) {
    const HiddenApplication application(program);
    const CallServices services;
    const CallResult result = build(call);
    leaveThreads(static_cast<int>(result));
    return result;
}

}  // namespace velorama

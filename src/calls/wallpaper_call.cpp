#include "calls/wallpaper_call.h"

#include "browse/wallpaper.h"
#include "calls/call_application.h"
#include "calls/call_output.h"
#include "platform/files/obstacles.h"
#include "platform/files/paths.h"

#include <QFileInfo>

namespace velorama {
namespace {

QString whyNotLoaded(const QString& path) {
    const QString file = hostFile(path);
    return QFileInfo(file).isFile() && QFileInfo(file).isReadable()
               ? QStringLiteral("it is no picture that can be loaded")
               : readingObstacle(file);
}

CallResult show(const WallpaperCall& call) {
    // The hidden box that the window paints it into is white.
    const QImage picture = wallpaperPicture(call.file, Qt::white);
    if (picture.isNull()) {
        return notDone(call.file + u": " + whyNotLoaded(call.file));
    }
    if (!saveWallpaper(picture)) {
        return notDone(wallpaperFile() + u": " + writingObstacle(wallpaperFile()));
    }
    return makeDesktopBackground()->set(wallpaperFile())
               ? CallResult::Done
               : notDone(call.file + u": no desktop has taken it");
}

}  // namespace

CallResult run(const WallpaperCall& call, char* program) {
    const HiddenApplication application(program);
    const CallResult result = show(call);
    leaveThreads(static_cast<int>(result));
    return result;
}

}  // namespace velorama

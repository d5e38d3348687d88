#include "calls/play_call.h"

#include "albums/album_slides.h"
#include "albums/slide_store.h"
#include "calls/call_application.h"
#include "calls/call_output.h"
#include "calls/call_services.h"
#include "calls/play_show.h"
#include "core/globals.h"
#include "core/long_text.h"
#include "platform/files/obstacles.h"
#include "platform/files/paths.h"
#include "platform/process/termination.h"
#include "platform/session/shell.h"
#include "platform/sound/late_player.h"
#include "shell/desktop_application.h"

#include <QApplication>

#include <algorithm>

namespace velorama {
namespace {

const QString timesKey = QStringLiteral("\\frmCONFIG\\Items");

/// The first that is not there; empty if all are.
QString missingIn(const QStringList& files) {
    const clsFILEFOLDR folders;
    const auto missing = std::find_if(
        files.begin(), files.end(), [&](const QString& file) { return !folders.FileExists(file); });
    return missing != files.end() ? *missing : QString();
}

/// Without one the application object would end the program in its own way.
bool hasDisplay() {
    const auto isSet = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

/// Those that a show can find: their file is there, and the settings can name it.
bool hasShowable(const AlbumSlides& album) {
    return std::any_of(album.slides.begin(), album.slides.end(), [](const AlbumSlide& slide) {
        return slide.isThere && fitsSettings(slide.path);
    });
}

/// What keeps an album from being shown; empty if nothing does.
QString obstacle(const PlayCall& call, const std::optional<AlbumSlides>& album) {
    if (!album) {
        return call.album + u": " + readingObstacle(hostFile(call.album));
    }
    if (album->slides.empty()) {
        return call.album + u": the album has no slides";
    }
    if (!hasShowable(*album)) {
        return call.album + u": none of the album's pictures is there";
    }
    const QString missing = missingIn(call.music);
    if (!missing.isEmpty()) {
        return missing + u": " + readingObstacle(hostFile(missing));
    }
    return hasDisplay() ? QString() : QString(call.album + u": there is no display to show it on");
}

/// What the show reads: into the copy of the settings only.
void fillSettings(const AlbumSlides& album, const PlayCall& call) {
    saveSlideCount(static_cast<int>(album.slides.size()));
    int number = 0;
    for (const AlbumSlide& slide : album.slides) {
        saveSlidePath(++number, slide.path);
    }
    if (call.interval) {
        saveSetting(timesKey, QStringLiteral("INTERVAL"), QString::number(*call.interval, 'f', 3));
    }
    if (call.lock) {
        saveSetting(timesKey, QStringLiteral("TBAR"), QStringLiteral("1"));
    }
}

/// The name of the screen of that number, from 1; none: 0 for the first. Nothing where there are
/// not so many.
std::optional<QString> screenName(int number) {
    const QList<QScreen*> screens = QGuiApplication::screens();
    if (number == 0) {
        return QString();
    }
    return number <= screens.size() ? std::optional(screens.at(number - 1)->name()) : std::nullopt;
}

CallResult play(const PlayCall& call) {
    const std::optional<QString> screen = screenName(call.screen);
    if (!screen) {
        return notDone(QStringLiteral("there is no screen %1, only %2")
                           .arg(call.screen)
                           .arg(QGuiApplication::screens().size()));
    }
    const auto screenSaver = makeSessionScreenSaver();
    const auto device = makeLatePlayer(programLibrary(QStringLiteral(VELORAMA_SOUND_LIBRARY)));
    PlayShow show(*screenSaver, *device);
    if (!call.music.isEmpty()) {
        show.setMusic(call.music);
    }
    const TerminationWatch watch([&show] { show.end(); });
    show.start(*screen, {.once = call.once, .lock = call.lock});
    if (show.runs()) {
        QApplication::exec();
    }
    return CallResult::Done;
}

}  // namespace

CallResult run(const PlayCall& call, char* program) {
    const std::optional<AlbumSlides> album = slidesOfAlbum(call.album);
    const QString why = obstacle(call, album);
    if (!why.isEmpty()) {
        return notDone(why);
    }
    NameOnly name(program);
    const DesktopApplication application(name.count(), name.words());
    const CallServices services;
    fillSettings(*album, call);
    const CallResult result = play(call);
    leaveThreads(static_cast<int>(result));
    return result;
}

}  // namespace velorama

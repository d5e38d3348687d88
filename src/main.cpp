#include "browse/kept_thumbnails.h"
#include "calls/call_options.h"
#include "calls/run_call.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "platform/background/desktop_background.h"
#include "platform/process/termination.h"
#include "platform/process/worker_threads.h"
#include "platform/session/media_remote.h"
#include "platform/session/screen_saver.h"
#include "platform/session/shell.h"
#include "platform/sound/late_player.h"
#include "platform/store/sqlite_registry_store.h"
#include "platform/web/http_fetch.h"
#include "shell/assoc_ext.h"
#include "shell/command_line.h"
#include "shell/desktop_application.h"
#include "shell/instance_startup.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QDate>

#include <chrono>
#include <cstdlib>

namespace velorama {
namespace {

/// Where the program is done and threads are not, for what they make is of no use to anybody.
/// Longer than large pictures take on a slow machine, and short enough for a session that ends.
constexpr std::chrono::seconds longestEnd{5};

/// All but the application object: what is worth keeping is on disk when it returns.
int run() {
    // Others find the window until the store has written the last of its settings.
    const auto bus = makeInstanceBus();
    SqliteRegistryStore store(SqliteRegistryStore::standardFile());
    const auto shell = makeDesktopShell();
    const auto screenSaver = makeSessionScreenSaver();
    const auto device = makeLatePlayer(programLibrary(QStringLiteral(VELORAMA_SOUND_LIBRARY)));
    const auto desktop = makeDesktopBackground();
    makeServices(store, *shell);
    int result = 0;
    {
        NetworkFetch netCHECKUPDATE;
        InstanceStart instance(store, bus.get());
        const auto fileTypes = makeDesktopFileTypes();
        FileAssociation association(store, *fileTypes);
        mfrmPRGMAIN mainWindow({*screenSaver, *device, *desktop, netCHECKUPDATE,
                                [&](QWidget& window, const QString& words) {
                                    instance.InstanceStartup(window, words);
                                    association.AssociationCheck();
                                },
                                keptThumbnails(), makeSessionMediaRemote()});
        // Every way of closing is the same: the system's too.
        const TerminationWatch watch([&mainWindow] { mainWindow.close(); });
        mainWindow.Form_Load(commandLine(QApplication::arguments()));
        if (!mainWindow.isUnloaded()) {
            result = QApplication::exec();
        }
    }
    // A track that a last tick has opened is closed too.
    device->send(QStringLiteral("close CURRFILE"));
    releaseServices();
    return result;
}

/// What stands on the command line, as the application object would give it.
QStringList wordsOf(int argc, char** argv) {
    QStringList words;
    for (int i = 0; i < argc; ++i) {
        words.append(QString::fromLocal8Bit(argv[i]));
    }
    return words;
}

}  // namespace
}  // namespace velorama

int main(int argc, char** argv) {
    using namespace velorama;
    if (const auto call = callOf(wordsOf(argc, argv))) {
        return static_cast<int>(runCall(*call, argv[0]));
    }
    const DesktopApplication application(argc, argv);
    fillTextConstants(QDate::currentDate().year(), ServerRoot());
    const int result = run();
    if (!endWorkers(longestEnd)) {
        // One hangs, as on a server that is gone: destructors would wait for it without an end, or
        // take from it what it uses.
        std::_Exit(result);
    }
    return result;
}

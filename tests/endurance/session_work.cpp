#include "endurance/session_work.h"

#include "browse/kept_thumbnails.h"
#include "core/globals.h"
#include "core/lib_txt.h"
#include "platform/session/shell.h"
#include "platform/store/sqlite_registry_store.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QTimer>

namespace velorama::endurance {
namespace {

class NoFetch : public HttpFetch {
public:
    QString OpenURL(const QString&) override { return {}; }
    void Cancel() override {}
};

/// Takes away whatever message comes up.
class MessageCloser {
public:
    MessageCloser() {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [] {
            if (QWidget* form = QApplication::activeModalWidget()) {
                form->close();
            }
        });
        timer_.start(0);
    }

private:
    QTimer timer_;
};

void build(mfrmPRGMAIN& window) {
    WebAlbumPage& page = *window.pages().webAlbum;
    page.txtTITLE->setText(QStringLiteral("Trip"));
    page.udnPHOTO->setValue(320);
    page.udnTHUMBNAIL->setValue(50);
    window.commands().createWebAlbum.trigger();
}

void run(char operation, mfrmPRGMAIN& window) {
    const MessageCloser closer;
    Commands& commands = window.commands();
    switch (operation) {
        case kAdd:
            commands.addAll.trigger();
            break;
        case kMove:
            commands.moveForward.trigger();
            break;
        case kSave:
            commands.save.trigger();
            break;
        case kBuild:
            build(window);
            break;
        case kPaper:
            commands.wallpaper.trigger();
            break;
        case kTitle:
            window.pages().webAlbum->udnPHOTO->setValue(777);
            window.pages().show(3);
            window.resize(900, 700);
            break;
        case kClose:
            window.album().setUnmodified();
            window.close();
            break;
        default:
            break;
    }
}

}  // namespace

void workThrough(const QByteArray& operations, const std::function<void(char)>& begins) {
    fillTextConstants(2026, QStringLiteral("http://localhost/"));
    {
        SqliteRegistryStore store(SqliteRegistryStore::standardFile());
        const auto shell = makeDesktopShell();
        makeServices(store, *shell);
        ScreenSaver screenSaver;
        MediaCommands device;
        DesktopBackground desktop;
        NoFetch fetch;
        {
            begins(kList);
            mfrmPRGMAIN window({screenSaver, device, desktop, fetch, {}, keptThumbnails()});
            window.Form_Load();
            const QByteArray all = operations + kClose;
            for (const char operation : all) {
                begins(operation);
                run(operation, window);
            }
        }
        releaseServices();
    }
    begins(kEnded);
}

}  // namespace velorama::endurance

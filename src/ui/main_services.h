#pragma once

#include "imaging/cache/thumbnail_cache.h"
#include "platform/background/desktop_background.h"
#include "platform/session/media_remote.h"
#include "platform/session/screen_saver.h"
#include "platform/sound/media_commands.h"
#include "platform/web/http_fetch.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace velorama {

/// What the main window reaches of the machine; all of it must outlive the window.
struct MainServices {
    ScreenSaver& screenSaver;
    MediaCommands& device;
    DesktopBackground& desktop;
    HttpFetch& netCHECKUPDATE;
    /// What the start does with the window, still empty and not shown, and the command line: other
    /// instances, the file type.
    std::function<void(QWidget& mainWindow, const QString& commandLine)> startUp = {};
    std::shared_ptr<ThumbnailCache> thumbnails = std::make_shared<ThumbnailCache>();
    std::shared_ptr<MediaRemote> mediaRemote = std::make_shared<MediaRemote>();
};

}  // namespace velorama

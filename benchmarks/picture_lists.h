#pragma once

#include "albums/slide_list.h"
#include "browse/found_list.h"
#include "imaging/ahead/look_ahead.h"

#include <QStringList>

#include <memory>

namespace velorama::bench {

/// The found list and the slide list as the main window has them, shown on the screen in memory.
class PictureWindow {
public:
    explicit PictureWindow(
        std::shared_ptr<ThumbnailCache> cache = std::make_shared<ThumbnailCache>());

    /// Lists a folder, with thumbnails.
    void list(const QString& folder) { listing_.ftvFOLDER_NodeChange(folder); }
    /// True if every one of `count` files has got its row and its own thumbnail.
    bool isListed(int count) const;
    /// Lists the names of a folder's files alone.
    void name(const QString& folder);
    /// Gives every file of the folder a slide thumbnail beforehand, one and the same image.
    void makeThumbnails();
    /// Adds the whole folder and lays the list of slides out.
    void addAll();
    int slides() const { return bar_.lvwSLIDEBAR->Count(); }
    int files() const { return found_.flbFOUND->ListCount(); }

private:
    QWidget form_;
    const FoundControls found_{form_};
    const SlideControls bar_{form_};
    Commands commands_;
    LookAhead pictures_;
    Thumbnails thumbnails_{*found_.imlFOUNDICONS, *bar_.imlTHUMBNAILS, pictures_};
    FoundList listing_{found_, *bar_.prgBARSLIDES, thumbnails_};
    SlideList slides_{bar_, found_, commands_, thumbnails_};
};

}  // namespace velorama::bench

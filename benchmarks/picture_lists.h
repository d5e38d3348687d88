#pragma once

#include "albums/slide_list.h"
#include "browse/found_list.h"
#include "imaging/ahead/look_ahead.h"

#include <QStringList>

namespace velorama::bench {

/// The found list as the main window has it, shown on the screen in memory.
class FoundWindow {
public:
    FoundWindow();

    void list(const QString& folder) { found_.ftvFOLDER_NodeChange(folder); }
    /// True if every one of `count` files has got its row and its own thumbnail.
    bool isComplete(int count) const;

private:
    QWidget form_;
    FolderTree ftvFOLDER_;
    FileList flbFOUND_;
    ImageList imlFOUNDICONS_;
    ImageList imlTHUMBNAILS_;
    ListView lvwFOUND_{&form_};
    ProgressBar prgBARSLIDES_{&form_};
    LookAhead pictures_;
    Thumbnails thumbnails_{imlFOUNDICONS_, imlTHUMBNAILS_, pictures_};
    FoundList found_;
};

/// The slide list as the main window has it, its found list a folder that is listed without
/// thumbnails.
class SlideWindow {
public:
    explicit SlideWindow(const QString& folder);

    /// Gives every file of the folder a thumbnail beforehand, one and the same image.
    void makeThumbnails();
    /// Adds the whole folder and lays the list out.
    void addAll();
    int count() const { return lvwSLIDEBAR_.Count(); }
    int files() const { return flbFOUND_.ListCount(); }

private:
    QWidget form_;
    FileList flbFOUND_;
    ImageList imlFOUNDICONS_;
    ImageList imlTHUMBNAILS_;
    ListView lvwFOUND_{&form_};
    ListView lvwSLIDEBAR_{&form_};
    ProgressBar prgBARSLIDES_{&form_};
    LookAhead pictures_;
    Thumbnails thumbnails_{imlFOUNDICONS_, imlTHUMBNAILS_, pictures_};
    SlideList slides_;
};

}  // namespace velorama::bench

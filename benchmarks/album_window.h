#pragma once

#include "albums/album_file.h"
#include "imaging/ahead/look_ahead.h"

#include <QTemporaryDir>

namespace velorama::bench {

/// Slide list, album list and album file as the main window has them, shown on the screen in
/// memory.
class AlbumWindow {
public:
    AlbumWindow();

    /// Slides without pictures of their own.
    void fill(const QStringList& paths);
    /// Reads an album of `count` slides into the list and lets the list lay itself out.
    void open(const QString& album);
    /// True if every one of `count` slides has got its thumbnail.
    bool isComplete(int count) const;
    /// The slides become the album of this path, which stands in the album list too.
    void own(const QString& album);
    /// The command Save.
    void save() { album_.mnuFILESAVE_Click(); }

private:
    QWidget form_;
    const SlideControls bar_{form_};
    const FoundControls found_{form_};
    const AlbumControls known_{form_};
    CommonDialog cdlDIALOG_{&form_};
    LookAhead pictures_;
    Thumbnails thumbnails_{*found_.imlFOUNDICONS, *bar_.imlTHUMBNAILS, pictures_};
    Commands commands_;
    SlideList slides_;
    AlbumList albums_;
    AlbumFile album_;
};

/// An album of these files in a folder, as Save As writes it: its path.
QString writtenAlbum(const QStringList& files, const QTemporaryDir& folder);

}  // namespace velorama::bench

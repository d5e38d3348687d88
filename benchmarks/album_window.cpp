#include "album_window.h"

#include "platform/files/paths.h"
#include "platform/process/events.h"

namespace velorama::bench {
namespace {

// About the main window at its design size, in pixels.
constexpr QSize formSize(790, 560);
constexpr QRect albumPlace(100, 60, 680, 300);
constexpr QRect slidePlace(5, 400, 780, 130);
constexpr QRect barPlace(5, 540, 780, 15);

}  // namespace

AlbumWindow::AlbumWindow()
    : slides_({.form = &form_,
               .lvwSLIDEBAR = &lvwSLIDEBAR_,
               .lvwFOUND = &lvwFOUND_,
               .flbFOUND = &flbFOUND_,
               .imlTHUMBNAILS = &imlTHUMBNAILS_,
               .prgBARSLIDES = &prgBARSLIDES_},
              commands_, thumbnails_, {}),
      albums_({.lvwALBUMS = &lvwALBUMS_, .cdlDIALOG = &cdlDIALOG_}, calls()),
      album_({.form = &form_,
              .lvwSLIDEBAR = &lvwSLIDEBAR_,
              .lvwALBUMS = &lvwALBUMS_,
              .imlTHUMBNAILS = &imlTHUMBNAILS_,
              .prgBARSLIDES = &prgBARSLIDES_,
              .cdlDIALOG = &cdlDIALOG_},
             commands_, slides_, thumbnails_, albums_) {
    form_.resize(formSize);
    lvwALBUMS_.setObjectName(QStringLiteral("lvwALBUMS"));
    lvwALBUMS_.setColumns({QStringLiteral("Slideshow"), QStringLiteral("Description")});
    lvwALBUMS_.setGeometry(albumPlace);
    lvwFOUND_.hide();
    lvwSLIDEBAR_.setGeometry(slidePlace);
    lvwSLIDEBAR_.setArrangement(ListView::Arrangement::Strip);
    lvwSLIDEBAR_.setIcons(&imlTHUMBNAILS_);
    prgBARSLIDES_.setGeometry(barPlace);
    form_.show();
    DoEvents();
}

AlbumListCalls AlbumWindow::calls() {
    AlbumListCalls calls;
    calls.AlbumPath = [this] { return album_.Tag(); };
    calls.isModified = [] { return false; };
    calls.mnuFILESAVE_Click = [this] { album_.mnuFILESAVE_Click(); };
    calls.openAlbum = [this](const QString& path) { album_.openFromList(path); };
    return calls;
}

void AlbumWindow::fill(const QStringList& paths) {
    for (const QString& path : paths) {
        lvwSLIDEBAR_.Add(lvwSLIDEBAR_.Count() + 1, path, lastSegment(path), 0);
    }
    DoEvents();
}

void AlbumWindow::open(const QString& album) {
    album_.DocumentOpenText(album);
    DoEvents();
}

bool AlbumWindow::isComplete(int count) const {
    return lvwSLIDEBAR_.Count() == count && imlTHUMBNAILS_.Count() == count;
}

void AlbumWindow::own(const QString& album) {
    album_.setTag(album);
    albums_.AlbumListAdd(album);
    DoEvents();
}

}  // namespace velorama::bench

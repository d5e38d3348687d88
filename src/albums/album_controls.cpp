#include "albums/album_controls.h"

#include "controls/buttons/control_making.h"
#include "controls/buttons/icon.h"
#include "controls/geometry/caption_room.h"
#include "controls/geometry/twips.h"

#include <QCoreApplication>

namespace velorama {
namespace {

// Design places in twips.

cbtn* rowButton(QWidget& page, const char* name, const char* tooltip, const char* caption) {
    cbtn* button = makeButton(&page, QLatin1String(name), "", tooltip, caption);
    placeDesign(*button, 0, 2950, 1080, 330);
    return button;
}

}  // namespace

AlbumControls::AlbumControls(QWidget& page)
    : lvwALBUMS(make<ReportView>("lvwALBUMS", &page)),
      btnADD(rowButton(page, "btnADD", "Put an album on the list", "Add...")),
      btnREMOVE(
          rowButton(page, "btnREMOVE", "Take the album off the list; its file stays", "Remove")),
      btnView(rowButton(page, "btnView", "Open the selected album", "Open")) {
    place(*lvwALBUMS, 1650, 90, 9165, 2760);
    lvwALBUMS->setColumns({QStringLiteral("Slideshow"), QStringLiteral("Description")});
    lvwALBUMS->setColumnWidth(2, 2900);
    lvwALBUMS->setSmallIcon(symbolIcon(QStringLiteral("album")));
    lvwALBUMS->setAccessibleName(QStringLiteral("Slideshow Albums"));
    lvwALBUMS->setEmptyText(QCoreApplication::translate(
        "AlbumControls",
        "Albums that you save or open are listed here.\nTo begin, choose pictures for a show, "
        "then save it as an album."));
}

}  // namespace velorama

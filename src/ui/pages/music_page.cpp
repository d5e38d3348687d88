#include "ui/pages/music_page.h"

#include "controls/geometry/caption_room.h"
#include "controls/geometry/twips.h"

namespace velorama {

namespace {

constexpr float columnGap = 15;  // twips

}  // namespace

MusicPage::MusicPage(QWidget& surface) : Page("picframMUSICLIST", surface) {
    btnMUSIC_ = controls.lstMUSIC->emptyState().addButton("btnMUSIC", "plus", "Add Music...",
                                                          "Choose music files");
    connect(btnMUSIC_, &cbtn::clicked, controls.cbtnAUDIO[0], &cbtn::click);
}

void MusicPage::makeRoom() {
    const QList<QWidget*> column = columnButtons();
    giveRoomInColumn(column, columnGap, Height(*this) - Top(*column.first()));
}

// In the order of their places.
QList<QWidget*> MusicPage::columnButtons() const {
    const MusicControls& c = controls;
    return {c.cbtnAUDIO[0], c.cbtnAUDIO[1], c.cbtnAUDIO[5], c.Command1, c.Command2};
}

void MusicPage::layOut() {
    const MusicControls& c = controls;
    setWidth(*c.lstMUSIC, Width(*this) - Left(*c.lstMUSIC) - 75);
    setHeight(*c.lstMUSIC, Height(*this) - Top(*c.lstMUSIC) - belowList);
    placeRow({c.cbtnAUDIO[4], c.cbtnAUDIO[3], c.cbtnAUDIO[2]});
    setWidth(*c.prgPLAY, Left(*c.cbtnAUDIO[2]) - Left(*c.prgPLAY) - 240);
    setTop(*c.prgPLAY, Top(*c.cbtnAUDIO[2]) + 90);
}

QList<QWidget*> MusicPage::tabOrder() const {
    const MusicControls& c = controls;
    return columnButtons() +
           QList<QWidget*>{c.lstMUSIC, btnMUSIC_, c.cbtnAUDIO[2], c.cbtnAUDIO[3], c.cbtnAUDIO[4]};
}

}  // namespace velorama

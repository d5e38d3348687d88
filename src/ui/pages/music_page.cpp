#include "ui/pages/music_page.h"

#include "controls/geometry/caption_room.h"
#include "controls/geometry/twips.h"

namespace velorama {

namespace {

// Twips.
constexpr float columnLeft = 105;
constexpr float columnGap = 45;
// What the column may take of the page, as a part of one.
constexpr float mostColumn = 0.4F;
constexpr float leastProgress = 900;
constexpr float beforeButtons = 240;

}  // namespace

MusicPage::MusicPage(QWidget& surface) : Page("picframMUSICLIST", surface) {
    btnMUSIC_ = controls.lstMUSIC->emptyState().addButton("btnMUSIC", "plus", "Add Music...",
                                                          "Choose music files");
    connect(btnMUSIC_, &cbtn::clicked, controls.cbtnAUDIO[0], &cbtn::click);
}

void MusicPage::makeRoom() {
    const MusicControls& c = controls;
    setLeft(*c.lstMUSIC, columnRight() + columnLeft);
    setLeft(*c.prgPLAY, Left(*c.lstMUSIC));
    giveRowRoom({c.cbtnAUDIO[4], c.cbtnAUDIO[3], c.cbtnAUDIO[2]},
                Left(*c.prgPLAY) + leastProgress + beforeButtons);
}

/// Where the column ends. Where its captions would take the list's room its symbols stand alone.
float MusicPage::columnRight() const {
    const QList<cbtn*> column = columnButtons();
    const auto setCompact = [&column](bool isCompact) {
        for (cbtn* button : column) {
            button->setCompact(isCompact);
        }
    };
    setCompact(false);
    const QList<QWidget*> inColumn(column.begin(), column.end());
    const float right = giveRoomInColumn(inColumn, columnGap, Height(*this) - columnGap);
    if (right <= Width(*this) * mostColumn) {
        return right;
    }
    setCompact(true);
    for (cbtn* button : column) {
        setWidth(*button, toTwips(button->sizeHint().width()));
    }
    return Left(*column.first()) + Width(*column.first());
}

// In the order of their places.
QList<cbtn*> MusicPage::columnButtons() const {
    const MusicControls& c = controls;
    return {c.cbtnAUDIO[0], c.cbtnAUDIO[1], c.cbtnAUDIO[5], c.Command1, c.Command2};
}

void MusicPage::layOut() {
    const MusicControls& c = controls;
    setWidth(*c.lstMUSIC, Width(*this) - Left(*c.lstMUSIC) - 75);
    setHeight(*c.lstMUSIC, Height(*this) - Top(*c.lstMUSIC) - belowList);
    placeRow({c.cbtnAUDIO[4], c.cbtnAUDIO[3], c.cbtnAUDIO[2]});
    setWidth(*c.prgPLAY, Left(*c.cbtnAUDIO[2]) - Left(*c.prgPLAY) - beforeButtons);
    setTop(*c.prgPLAY, Top(*c.cbtnAUDIO[2]) + 90);
}

QList<QWidget*> MusicPage::tabOrder() const {
    const MusicControls& c = controls;
    const QList<cbtn*> column = columnButtons();
    return QList<QWidget*>(column.begin(), column.end()) +
           QList<QWidget*>{c.lstMUSIC, btnMUSIC_, c.cbtnAUDIO[2], c.cbtnAUDIO[3], c.cbtnAUDIO[4]};
}

}  // namespace velorama

#include "music/music_controls.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/caption_room.h"
#include "controls/geometry/twips.h"

#include <QCoreApplication>

namespace velorama {
namespace {

// Design places in twips.
constexpr float columnLeft = 105;
constexpr float columnTop = 60;
constexpr float columnPitch = 345;

struct Design {
    const char* symbol;
    const char* tooltip;
    float left;
    float top;
};

// Those that work on the list stand in a column beside it, those that play in a row below.
constexpr std::array<Design, 6> audioButtons = {{
    {"plus", "Add music files", columnLeft, columnTop},
    {"minus", "Remove the selected track", columnLeft, columnTop + columnPitch},
    {"play", "Play", 9150, 2950},
    {"pause", "Pause or go on", 9660, 2950},
    {"stop", "Stop", 10170, 2950},
    {"clear", "Remove all tracks", columnLeft, columnTop + 2 * columnPitch},
}};

cbtn* makeAt(QWidget& page, const QString& name, const Design& design) {
    cbtn* button = makeButton(&page, name, design.symbol, design.tooltip);
    placeDesign(*button, design.left, design.top, 450, 330);
    return button;
}

}  // namespace

MusicControls::MusicControls(QWidget& page)
    : lstMUSIC(make<ListBox>("lstMUSIC", &page)),
      tmrMUSIC(make<QTimer>("tmrMUSIC", &page)),
      prgPLAY(make<ProgressBar>("prgPLAY", &page)),
      lblM1(make<Label>("lblM1", &page)),
      lblM2(make<Label>("lblM2", &page)),
      lblFile(make<Label>("lblFile", &page)),
      Command1(makeAt(page, QStringLiteral("Command1"),
                      {"up", "Move up", columnLeft, columnTop + 3 * columnPitch})),
      Command2(makeAt(page, QStringLiteral("Command2"),
                      {"down", "Move down", columnLeft, columnTop + 4 * columnPitch})) {
    for (std::size_t index = 0; index < audioButtons.size(); ++index) {
        cbtnAUDIO.at(index) =
            makeAt(page, QStringLiteral("cbtnAUDIO%1").arg(index), audioButtons.at(index));
    }
    place(*lstMUSIC, 645, 90, 10170, 2760);
    lstMUSIC->setAccessibleName(QStringLiteral("Music"));
    lstMUSIC->setEmptyText(QCoreApplication::translate(
        "MusicControls", "Add MP3, WAV or MIDI files, or drop them here."));
    // A disabled list means paused.
    lstMUSIC->setDisabledSymbol(QStringLiteral("pause"));
    place(*prgPLAY, 645, 3040, 8200, 150);
    prgPLAY->setAccessibleName(QStringLiteral("Progress of the track"));
    for (QWidget* hidden : std::initializer_list<QWidget*>{prgPLAY, lblM1, lblM2, lblFile}) {
        hidden->hide();
    }
}

}  // namespace velorama

#include "music/music_controls.h"

#include "controls/buttons/control_making.h"
#include "controls/geometry/caption_room.h"
#include "controls/geometry/twips.h"

#include <QCoreApplication>

namespace velorama {
namespace {

// Design places in twips.
constexpr float columnLeft = 105;
constexpr float columnTop = 90;
constexpr float columnWidth = 1440;
constexpr float rowTop = 2950;
constexpr float rowWidth = 1080;

struct Design {
    const char* symbol;
    const char* caption;
    const char* tooltip;
    bool plays;
};

// Those that work on the list stand in a column beside it, those that play in a row below.
constexpr std::array<Design, 6> audioButtons = {{
    {"plus", "Add...", "Add music files", false},
    {"minus", "Remove", "Remove the selected track", false},
    {"play", "Play", "Play the selected track from its start", true},
    {"pause", "Pause", "Pause or go on", true},
    {"stop", "Stop", "Stop the music", true},
    {"clear", "Remove All", "Remove all tracks and stop", false},
}};

cbtn* makeOn(QWidget& page, const QString& name, const Design& design) {
    cbtn* button = makeButton(&page, name, design.symbol, design.tooltip, design.caption);
    button->setLeading(!design.plays);
    if (design.plays) {
        placeDesign(*button, 0, rowTop, rowWidth, 330);
    } else {
        placeDesign(*button, columnLeft, columnTop, columnWidth, 345);
    }
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
      Command1(makeOn(page, QStringLiteral("Command1"),
                      {"up", "Move Up", "Move the selected track up", false})),
      Command2(makeOn(page, QStringLiteral("Command2"),
                      {"down", "Move Down", "Move the selected track down", false})) {
    for (std::size_t index = 0; index < audioButtons.size(); ++index) {
        cbtnAUDIO.at(index) =
            makeOn(page, QStringLiteral("cbtnAUDIO%1").arg(index), audioButtons.at(index));
    }
    place(*lstMUSIC, 1650, 90, 9165, 2760);
    lstMUSIC->setAccessibleName(QStringLiteral("Music"));
    lstMUSIC->setEmptyText(QCoreApplication::translate(
        "MusicControls", "Add MP3, WAV or MIDI files, or drop them here."));
    // A disabled list means paused.
    lstMUSIC->setDisabledSymbol(QStringLiteral("pause"));
    place(*prgPLAY, 1650, 3040, 5700, 150);
    prgPLAY->setAccessibleName(QStringLiteral("Progress of the track"));
    for (QWidget* hidden : std::initializer_list<QWidget*>{prgPLAY, lblM1, lblM2, lblFile}) {
        hidden->hide();
    }
}

}  // namespace velorama

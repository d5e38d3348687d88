#pragma once

#include "controls/boxes/label.h"
#include "controls/boxes/progress_bar.h"
#include "controls/buttons/push_button.h"
#include "controls/lists/list_box.h"

#include <QTimer>

#include <array>

namespace velorama {

/// The controls that the music works on. They belong to the page they are made on.
struct MusicControls {
    explicit MusicControls(QWidget& page);

    ListBox* lstMUSIC;
    QTimer* tmrMUSIC;
    ProgressBar* prgPLAY;
    // Stores that the show reads too.
    Label* lblM1;    // length in whole seconds
    Label* lblM2;    // position in whole seconds
    Label* lblFile;  // path of the track
    /// 0 add, 1 remove, 2 play, 3 pause, 4 stop, 5 remove all.
    std::array<cbtn*, 6> cbtnAUDIO{};
    /// The selected row up and down.
    cbtn* Command1;
    cbtn* Command2;
};

}  // namespace velorama

#pragma once

#include "controls/boxes/picture_box.h"
#include "controls/boxes/progress_bar.h"
#include "controls/lists/image_list.h"
#include "controls/lists/list_view.h"

namespace velorama {

/// The slides of the show, and the band above them with the one bar of progress. The controls
/// belong to the surface they are made on, whose width the list follows.
struct SlideControls {
    explicit SlideControls(QWidget& surface);

    /// Whether an empty list says that there is something to be brought back.
    void tellUndo(bool canUndo) const;

    PictureBox* picSELBAR;
    /// Of everything that takes its time: listing a folder, adding slides, reading and building
    /// albums.
    ProgressBar* prgBARSLIDES;
    ListView* lvwSLIDEBAR;
    ImageList* imlTHUMBNAILS;
};

}  // namespace velorama

#pragma once

#include "controls/buttons/push_button.h"
#include "controls/lists/report_view.h"

namespace velorama {

/// The list of known albums and its buttons. They belong to the page they are made on.
struct AlbumControls {
    explicit AlbumControls(QWidget& page);

    ReportView* lvwALBUMS;
    cbtn* btnADD;
    cbtn* btnREMOVE;
    cbtn* btnView;
};

}  // namespace velorama

#include "browse/slide_controls.h"

#include "browse/thumbnails.h"
#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"

namespace velorama {

// Design places in twips.
SlideControls::SlideControls(QWidget& surface)
    : picSELBAR(make<PictureBox>("picSELBAR", &surface)),
      prgBARSLIDES(make<ProgressBar>("prgBARSLIDES", picSELBAR)),
      lvwSLIDEBAR(make<ListView>("lvwSLIDEBAR", &surface)),
      imlTHUMBNAILS(new ImageList(&surface)) {
    place(*picSELBAR, 0, 3765, 11040, 255);
    place(*prgBARSLIDES, 120, 60, 10800, 135);
    prgBARSLIDES->hide();
    place(*lvwSLIDEBAR, 120, 4740, 10800, 2280);
    imlTHUMBNAILS->setImageSize(QSize(Thumbnails::slideCell, Thumbnails::slideCell));
    lvwSLIDEBAR->setIcons(imlTHUMBNAILS);
    lvwSLIDEBAR->setArrangement(ListView::Arrangement::Strip);
    lvwSLIDEBAR->setFrameShape(QFrame::NoFrame);
    lvwSLIDEBAR->setAccessibleName(QStringLiteral("Slideshow List"));
}

void SlideControls::tellUndo(bool canUndo) const {
    lvwSLIDEBAR->emptyState().setNote(canUndo ? QStringLiteral("Ctrl+Z brings back what was here.")
                                              : QString());
}

}  // namespace velorama

#include "browse/found_controls.h"

#include "browse/found_counts.h"
#include "browse/other_pictures.h"
#include "controls/buttons/control_making.h"
#include "controls/geometry/twips.h"

namespace velorama {

// Design places in twips.
FoundControls::FoundControls(QWidget& page)
    : ftvFOLDER(make<FolderTree>("ftvFOLDER", &page)),
      lvwFOUND(make<ListView>("lvwFOUND", &page)),
      imlFOUNDICONS(new ImageList(&page)) {
    place(*ftvFOLDER, 105, 90, 3440, 3110);
    ftvFOLDER->setAccessibleName(QStringLiteral("Folders"));
    place(*lvwFOUND, 3705, 90, 6905, 2760);
    lvwFOUND->setAccessibleName(QStringLiteral("Pictures Found"));
    lvwFOUND->setIcons(imlFOUNDICONS);
    lvwFOUND->setArrangement(ListView::Arrangement::Wrapped);
    lvwFOUND->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lvwFOUND->setEmptyText(nothingFound(0));
    flbFOUND->setOthers(OtherPictures());
}

}  // namespace velorama

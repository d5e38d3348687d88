#pragma once

#include "albums/slide_list.h"
#include "browse/found_list.h"
#include "controls/lists/list_drag.h"

namespace velorama {

/// What can be dragged in the main window, and where to: slides along the slide bar, pictures of
/// the found list into it, and files of other programs on both.
class Drags : public QObject {
public:
    /// All must outlive this object.
    Drags(const FoundControls& foundControls, const SlideControls& slideControls, FoundList& found,
          SlideList& slides);

    // They belong to their lists.
    ListDrag* const pictures;
    ListDrag* const slideBar;
};

}  // namespace velorama

#include "ui/drags.h"

namespace velorama {

Drags::Drags(const FoundControls& foundControls, const SlideControls& slideControls,
             FoundList& found, SlideList& slides)
    : pictures(new ListDrag(*foundControls.lvwFOUND)),
      slideBar(new ListDrag(*slideControls.lvwSLIDEBAR)) {
    pictures->offer([&found] { return found.selectedFiles(); });
    pictures->takeFiles();
    slideBar->offer();
    slideBar->takeFrom(*slideBar);
    slideBar->takeFrom(*pictures);
    slideBar->takeFiles();
    const ListView* own = slideControls.lvwSLIDEBAR;
    connect(pictures, &ListDrag::FilesDropped, &found,
            [&found](const QStringList& paths) { found.showDropped(paths); });
    connect(slideBar, &ListDrag::FilesDropped, &slides, &SlideList::AddFiles);
    connect(slideBar, &ListDrag::ItemsDropped, &slides,
            [&slides, own](const ListView* source, int gap) {
                if (source == own) {
                    slides.MoveSelectedTo(gap);
                } else {
                    slides.AddAt(gap);
                }
            });
}

}  // namespace velorama

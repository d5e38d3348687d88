// How a file of the folder on show becomes a slide.

#include "albums/slide_list.h"
#include "core/globals.h"
#include "platform/process/events.h"

namespace velorama {
namespace {

// Events run while a picture is loaded, but not for those whose thumbnails are there already.
constexpr int mostAtOnce = 64;

}  // namespace

void SlideList::SlideInsert(int Index) {
    store_.settle();
    insert(files_.file(Index), batchLeft());
    store_.settle();
    // By itself it marks nothing.
    forgetUnmarked();
}

/// True from when what is begun now is to end, or this object has gone.
SlideList::IsLeft SlideList::batchLeft() const {
    const QPointer<const SlideList> self = this;
    return [self, begun = left_] { return !self || self->stopped_ || self->left_ != begun; };
}

void SlideList::insert(const FoundFile& file, const IsLeft& isLeft) {
    if (!file.isPicture()) {
        return;
    }
    thumbnails_.SlideThumbnailAdd(file.path, isLeft);
    if (!isLeft() && ++inserted_ % mostAtOnce == 0) {
        DoEvents();
    }
    if (isLeft()) {
        return;
    }
    const bool mayWait = store_.wouldKeep(file.path);
    // Events have run: the slides that were there may have been removed.
    const bool written = c_.lvwSLIDEBAR->Count() == 0 ? addFirst(file) : addAtCurrent(file);
    enableStart();
    unmarked_ = true;
    if (mayWait && written) {
        store_.putOff();
    } else if (store_.isLong()) {
        store_.writeAndReadInSteps(isLeft);
    } else {
        store_.writeAndRead();
    }
}

/// True: there is nothing that the settings could refuse.
bool SlideList::addFirst(const FoundFile& file) {
    c_.lvwSLIDEBAR->Add(1, file.path, textOf(file), imageOf(file));
    return true;
}

/// False if the settings did not take the slide.
bool SlideList::addAtCurrent(const FoundFile& file) {
    const int icon = file.isGif() ? imageOf(file) : thumbnails_.SlideIconIndex(file.path);
    c_.lvwSLIDEBAR->Add(currentIndex(), file.path, textOf(file), icon);
    return store_.writeLast(file.path);
}

/// Whether its file is there was seen when the thumbnail was made, and the rebuild looks again.
QString SlideList::textOf(const FoundFile& file) const {
    const bool isMissing = thumbnails_.slideFile(file.path) == FileState::NotFound;
    return isMissing ? file.path : gFileFoldr->FileNameFromPath(file.path, true);
}

int SlideList::imageOf(const FoundFile& file) const {
    return c_.imlTHUMBNAILS->indexOf(file.path);
}

int SlideList::currentIndex() const {
    const ListItem* current = c_.lvwSLIDEBAR->SelectedItem();
    // In a batch it is nearly always the first, and asking for the index would number them all
    // anew.
    if (current && current == c_.lvwSLIDEBAR->item(1)) {
        return 1;
    }
    return current ? current->Index() : 0;
}

}  // namespace velorama

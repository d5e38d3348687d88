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
    insert(files_.file(Index));
    store_.settle();
}

void SlideList::insert(const FoundFile& file) {
    if (!file.isPicture()) {
        return;
    }
    const bool first = c_.lvwSLIDEBAR->Count() == 0;
    const QPointer<SlideList> self = this;
    const auto left = [self] { return !self || self->stopped_; };
    thumbnails_.SlideThumbnailAdd(file.path, left);
    if (!left() && ++inserted_ % mostAtOnce == 0) {
        DoEvents();
    }
    if (left()) {
        return;
    }
    const bool mayWait = store_.wouldKeep(file.path);
    const bool written = first ? addFirst(file) : addAtCurrent(file);
    enableStart();
    if (mayWait && written) {
        store_.putOff();
    } else if (store_.isLong()) {
        store_.writeAndReadInSteps(left);
    } else {
        store_.writeAndRead();
    }
}

/// True: there is nothing that the settings could refuse.
bool SlideList::addFirst(const FoundFile& file) {
    c_.lvwSLIDEBAR->Add(1, file.path, textOf(file), imageOf(file));
    return true;
}

/// False if the settings did not take the slide. Events have run: the list may be empty by now, and
/// then there is no place to insert at.
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

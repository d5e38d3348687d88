#include "albums/slide_list.h"

#include "controls/geometry/twips.h"

#include <QDateTime>

#include <utility>
#include <vector>

namespace velorama {

SlideList::SlideList(const SlideControls& controls, const FoundControls& found, Commands& commands,
                     Thumbnails& thumbnails)
    : c_(controls),
      found_(found),
      commands_(commands),
      thumbnails_(thumbnails),
      files_(found, *controls.imlTHUMBNAILS, thumbnails),
      store_(*controls.lvwSLIDEBAR, thumbnails),
      history_(controls, commands, thumbnails),
      hidden_(*controls.lvwSLIDEBAR) {
    connectEvents();
    connectCommands();
    connectHistory();
}

void SlideList::hideSlides() {
    hidden_.hide();
}

void SlideList::showSlides() {
    hidden_.show();
}

void SlideList::leaveBatches() {
    ++left_;
    unmarked_ = false;
}

void SlideList::stop() {
    stopped_ = true;
    history_.stop();
}

void SlideList::Clear() {
    history_.forgetWaiting();
    const SlideHistory::Recording step(history_);
    store_.settle();
    hideSlides();
    FoundButtonsCheck();
    SelectChk();
    // The count before the removal: it is put right when the list is next saved.
    store_.writeCount();
    if (!removeSelected()) {
        c_.lvwSLIDEBAR->Remove(c_.lvwSLIDEBAR->Count());
    }
    if (ListItem* current = c_.lvwSLIDEBAR->SelectedItem()) {
        current->setSelected(true);
    }
    lvwSLIDEBAR_Click();
    markModified();
    showSlides();
}

bool SlideList::removeSelected() {
    std::vector<int> places;
    for (int i = 1; i <= c_.lvwSLIDEBAR->Count(); ++i) {
        if (c_.lvwSLIDEBAR->item(i)->Selected()) {
            places.push_back(i);
        }
    }
    c_.lvwSLIDEBAR->Remove(places);
    return !places.empty();
}

void SlideList::ClearAll() {
    history_.forgetWaiting();
    const SlideHistory::Recording step(history_);
    empty();
}

void SlideList::empty() {
    leaveBatches();
    store_.settle();
    hideSlides();
    const int stored = store_.storedCount();
    c_.lvwSLIDEBAR->Clear();
    enableStart();
    SelectChk();
    store_.blank(stored);
    FoundButtonsCheck();
    SelectChk();
    markModified();
    showSlides();
}

void SlideList::MoveBack() {
    history_.forgetWaiting();
    const SlideHistory::Recording step(history_);
    move(-1);
}

void SlideList::MoveForward() {
    history_.forgetWaiting();
    const SlideHistory::Recording step(history_);
    move(1);
}

void SlideList::move(int step) {
    store_.settle();
    ListItem* s = c_.lvwSLIDEBAR->SelectedItem();
    ListItem* t = s ? c_.lvwSLIDEBAR->item(s->Index() + step) : nullptr;
    if (!t) {
        return;
    }
    exchange(*s, *t);
    s->setSelected(false);
    c_.lvwSLIDEBAR->setSelectedItem(t->Index());
    t->setSelected(true);
    markModified();
    SELECTIONSAVE();
}

/// The items stay and their contents change places, over a key that is in no list.
void SlideList::exchange(ListItem& s, ListItem& t) {
    const QString a = s.Key();
    const QString b = t.Key();
    s.setKey(a + QDateTime::currentDateTime().toString(Qt::ISODateWithMs));
    fill(t, a);
    s.setKey(QString());
    fill(s, b);
}

void SlideList::fill(ListItem& item, const QString& key) {
    item.setKey(key);
    item.setText(slideText(item.Key()));
    item.setIcon(thumbnails_.SlideIconIndex(item.Key()));
}

void SlideList::SELECTIONSAVE() {
    store_.write();
}

void SlideList::SlideListReload() {
    store_.settle();
    store_.read();
}

void SlideList::SelectChk() {
    const int count = c_.lvwSLIDEBAR->Count();
    const ListItem* current = c_.lvwSLIDEBAR->SelectedItem();
    const int index = current ? current->Index() : 0;
    const bool holds = count > 0;
    for (Command* command :
         {&commands_.remove, &commands_.removeAll, &commands_.start, &commands_.createWebAlbum}) {
        command->setEnabled(holds);
    }
    commands_.moveBack.setEnabled(holds && index != 1);
    // A single slide counts as the first and not as the last.
    commands_.moveForward.setEnabled(holds && (index == 1 || index != count));
    nudgeWidth();
}

/// Makes the list view lay out its scroll bar again.
void SlideList::nudgeWidth() {
    const float inner = Width(*c_.lvwSLIDEBAR->parentWidget());
    const float width = inner - 2 * Left(*c_.lvwSLIDEBAR);
    setWidth(*c_.lvwSLIDEBAR, width + twipsPerLogicalPixel);
    setWidth(*c_.lvwSLIDEBAR, width);
}

void SlideList::enableStart() {
    commands_.start.setEnabled(c_.lvwSLIDEBAR->Count() > 0);
}

void SlideList::FoundButtonsCheck() {
    const bool found = found_.flbFOUND->ListCount() != 0;
    commands_.add.setEnabled(found);
    commands_.addAll.setEnabled(found);
    enableStart();
}

void SlideList::markModified() {
    unmarked_ = false;
    commands_.save.setEnabled(true);
    commands_.saveAs.setEnabled(true);
}

}  // namespace velorama

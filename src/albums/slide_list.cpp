#include "albums/slide_list.h"

#include "albums/slide_settings.h"
#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "platform/numbers.h"

#include <QDateTime>

#include <algorithm>
#include <utility>

namespace velorama {
namespace {

// A damaged count in the settings must not hold the program up; beyond what the list held, no more
// paths than this are blanked.
constexpr int mostBlanked = 100'000;

}  // namespace

SlideList::SlideList(const SlideControls& controls, const FoundControls& found, Commands& commands,
                     Thumbnails& thumbnails)
    : c_(controls), found_(found), commands_(commands), thumbnails_(thumbnails) {
    connectEvents();
    connectCommands();
}

void SlideList::hideSlides() {
    hadFocus_ = hadFocus_ || c_.lvwSLIDEBAR->hasFocus();
    c_.lvwSLIDEBAR->setVisible(false);
}

void SlideList::showSlides() {
    c_.lvwSLIDEBAR->setVisible(true);
    if (std::exchange(hadFocus_, false)) {
        c_.lvwSLIDEBAR->setFocus();
    }
}

void SlideList::Clear() {
    settle();
    hideSlides();
    FoundButtonsCheck();
    SelectChk();
    // The count before the removal: it is put right when the list is next saved.
    const int count = c_.lvwSLIDEBAR->Count();
    saveSetting(slideItemsKey, slideItemsName, QString::number(count));
    if (!removeSelected()) {
        c_.lvwSLIDEBAR->Remove(count);
    }
    if (ListItem* current = c_.lvwSLIDEBAR->SelectedItem()) {
        current->setSelected(true);
    }
    lvwSLIDEBAR_Click();
    markModified();
    showSlides();
}

bool SlideList::removeSelected() {
    bool removed = false;
    for (int i = c_.lvwSLIDEBAR->Count(); i >= 1; --i) {
        if (c_.lvwSLIDEBAR->item(i)->Selected()) {
            c_.lvwSLIDEBAR->Remove(i);
            removed = true;
        }
    }
    return removed;
}

void SlideList::ClearAll() {
    settle();
    hideSlides();
    const int most = std::max(c_.lvwSLIDEBAR->Count(), mostBlanked);
    const QString stored = loadSetting(slideItemsKey, slideItemsName, QStringLiteral("0"));
    c_.lvwSLIDEBAR->Clear();
    for (Command* command :
         {&commands_.start, &commands_.removeAll, &commands_.remove, &commands_.moveBack,
          &commands_.moveForward, &commands_.createWebAlbum}) {
        command->setEnabled(false);
    }
    blankSelection(std::min(wholeNumber(stored).value_or(0), most));
    FoundButtonsCheck();
    SelectChk();
    markModified();
    showSlides();
}

void SlideList::blankSelection(int count) {
    if (count < 1) {
        return;
    }
    for (int i = 1; i <= count; ++i) {
        saveSetting(slideSelectionKey, QString::number(i), QString());
    }
    saveSetting(slideItemsKey, slideItemsName, QStringLiteral("0"));
}

void SlideList::move(int step) {
    settle();
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
    const auto give = [this](ListItem& item, const QString& key) {
        item.setKey(key);
        item.setText(gFileFoldr->FileNameFromPath(item.Key(), false));
        item.setIcon(thumbnails_.SlideIconIndex(item.Key()));
    };
    give(t, a);
    s.setKey(QString());
    give(s, b);
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
    commands_.save.setEnabled(true);
    commands_.saveAs.setEnabled(true);
}

}  // namespace velorama

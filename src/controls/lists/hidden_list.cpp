#include "controls/lists/hidden_list.h"

#include <utility>

namespace velorama {

// Not `hasFocus`, which no control of a window has that a dialog has just given way to.
void HiddenList::hide() {
    const QWidget* window = list_.window();
    const bool hasKeyboard = window->focusWidget() == &list_;
    list_.setVisible(false);
    if (hasKeyboard) {
        hadKeyboard_ = true;
        QWidget* next = window->focusWidget();
        // In a window that is not active Qt chooses the next one later.
        standIn_ = next != &list_ ? next : nullptr;
    }
}

void HiddenList::show() {
    list_.setVisible(true);
    const bool isFree = standIn_.isNull() || list_.window()->focusWidget() == standIn_;
    if (std::exchange(hadKeyboard_, false) && isFree) {
        list_.setFocus();
    }
}

}  // namespace velorama

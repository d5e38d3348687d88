#include "albums/slide_list.h"
#include "controls/geometry/twips.h"
#include "controls/input/keys.h"
#include "core/globals.h"

namespace velorama {
void SlideList::connectEvents() {
    const ListView* list = c_.lvwSLIDEBAR;
    connect(list, &ListView::GotFocus, this, [] { ActiveList = QStringLiteral("SELECTED"); });
    connect(list, &ListView::Click, this, &SlideList::lvwSLIDEBAR_Click);
    connect(list, &ListView::DblClick, this, &SlideList::Clear);
    connect(list, &ListView::KeyDown, this, &SlideList::lvwSLIDEBAR_KeyDown);
    connect(list, &ListView::CurrentMoved, this, &SlideList::SelectChk);
    connect(list, &ListView::MouseUp, this,
            [this](int button, int, float x, float y) { lvwSLIDEBAR_MouseUp(button, x, y); });
    connect(list, &ListView::BeforeLabelChange, this, [this] {
        history_.forgetWaiting();
        history_.begin();
    });
    connect(list, &ListView::AfterLabelEdit, this, [this](const QString& text) {
        lvwSLIDEBAR_AfterLabelEdit(text);
        history_.end();
    });
}

void SlideList::connectHistory() {
    connect(&history_, &SlideHistory::Leaving, this, [this] {
        store_.settle();
        hideSlides();
    });
    connect(&history_, &SlideHistory::Arrived, this, &SlideList::historyArrived);
}

void SlideList::historyArrived() {
    FoundButtonsCheck();
    SelectChk();
    SELECTIONSAVE();
    showSlides();
    c_.lvwSLIDEBAR->scrollTo(c_.lvwSLIDEBAR->currentIndex());
}

void SlideList::connectCommands() {
    const auto on = [this](const Command& command, auto handler) {
        connect(&command, &Command::triggered, this, handler);
    };
    on(commands_.add, &SlideList::Add);
    on(commands_.addAll, &SlideList::AddAll);
    on(commands_.remove, [this] {
        Clear();
        SelectChk();
    });
    on(commands_.removeAll, &SlideList::ClearAll);
    on(commands_.moveBack, &SlideList::MoveBack);
    on(commands_.moveForward, &SlideList::MoveForward);
}

void SlideList::lvwSLIDEBAR_Click() {
    ActiveList = QStringLiteral("SELECTED");
    SelectChk();
}

void SlideList::selectFirstSlide() {
    store_.settle();
    ListItem* first = c_.lvwSLIDEBAR->item(1);
    if (!first) {
        return;
    }
    c_.lvwSLIDEBAR->clearSelection();
    c_.lvwSLIDEBAR->setSelectedItem(1);
    first->setSelected(true);
    lvwSLIDEBAR_Click();
}

void SlideList::lvwSLIDEBAR_KeyDown(int KeyCode, int Shift) {
    if (c_.lvwSLIDEBAR->Count() == 0) {
        return;
    }
    lvwSLIDEBAR_Click();
    const QPointer<SlideList> self = this;
    if (KeyCode == KeyContextMenu) {
        // The found list's menu, here too.
        emit Popup({PopupRequest::Menu::mnuFOUNDTOP, Left(*c_.lvwSLIDEBAR) + popupKeyOffset,
                    Top(*c_.lvwSLIDEBAR)});
    }
    if (self) {
        ListKeysCheck(KeyCode, Shift);
    }
}

void SlideList::lvwSLIDEBAR_MouseUp(int Button, float X, float Y) {
    if (c_.lvwSLIDEBAR->Count() == 0 || Button != 2) {
        return;
    }
    // The button has made a slide current.
    lvwSLIDEBAR_Click();
    emit Popup({PopupRequest::Menu::mnuSELECTEDTOP, Left(*c_.lvwSLIDEBAR) + X,
                Top(*c_.lvwSLIDEBAR) + Y, true});
}

void SlideList::lvwSLIDEBAR_AfterLabelEdit(const QString& NewString) {
    ListItem* item = c_.lvwSLIDEBAR->SelectedItem();
    if (item && NewString.contains(QLatin1Char(','))) {
        item->setText(QString(NewString).remove(QLatin1Char(',')));
    }
    commands_.save.setEnabled(true);
}

void SlideList::ListKeysCheck(int KeyCode, int Shift) {
    if (Shift == CtrlDown && KeyCode == KeyDelete) {
        commands_.remove.trigger();
    }
    if (Shift != CtrlDown && KeyCode == KeyInsert) {
        commands_.add.trigger();
    }
}

}  // namespace velorama

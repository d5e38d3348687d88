// Add and AddAll: the batches that make slides of the found list.

#include "albums/slide_list.h"
#include "browse/screen_pointer.h"

namespace velorama {

/// Pressed inside itself the command follows later, with the files of its own press: the lists may
/// show another folder by then; `files` is for that case alone. A press that repeats the one that
/// waits is the same press.
void SlideList::press(Batch& batch, const QList<FoundFile>& files, const std::function<void()>& now,
                      const std::function<void()>& later) {
    if (!batch.turn.isRunning()) {
        batch.turn.run(now);
    } else if (!batch.turn.isAwaited() || batch.files != files) {
        batch.files = files;
        batch.turn.run([this, later] {
            if (!stopped_) {
                later();
            }
        });
    }
}

void SlideList::Add() {
    history_.forgetWaiting();
    const QList<FoundFile> files = add_.turn.isRunning() ? files_.selected() : QList<FoundFile>();
    press(
        add_, files, [this] { runAdd([this] { addSelected(); }); },
        [this, files] { runAdd([this, &files] { insertAll(files); }); });
}

void SlideList::runAdd(const std::function<void()>& insertFiles) {
    const SlideHistory::Recording step(history_);
    store_.settle();
    inserted_ = 0;
    found_.lvwFOUND->setVisible(false);
    hideSlides();
    const QPointer<SlideList> self = this;
    insertFiles();
    if (!self || !settleBatch()) {
        return;
    }
    FoundButtonsCheck();
    SelectChk();
    found_.lvwFOUND->setVisible(true);
    markModified();
    // On another page than its own it is not in sight.
    if (found_.lvwFOUND->isVisible()) {
        hidden_.leaveKeyboard();
        found_.lvwFOUND->setFocus();
    }
    showSlides();
}

/// Events run where the list is long. False if the window has gone meanwhile.
bool SlideList::settleBatch() {
    const QPointer<SlideList> self = this;
    store_.settleInSteps([self] { return !self || self->stopped_; });
    if (self) {
        store_.settle();
    }
    return !self.isNull();
}

void SlideList::addSelected() {
    const QPointer<SlideList> self = this;
    const int count = found_.lvwFOUND->Count();
    for (int i = 1; self && !stopped_ && i <= count; ++i) {
        const ListItem* row = found_.lvwFOUND->item(i);
        if (row && row->Selected()) {
            files_.expectSelected(i);
            insert(files_.file(i - 1));
        }
    }
}

void SlideList::insertAll(const QList<FoundFile>& files) {
    const QPointer<SlideList> self = this;
    for (const FoundFile& file : files) {
        if (!self || stopped_) {
            return;
        }
        insert(file);
    }
}

void SlideList::AddAll() {
    history_.forgetWaiting();
    const QList<FoundFile> files =
        addAll_.turn.isRunning() ? files_.backwards() : QList<FoundFile>();
    press(
        addAll_, files, [this] { runAddAll([this] { addFolder(); }); },
        [this, files] { runAddAll([this, &files] { insertAll(files); }); });
}

void SlideList::runAddAll(const std::function<void()>& insertFiles) {
    const SlideHistory::Recording step(history_);
    store_.settle();
    inserted_ = 0;
    hideSlides();
    c_.prgBARSLIDES->setWork(QStringLiteral("Adding"), QStringLiteral("Undo takes it back."));
    c_.prgBARSLIDES->setValue(0);
    c_.prgBARSLIDES->setVisible(true);
    setScreenPointer(ScreenPointer::Hourglass);
    const QPointer<SlideList> self = this;
    insertFiles();
    if (!self || !settleBatch()) {
        setScreenPointer(ScreenPointer::Default);
        return;
    }
    c_.prgBARSLIDES->setVisible(false);
    setScreenPointer(ScreenPointer::Default);
    FoundButtonsCheck();
    SelectChk();
    found_.lvwFOUND->setVisible(true);
    markModified();
    showSlides();
}

/// From the last file to the first: each goes in at position 1, which leaves them in folder order.
/// The first round lies past the end and adds nothing; the bar stands at nought meanwhile.
void SlideList::addFolder() {
    const QPointer<SlideList> self = this;
    const int most = c_.lvwSLIDEBAR->Count() + found_.flbFOUND->ListCount();
    c_.lvwSLIDEBAR->reserve(most);
    c_.imlTHUMBNAILS->reserve(most);
    for (int i = found_.flbFOUND->ListCount(); self && !stopped_ && i >= 0; --i) {
        c_.prgBARSLIDES->setMax(found_.flbFOUND->ListCount());
        c_.prgBARSLIDES->setValue(found_.flbFOUND->ListCount() - i);
        files_.expectBackwards(i);
        insert(files_.file(i));
    }
}

}  // namespace velorama

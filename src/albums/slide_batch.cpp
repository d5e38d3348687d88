// Add and AddAll: the batches that make slides of the found list.

#include "albums/slide_list.h"
#include "browse/screen_pointer.h"

namespace velorama {

/// Pressed inside itself the command follows later. The files are those of its press: the lists may
/// show another folder before all are added. A press that repeats the one that waits is the same
/// press. Where all slides are taken away meanwhile it ends with the one that runs.
void SlideList::press(Batch& batch, const QList<FoundFile>& files,
                      const std::function<void()>& add) {
    if (!batch.turn.isRunning()) {
        batch.turn.run(add);
    } else if (!batch.turn.isAwaited() || batch.files != files) {
        batch.files = files;
        batch.turn.run([add, isLeft = batchLeft()] {
            if (!isLeft()) {
                add();
            }
        });
    }
}

void SlideList::Add() {
    history_.forgetWaiting();
    const QList<FoundFile> files = files_.selected();
    press(add_, files, [this, files] { runAdd([this, &files] { insertAll(files); }); });
}

/// Qt would give the keyboard to the next button, and a second Enter press that.
void SlideList::hideFound() {
    QWidget* const window = found_.lvwFOUND->window();
    const bool hasKeyboard = window->focusWidget() == found_.lvwFOUND;
    found_.lvwFOUND->setVisible(false);
    if (hasKeyboard) {
        window->setFocus();
    }
}

void SlideList::runAdd(const std::function<void()>& insertFiles) {
    const SlideHistory::Recording step(history_);
    store_.settle();
    inserted_ = 0;
    hideFound();
    hideSlides();
    const QPointer<SlideList> self = this;
    const IsLeft isLeft = batchLeft();
    insertFiles();
    if (!self || !settleBatch()) {
        return;
    }
    FoundButtonsCheck();
    SelectChk();
    found_.lvwFOUND->setVisible(true);
    if (!isLeft()) {
        markModified();
    }
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

void SlideList::insertAll(const QList<FoundFile>& files) {
    const IsLeft isLeft = batchLeft();
    for (qsizetype i = 0; !isLeft() && i < files.size(); ++i) {
        files_.expectOf(files, i);
        insert(files[i], isLeft);
    }
}

/// From the last file to the first: each goes in at position 1, which leaves them in folder order.
void SlideList::AddAll() {
    history_.forgetWaiting();
    const QList<FoundFile> files = files_.backwards();
    press(addAll_, files, [this, files] { runAddAll([this, &files] { insertFolder(files); }); });
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
    const IsLeft isLeft = batchLeft();
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
    if (!isLeft()) {
        markModified();
    }
    showSlides();
}

/// The same with the bar, which stands at nought first.
void SlideList::insertFolder(const QList<FoundFile>& files) {
    const IsLeft isLeft = batchLeft();
    const int most = c_.lvwSLIDEBAR->Count() + static_cast<int>(files.size());
    c_.lvwSLIDEBAR->reserve(most);
    c_.imlTHUMBNAILS->reserve(most);
    c_.prgBARSLIDES->setMax(static_cast<float>(files.size()));
    c_.prgBARSLIDES->setValue(0);
    for (qsizetype i = 0; !isLeft() && i < files.size(); ++i) {
        c_.prgBARSLIDES->setValue(static_cast<float>(i + 1));
        files_.expectOf(files, i);
        insert(files[i], isLeft);
    }
}

}  // namespace velorama

#include "calls/play_show.h"

#include "core/show_colours.h"

#include <QCoreApplication>

namespace velorama {

PlayShow::PlayShow(ScreenSaver& screenSaver, MediaCommands& device)
    : screenSaver_(screenSaver), audio_(music_, device, cdlDIALOG_) {
    audio_.list.ListboxLoad(*music_.lstMUSIC, musicListName);
}

PlayShow::~PlayShow() {
    keeper_.reset();
    delete form_;
    audio_.closeDevice();
}

void PlayShow::setMusic(const QStringList& files) {
    music_.lstMUSIC->clear();
    for (const QString& file : files) {
        music_.lstMUSIC->addItem(file);
    }
}

void PlayShow::start(const QString& screen, Ways ways) {
    music_.lstMUSIC->setListIndex(0);
    if (ways.lock) {
        lock_ = std::make_unique<InputLock>();
        // Of keys that do nothing nobody is told.
        StartHint::setKeysKnown();
    }
    form_ = new frmSLIDESHOW(*this, screenSaver_);
    form_->slides.round = ways.once ? SlideSequence::Round::Once : SlideSequence::Round::Patient;
    keeper_ = std::make_unique<ScreenKeeper>(*form_, screen);
    form_->load(keeper_->wanted());
}

void PlayShow::end() {
    if (form_) {
        form_->Unload();
    }
}

/// The main window would be back: the show is over. A quit would ask the windows first, and those
/// of a locked show do not close.
void PlayShow::setVisible(bool visible) {
    if (visible) {
        QCoreApplication::exit();
    }
}

/// Without a track the libraries of sound are not wanted.
void PlayShow::AudioPlay() {
    if (hasMusic()) {
        audio_.AudioPlay();
    }
}

void PlayShow::AudioPause() {
    if (hasMusic()) {
        audio_.AudioPause();
    }
}

Colour PlayShow::background() {
    return showBackground();
}

Colour PlayShow::gradient() {
    return showGradient();
}

}  // namespace velorama

#include "music/audio_engine.h"

#include "platform/numbers.h"

namespace velorama {
namespace {

constexpr int PollInterval = 1000;  // milliseconds

}  // namespace

/// A control that is disabled loses the keyboard to whichever comes next in the window. At the end
/// of a step that is back where it was, or on another button of the player if it cannot be.
class AudioEngine::Focus {
public:
    Focus(const MusicControls& controls, size_t instead)
        : instead_(controls.cbtnAUDIO.at(instead)) {
        take(controls.lstMUSIC);
        for (cbtn* button : controls.cbtnAUDIO) {
            take(button);
        }
    }
    Focus(const Focus&) = delete;
    Focus& operator=(const Focus&) = delete;
    ~Focus() {
        QWidget* to = before_ && !before_->isEnabled() ? instead_ : before_;
        if (to && to->window()->focusWidget() != to) {
            to->setFocus();
        }
    }

private:
    void take(QWidget* control) {
        if (control->window()->focusWidget() == control) {
            before_ = control;
        }
    }

    QWidget* before_ = nullptr;
    cbtn* instead_;
};

AudioEngine::AudioEngine(const MusicControls& controls, MediaCommands& device,
                         CommonDialog& cdlDIALOG)
    : list(controls, cdlDIALOG), c_(controls), device_(device) {
    stoppedState();
    connectEvents();
}

void AudioEngine::stoppedState() {
    c_.tmrMUSIC->stop();
    c_.tmrMUSIC->setInterval(PollInterval);
    c_.prgPLAY->setVisible(false);
    enableButtons({4, 3}, false);
}

void AudioEngine::connectEvents() {
    connect(c_.tmrMUSIC, &QTimer::timeout, this, &AudioEngine::tmrMUSIC_Timer);
    connect(c_.lstMUSIC, &ListBox::DblClick, this, &AudioEngine::lstMUSIC_DblClick);
    connect(c_.lstMUSIC, &ListBox::FilesDropped, this,
            [this](const QStringList& paths) { list.MusicDrop(paths); });
    for (int i = 0; i < static_cast<int>(c_.cbtnAUDIO.size()); ++i) {
        connect(c_.cbtnAUDIO.at(static_cast<size_t>(i)), &cbtn::clicked, this,
                [this, i] { cbtnAUDIO_Click(i); });
    }
    connect(c_.Command1, &cbtn::clicked, this, [this] { list.Command1_Click(); });
    connect(c_.Command2, &cbtn::clicked, this, [this] { list.Command2_Click(); });
}

QString AudioEngine::currentRow() const {
    return c_.lstMUSIC->List(c_.lstMUSIC->ListIndex());
}

bool AudioEngine::isPaused() const {
    return !c_.lstMUSIC->Enabled();
}

void AudioEngine::startPolling() {
    // A running timer goes on in its beat: a start would put the next poll off.
    if (!c_.tmrMUSIC->isActive()) {
        c_.tmrMUSIC->start();
    }
}

void AudioEngine::enableButtons(std::initializer_list<int> indexes, bool enabled) {
    for (const int index : indexes) {
        c_.cbtnAUDIO.at(static_cast<size_t>(index))->setEnabled(enabled);
    }
}

void AudioEngine::enableList(bool enabled) {
    c_.lstMUSIC->setEnabled(enabled);
    c_.lstMUSIC->setAccessibleDescription(enabled ? QString() : tr("Paused"));
}

void AudioEngine::openAndPlay() {
    // What fails here is not told: an open track makes the open fail, and the play goes on with it.
    device_.send(u"open \"" + currentRow() + u"\" type MPEGVideo alias CURRFILE");
    device_.send(QStringLiteral("play CURRFILE "));
}

void AudioEngine::AudioPlay() {
    startPolling();
    c_.prgPLAY->setVisible(true);
    openAndPlay();
    enableButtons({4, 3, 2}, true);
    enableList(true);
    emit Changed();
}

void AudioEngine::AudioPause() {
    const Focus focus(c_, 3);
    const bool playing = !isPaused();
    device_.send(playing ? QStringLiteral("pause CURRFILE") : QStringLiteral("Resume CURRFILE"));
    enableButtons({2}, true);
    enableList(!playing);
    emit Changed();
}

void AudioEngine::AudioStop() {
    const Focus focus(c_, 2);
    closeDevice();
    c_.tmrMUSIC->stop();
    c_.prgPLAY->setVisible(false);
    enableButtons({2}, true);
    enableButtons({4, 3}, false);
    enableList(true);
    emit Changed();
}

void AudioEngine::closeDevice() {
    device_.send(QStringLiteral("close CURRFILE"));
}

AudioEngine::State AudioEngine::state() const {
    if (isPaused()) {
        return State::Paused;
    }
    return c_.tmrMUSIC->isActive() ? State::Playing : State::Stopped;
}

qint64 AudioEngine::askMilliseconds(const QString& what) const {
    QString answer;
    device_.send(u"status CURRFILE " + what, &answer);
    // Milliseconds, whatever the time format was set to.
    return static_cast<qint64>(roundHalfEven(numericValue(answer)));
}

qint64 AudioEngine::length() const {
    return askMilliseconds(QStringLiteral("length"));
}

qint64 AudioEngine::position() const {
    return askMilliseconds(QStringLiteral("position"));
}

void AudioEngine::showProgress(int length, int position) {
    c_.lblM1->setCaption(decimalText(length));
    c_.lblM2->setCaption(decimalText(position));
    c_.prgPLAY->setVisible(true);
    if (length > 0) {
        c_.prgPLAY->setMax(static_cast<float>(length));
    }
    c_.prgPLAY->setValue(static_cast<float>(position));
}

void AudioEngine::tmrMUSIC_Timer() {
    device_.send(QStringLiteral("set CURRFILE time format s"));
    const auto wholeLength = static_cast<int>(length() / 1000);
    const auto wholePosition = static_cast<int>(position() / 1000);
    showProgress(wholeLength, wholePosition);
    emit Changed();
    // Whole seconds on purpose: the end is seen in the track's last second. A file that did not
    // open has 0 of 0, and so is over too. A paused track waits there until it goes on.
    if (wholePosition == wholeLength && !isPaused()) {
        nextTrack();
    }
}

void AudioEngine::nextTrack() {
    const Focus focus(c_, 2);
    AudioStop();
    const int row = c_.lstMUSIC->ListIndex();
    if (row < c_.lstMUSIC->ListCount() - 1) {
        c_.lstMUSIC->setListIndex(row + 1);
    } else if (row > 0) {
        c_.lstMUSIC->setListIndex(0);
    }
    openAndPlay();
    enableButtons({4, 3, 2}, true);
    startPolling();
    c_.prgPLAY->setVisible(true);
    c_.lblFile->setCaption(currentRow());
    emit Changed();
}

void AudioEngine::stepRow(int by) {
    const int rows = c_.lstMUSIC->ListCount();
    if (rows == 0) {
        return;
    }
    const State before = state();
    if (before != State::Stopped) {
        AudioStop();
    }
    const int row = c_.lstMUSIC->ListIndex();
    // Without a selected row the first step leads to an end of the list.
    const int from = row < 0 && by < 0 ? 0 : row;
    c_.lstMUSIC->setListIndex(((from + by) % rows + rows) % rows);
    if (before != State::Stopped) {
        AudioPlay();
    }
    if (before == State::Paused) {
        AudioPause();
    }
}

void AudioEngine::lstMUSIC_DblClick() {
    AudioStop();
    AudioPlay();
}

void AudioEngine::cbtnAUDIO_Click(int Index) {
    switch (Index) {
        case 0:
            list.MusicBrowse();
            break;
        case 1:
            list.removeRow();
            break;
        case 2:
            AudioStop();
            AudioPlay();
            break;
        case 3:
            AudioPause();
            break;
        case 4:
            AudioStop();
            break;
        case 5:
            AudioStop();
            c_.lstMUSIC->clear();
            break;
        default:
            break;
    }
}

}  // namespace velorama

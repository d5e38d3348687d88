#include "ui/media_keys.h"

#include "controls/input/keys.h"
#include "core/globals.h"
#include "platform/files/paths.h"

#include <QApplication>

#include <utility>

namespace velorama {
namespace {

using Playback = MediaState::Playback;

// Of the page's buttons.
constexpr int playButton = 2;
constexpr int pauseButton = 3;
constexpr int stopButton = 4;

constexpr qint64 microseconds(qint64 milliseconds) {
    return milliseconds * 1000;
}

}  // namespace

MediaKeys::MediaKeys(QWidget& window, AudioEngine& audio, const MusicControls& music,
                     ShowStart& show, MediaCommands& device, std::shared_ptr<MediaRemote> remote)
    : window_(window),
      audio_(audio),
      music_(music),
      show_(show),
      device_(device),
      remote_(std::move(remote)) {
    const auto refresh = [this] { remote_->refresh(); };
    connect(&audio_, &AudioEngine::Changed, this, refresh);
    connect(&show_, &ShowStart::Changed, this, refresh);
    connect(music_.lstMUSIC, &ListBox::itemSelectionChanged, this, refresh);
    const QAbstractItemModel* rows = music_.lstMUSIC->model();
    connect(rows, &QAbstractItemModel::rowsInserted, this, refresh);
    connect(rows, &QAbstractItemModel::rowsRemoved, this, refresh);
    connect(rows, &QAbstractItemModel::dataChanged, this, refresh);
    connect(rows, &QAbstractItemModel::modelReset, this, refresh);
}

MediaKeys::~MediaKeys() {
    stop();
}

void MediaKeys::start() {
    remote_->attach(*this);
    device_.whenPulled([this] { obey(MediaRequest::Pause); });
}

void MediaKeys::stop() {
    remote_->detach();
    device_.whenPulled({});
}

frmSLIDESHOW* MediaKeys::runningShow() const {
    frmSLIDESHOW* show = show_.form();
    return show && !show->isUnloaded() ? show : nullptr;
}

Playback MediaKeys::playback() const {
    if (const frmSLIDESHOW* show = runningShow()) {
        return show->Paused ? Playback::Paused : Playback::Playing;
    }
    switch (audio_.state()) {
        case AudioEngine::State::Playing:
            return Playback::Playing;
        case AudioEngine::State::Paused:
            return Playback::Paused;
        case AudioEngine::State::Stopped:
            break;
    }
    return Playback::Stopped;
}

QString MediaKeys::fileOf(const QString& row) {
    if (std::exchange(row_, row) != row) {
        file_.clear();
        looks_.ask([this, row]() -> SlowLooks::Answer {
            return [this, row, file = hostFile(row)] {
                if (row == row_) {
                    file_ = file;
                    remote_->refresh();
                }
            };
        });
    }
    return file_;
}

MediaState MediaKeys::state() {
    MediaState state;
    state.playback = playback();
    // A show can be paused and stepped without any music.
    state.canPlay = runningShow() || music_.lstMUSIC->ListCount() > 0;
    state.canStep = state.canPlay;
    state.track = music_.lstMUSIC->ListIndex();
    if (state.track >= 0) {
        const QString path = music_.lstMUSIC->List(state.track);
        state.title = gFileFoldr->FileNameFromPath(path, true);
        state.path = fileOf(path);
        state.length = microseconds(audio_.length());
    }
    return state;
}

qint64 MediaKeys::position() {
    return microseconds(audio_.position());
}

void MediaKeys::obey(MediaRequest request) {
    if (request == MediaRequest::Raise) {
        raise();
    } else if (request == MediaRequest::Quit) {
        quit();
    } else if (frmSLIDESHOW* show = runningShow()) {
        obeyInShow(*show, request);
    } else {
        obeyInWindow(request);
    }
}

/// A button that is off is not to be had this way either.
void MediaKeys::press(int button) {
    music_.cbtnAUDIO.at(static_cast<size_t>(button))->click();
}

void MediaKeys::obeyInWindow(MediaRequest request) {
    const Playback now = playback();
    if (request == MediaRequest::PlayPause) {
        request = now == Playback::Playing ? MediaRequest::Pause : MediaRequest::Play;
    }
    if (request == MediaRequest::Next || request == MediaRequest::Previous) {
        audio_.stepRow(request == MediaRequest::Next ? 1 : -1);
    } else if (request == MediaRequest::Stop) {
        press(stopButton);
    } else if (request == MediaRequest::Play && now == Playback::Stopped) {
        press(playButton);
    } else if (now == (request == MediaRequest::Play ? Playback::Paused : Playback::Playing)) {
        press(pauseButton);
    }
}

void MediaKeys::obeyInShow(frmSLIDESHOW& show, MediaRequest request) {
    if (request == MediaRequest::Next || request == MediaRequest::Previous) {
        show.Form_KeyDown(request == MediaRequest::Next ? KeyRight : KeyLeft, 0);
    } else if (request == MediaRequest::Stop) {
        // The end of a show leaves its music on, and that is to stop too.
        show.btnEXIT_Click();
        press(stopButton);
    } else if (request == MediaRequest::PlayPause ||
               show.isToBePaused() == (request == MediaRequest::Play)) {
        show.Form_MouseUp();
    }
}

void MediaKeys::raise() const {
    QWidget* front = runningShow();
    if (!front) {
        front = QApplication::activeModalWidget();
    }
    for (QWidget* window : {&window_, front}) {
        if (window && !window->isHidden()) {
            window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
            window->raise();
            window->activateWindow();
        }
    }
}

/// The question about unsaved changes is asked over the window, not under a show.
void MediaKeys::quit() {
    show_.unload();
    window_.close();
}

}  // namespace velorama

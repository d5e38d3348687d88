#include "shell/comm.h"

#include "shell/window_number.h"

#include <QEvent>

namespace velorama {

void Comm::CommBind(QWidget& window) {
    window_ = &window;
    window.installEventFilter(this);
    const QPointer<Comm> self(this);
    bus_.bind(windowNumber(window), window.windowTitle(), [self](const QString& text) {
        if (self) {
            emit self->MessageReceived(text);
        }
    });
}

bool Comm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window_ && event->type() == QEvent::WindowTitleChange) {
        bus_.setTitle(window_->windowTitle());
    }
    return false;
}

}  // namespace velorama

#include "core/cls_dlghook.h"

#include "controls/geometry/window_place.h"
#include "platform/numbers.h"

#include <QApplication>
#include <QDialog>
#include <QScreen>
#include <QWindow>

namespace velorama {
namespace {

int middle(int screen, int dialog) {
    return static_cast<int>(roundHalfEven((screen - dialog) * 0.5));
}

}  // namespace

QPoint centredOnScreen(const QRect& screen, const QSize& dialog) {
    return screen.topLeft() +
           QPoint(middle(screen.width(), dialog.width()), middle(screen.height(), dialog.height()));
}

clsDLGHOOK::~clsDLGHOOK() {
    subCMNDLGHOOKCLOSE();
}

void clsDLGHOOK::subCMNDLGHOOKOPEN() {
    if (qApp != nullptr && !hooked_) {
        qApp->installEventFilter(this);
        hooked_ = true;
    }
}

void clsDLGHOOK::subCMNDLGHOOKCLOSE() {
    if (qApp != nullptr && hooked_) {
        qApp->removeEventFilter(this);
    }
    hooked_ = false;
}

bool clsDLGHOOK::eventFilter(QObject* watched, QEvent* event) {
    // Sent before the window reaches the screen, so it never jumps.
    if (event->type() == QEvent::Show && !event->spontaneous()) {
        if (auto* dialog = qobject_cast<QDialog*>(watched)) {
            subCMNDLGHOOKCLOSE();
            centre(*dialog);
        }
    }
    return QObject::eventFilter(watched, event);
}

void clsDLGHOOK::centre(QDialog& dialog) {
    const QWidget* owner = dialog.parentWidget();
    const QScreen* screen = owner ? owner->screen() : dialog.screen();
    if (screen == nullptr) {
        return;
    }
    const QPoint place = centredOnScreen(screen->geometry(), dialog.size() + frameOf(dialog));
    dialog.move(place);
    // The window is already made, and a move would set the corner inside a frame still to come. So
    // would a size that it is given later: one that sizes itself has not yet told its window.
    if (QWindow* window = dialog.windowHandle()) {
        window->resize(dialog.size());
        window->setFramePosition(place);
    }
}

}  // namespace velorama

#include "calls/input_lock.h"

#include <QCoreApplication>
#include <QEvent>

namespace velorama {
namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::HoverEnter:
        case QEvent::HoverMove:
        case QEvent::Wheel:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::ContextMenu:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

}  // namespace

InputLock::InputLock() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool InputLock::eventFilter(QObject*, QEvent* event) {
    if (!isInput(event->type())) {
        return false;
    }
    event->ignore();  // a window that is asked to close stays
    return true;
}

}  // namespace velorama

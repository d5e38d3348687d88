#include "ui/held_keys.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace velorama {
namespace {

Qt::KeyboardModifiers modifierOf(int key) {
    switch (key) {
        case Qt::Key_Shift:
            return Qt::ShiftModifier;
        case Qt::Key_Control:
            return Qt::ControlModifier;
        case Qt::Key_Alt:
            return Qt::AltModifier;
        case Qt::Key_Meta:
            return Qt::MetaModifier;
        default:
            return Qt::NoModifier;
    }
}

}  // namespace

void HeldKeys::begin() {
    before_ = Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    QCoreApplication::instance()->installEventFilter(this);
}

bool HeldKeys::isHeld(const QKeyEvent& press) const {
    return press.isAutoRepeat() || (press.modifiers() & before_) != Qt::NoModifier;
}

bool HeldKeys::eventFilter(QObject*, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease &&
        type != QEvent::ShortcutOverride) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const Qt::KeyboardModifiers modifier = modifierOf(key.key());
    if (modifier != Qt::NoModifier) {
        // It goes up, or is pressed anew.
        before_ &= key.isAutoRepeat() ? before_ : ~modifier;
        return false;
    }
    if (type == QEvent::KeyRelease || !window_.isActiveWindow()) {
        return false;
    }
    if (isHeld(key)) {
        // Taken by nobody, but not left to a shortcut either.
        event->accept();
        return true;
    }
    QCoreApplication::instance()->removeEventFilter(this);
    return false;
}

}  // namespace velorama

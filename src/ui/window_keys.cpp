#include "ui/window_keys.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

#include <utility>

namespace velorama {
namespace {

/// Who types does not mean the slides. The field has no use for Alt with an arrow, and the list
/// around a caption's field would walk on.
bool isTextField(const QWidget* control) {
    return qobject_cast<const QLineEdit*>(control) != nullptr ||
           qobject_cast<const QTextEdit*>(control) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(control) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(control) != nullptr;
}

}  // namespace

WindowKeys::WindowKeys(QWidget& surface, const Pages& pages, const SlideBar& slideBar)
    : surface_(surface), pages_(pages), slideBar_(slideBar) {
    QCoreApplication::instance()->installEventFilter(this);
    connectMove(Qt::ALT | Qt::Key_Left, *slideBar.cbtnCONTROLS[4]);
    connectMove(Qt::ALT | Qt::Key_Right, *slideBar.cbtnCONTROLS[5]);
    connect(shortcut(Qt::Key_F6), &QShortcut::activated, this, [this] { walk(1); });
    connect(shortcut(Qt::SHIFT | Qt::Key_F6), &QShortcut::activated, this, [this] { walk(-1); });
}

QShortcut* WindowKeys::shortcut(const QKeySequence& key) {
    return new QShortcut(key, &surface_);
}

void WindowKeys::connectMove(const QKeySequence& key, cbtn& button) {
    connect(shortcut(key), &QShortcut::activated, &button, [this, &button] {
        if (isTextField(QApplication::focusWidget())) {
            return;
        }
        isRepeat_ ? stepSoon(button) : button.click();
    });
}

/// Once what has come in meanwhile is handled. A step through a very long list takes longer than a
/// held key takes to repeat itself: its repeats would be stepped through after it has been let go.
void WindowKeys::stepSoon(cbtn& button) {
    if (std::exchange(isStepDue_, true)) {
        return;
    }
    const auto step = [this, &button] {
        isStepDue_ = false;
        button.click();
    };
    QMetaObject::invokeMethod(&button, step, Qt::QueuedConnection);
}

/// Shortcuts do not tell of it; this comes before each of them.
bool WindowKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        isRepeat_ = static_cast<const QKeyEvent*>(event)->isAutoRepeat();
    }
    return QObject::eventFilter(watched, event);
}

QList<QWidget*> WindowKeys::parts() const {
    QList<QWidget*> all = pages_.shown().parts();
    const QList<QWidget*> below = slideBar_.tabOrder();
    for (QWidget* control : below) {
        if (control->isEnabled()) {
            all.append(control);  // The first button that can be pressed stands for the toolbar.
            break;
        }
    }
    all.append(slideBar_.slides.lvwSLIDEBAR);
    return all;
}

/// The part that the keyboard is in or behind, in the order of the Tab key; -1 before them all.
qsizetype WindowKeys::partWithFocus(const QList<QWidget*>& parts) const {
    const QList<QWidget*> order = pages_.tabOrder() + slideBar_.tabOrder();
    qsizetype at = -1;
    for (QWidget* control = QApplication::focusWidget(); control != nullptr && at < 0;
         control = control->parentWidget()) {
        at = order.indexOf(control);
    }
    qsizetype last = -1;
    for (qsizetype part = 0; part < parts.size(); ++part) {
        last = order.indexOf(parts[part]) <= at ? part : last;
    }
    return last;
}

void WindowKeys::walk(int step) const {
    const QList<QWidget*> all = parts();
    const qsizetype count = all.size();
    qsizetype part = partWithFocus(all);
    if (part < 0 && step < 0) {
        part = 0;
    }
    for (qsizetype tried = 0; tried < count; ++tried) {
        part = (part + step + count) % count;
        if (all[part]->isVisible() && all[part]->isEnabled()) {
            all[part]->setFocus(Qt::ShortcutFocusReason);
            return;
        }
    }
}

}  // namespace velorama

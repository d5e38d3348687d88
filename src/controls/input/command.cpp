#include "controls/input/command.h"

#include <QMenu>

namespace velorama {

Command::Command(const char* name, const char* caption, const QIcon& icon, const QKeySequence& key)
    : QAction(icon, QLatin1String(caption)) {
    setObjectName(QLatin1String(name));
    setShortcut(key);
    setAutoRepeat(false);
}

void Command::addButton(QAbstractButton& button) {
    button.setEnabled(isEnabled());
    connect(this, &QAction::enabledChanged, &button, &QWidget::setEnabled);
    connect(&button, &QAbstractButton::clicked, this, &QAction::trigger);
}

QAction* Command::addTo(QMenu& popup, const char* name, const char* caption) {
    QAction* entry = popup.addAction(icon(), QLatin1String(caption));
    entry->setObjectName(QLatin1String(name));
    entry->setAutoRepeat(false);
    connect(entry, &QAction::triggered, this, &QAction::triggered);
    return entry;
}

void Command::addFollowing(QMenu& popup, const char* name, const char* caption) {
    QAction* entry = addTo(popup, name, caption);
    entry->setEnabled(isEnabled());
    connect(this, &QAction::enabledChanged, entry, &QAction::setEnabled);
}

}  // namespace velorama

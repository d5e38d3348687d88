#include "controls/input/menu_text.h"

#include <QMenu>
#include <QMenuBar>

namespace velorama {

void mnutxt::start(QMenuBar* bar, const QList<QMenu*>& popups) {
    stop();
    QList<QMenu*> tops = popups;
    if (bar) {
        watched_ << connect(bar, &QMenuBar::hovered, this, &mnutxt::tell);
        for (const QAction* entry : bar->actions()) {
            tops << entry->menu();
        }
    }
    for (const QMenu* popup : popups) {
        if (popup) {
            watched_ << connect(popup, &QMenu::hovered, this, &mnutxt::tell);
        }
    }
    for (const QMenu* top : tops) {
        if (top) {
            watched_ << connect(top, &QMenu::aboutToHide, this, [this] { last_ = nullptr; });
        }
    }
}

void mnutxt::stop() {
    for (const QMetaObject::Connection& connection : std::as_const(watched_)) {
        disconnect(connection);
    }
    watched_.clear();
    last_ = nullptr;
}

// Menus tell each movement of the pointer within an entry.
void mnutxt::tell(const QAction* entry) {
    if (entry != last_ && !entry->isSeparator()) {
        emit MenuHover(entry->text());
    }
    last_ = entry;
}

}  // namespace velorama

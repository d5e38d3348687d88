#include "ui/parts/menu_making.h"

#include "controls/buttons/icon.h"

namespace velorama {

QMenu* makeMenu(QWidget* parent, const char* name, const char* caption) {
    auto* made = new QMenu(QLatin1String(caption), parent);
    made->setObjectName(QLatin1String(name));
    return made;
}

QAction* makeEntry(QMenu* top, const char* name, const char* caption, const char* symbol,
                   const QKeySequence& key) {
    QAction* made = top->addAction(symbolIcon(QLatin1String(symbol)), QLatin1String(caption));
    made->setObjectName(QLatin1String(name));
    made->setShortcut(key);
    // A key held down gives its command once: many a command takes longer than the keyboard waits.
    made->setAutoRepeat(false);
    return made;
}

}  // namespace velorama

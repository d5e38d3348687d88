#include "ui/parts/menu_making.h"

namespace velorama {

QMenu* makeMenu(QWidget* parent, const char* name, const char* caption) {
    auto* made = new QMenu(QLatin1String(caption), parent);
    made->setObjectName(QLatin1String(name));
    return made;
}

}  // namespace velorama

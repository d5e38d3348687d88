#include "controls/buttons/control_making.h"

namespace velorama {

cbtn* makeButton(QWidget* parent, const QString& name, const char* symbol, const char* tooltip,
                 const char* caption) {
    auto* button = new cbtn(parent);
    button->setObjectName(name);
    button->setText(QLatin1String(caption));
    button->setSymbol(QLatin1String(symbol));
    button->setToolTip(QLatin1String(tooltip));
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

}  // namespace velorama

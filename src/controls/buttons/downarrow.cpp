#include "controls/buttons/downarrow.h"

#include "controls/buttons/icon.h"

#include <QPainter>

namespace velorama {

downarrow::downarrow(QWidget* parent) : QWidget(parent) {
    // The button that it stands on is what is clicked.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize downarrow::sizeHint() const {
    const int side = fontMetrics().ascent();
    return {side, side};
}

void downarrow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    paintSymbol(painter, rect(), QStringLiteral("chevron-down"),
                palette().color(group, QPalette::ButtonText));
}

}  // namespace velorama

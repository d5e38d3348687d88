#include "controls/buttons/colour_drop_down.h"

#include "platform/numbers.h"

#include <QScreen>

namespace velorama {

void cbtnddp::Open() {
    if (palette_ != nullptr && palette_->isVisible()) {
        return;
    }
    const QPointer<QWidget> before = button_.window()->focusWidget();
    palette_ = new ColourPalette(colour_, &button_);
    connect(palette_, &ColourPalette::chosen, this, &cbtnddp::take);
    connect(palette_, &ColourPalette::customChosen, this, &cbtnddp::Custom);
    connect(palette_, &ColourPalette::closed, this, [before] {
        if (before != nullptr) {
            before->setFocus(Qt::PopupFocusReason);
        }
    });
    palette_->adjustSize();
    const QPoint corner = dropPlace(QRect(button_.mapToGlobal(QPoint()), button_.size()),
                                    palette_->size(), button_.screen()->availableGeometry());
    palette_->setGeometry(QRect(corner, palette_->size()));
    palette_->show();
}

void cbtnddp::take(Colour colour, bool byKey) {
    setColor(colour);
    if (byKey) {
        emit ColorKey(decimalText(colour));
    } else {
        emit ColorClick(decimalText(colour));
    }
}

}  // namespace velorama

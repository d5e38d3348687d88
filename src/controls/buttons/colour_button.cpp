#include "controls/buttons/colour_button.h"

#include <QHBoxLayout>
#include <QKeyEvent>

namespace velorama {
namespace {

constexpr int Margin = 6;
constexpr int LowMargin = 4;
// Above and below a line of text, as fields have it.
constexpr int LineMargin = 3;

}  // namespace

ColourButton::ColourButton(QWidget* parent)
    : QPushButton(parent), swatch_(new Swatch(this)), arrow_(new downarrow(this)) {
    setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Margin, LowMargin, Margin, LowMargin);
    row->setSpacing(Margin);
    row->addWidget(swatch_, 1);
    row->addWidget(arrow_);
}

void ColourButton::showColour(Colour colour) {
    swatch_->setBackColor(shownColour(colour));
    setToolTip(colourName(colour));
    setAccessibleDescription(colourName(colour));
}

QSize ColourButton::sizeHint() const {
    // As high as a field with a text beside it.
    const QSize content = layout()->sizeHint();
    return {content.width(), qMax(content.height(), fontMetrics().height() + 2 * LineMargin)};
}

void ColourButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down || event->key() == Qt::Key_F4) {
        click();
        return;
    }
    QPushButton::keyPressEvent(event);
}

}  // namespace velorama

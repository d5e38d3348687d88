#include "controls/buttons/colour_button.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

namespace velorama {
namespace {

constexpr int Margin = 6;
constexpr float OutlineStrength = 0.45F;

}  // namespace

QColor shownColour(Colour colour) {
    const Colour plain = qMax(0, OleTranslateColor(colour));
    return {plain & 255, (plain >> 8) & 255, (plain >> 16) & 255};
}

QString colourName(Colour colour) {
    return shownColour(colour).name().toUpper();
}

ColourButton::ColourButton(QWidget* parent)
    : QPushButton(parent), swatch_(new PictureBox(this)), arrow_(new downarrow(this)) {
    setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
    swatch_->setAttribute(Qt::WA_TransparentForMouseEvents);
    swatch_->setMinimumWidth(fontMetrics().averageCharWidth() * 8);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(Margin, Margin, Margin, Margin);
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
    // As high as the buttons with a text beside it.
    const QSize content = layout()->sizeHint();
    return {content.width(), qMax(content.height(), fontMetrics().height() + 2 * Margin)};
}

void ColourButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Down || event->key() == Qt::Key_F4) {
        click();
        return;
    }
    QPushButton::keyPressEvent(event);
}

void ColourButton::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    // A swatch in the colour of the button needs an edge to be seen.
    QColor outline = palette().color(QPalette::ButtonText);
    outline.setAlphaF(OutlineStrength);
    QPainter painter(this);
    painter.setPen(QPen(outline, 1));
    painter.drawRect(QRectF(swatch_->geometry()).adjusted(-0.5, -0.5, 0.5, 0.5));
}

}  // namespace velorama

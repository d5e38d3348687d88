#include "controls/buttons/colour_drop_down.h"

#include "controls/buttons/colour_button.h"
#include "controls/buttons/icon.h"
#include "platform/numbers.h"

#include <QKeyEvent>
#include <QScreen>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace velorama {
namespace {

constexpr int Margin = 6;

void paintSwatch(QPainter& painter, const QRect& place, const QColor& colour,
                 const QColor& outline) {
    painter.setPen(outline);
    painter.setBrush(colour);
    painter.drawRect(place.adjusted(0, 0, -1, -1));
}

}  // namespace

cbtnddp::cbtnddp(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void cbtnddp::setColor(Colour colour) {
    colour_ = colour;
    setAccessibleDescription(colourName(colour));
    update();
}

void cbtnddp::Open(QWidget* anchor) {
    if (palette_ != nullptr && palette_->isVisible()) {
        return;
    }
    const QWidget& place = anchor != nullptr ? *anchor : *this;
    const QPointer<QWidget> before = place.window()->focusWidget();
    palette_ = new ColourPalette(colour_, custom_, this);
    connect(palette_, &ColourPalette::chosen, this, &cbtnddp::take);
    connect(palette_, &ColourPalette::customChosen, this, &cbtnddp::Custom);
    connect(palette_, &ColourPalette::closed, this, [before] {
        if (before != nullptr) {
            before->setFocus(Qt::PopupFocusReason);
        }
    });
    palette_->adjustSize();
    const QPoint corner = dropPlace(QRect(place.mapToGlobal(QPoint()), place.size()),
                                    palette_->size(), place.screen()->availableGeometry());
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

QSize cbtnddp::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    return {metrics.averageCharWidth() * 8 + metrics.ascent() + 3 * Margin,
            metrics.height() + 2 * Margin};
}

void cbtnddp::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    option.initFrom(this);
    option.state |= QStyle::State_Raised;
    painter.drawControl(QStyle::CE_PushButton, option);

    const QColor front =
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText);
    const QRect inside = rect().adjusted(Margin, Margin, -Margin, -Margin);
    const int side = fontMetrics().ascent();
    paintSwatch(painter, inside.adjusted(0, 0, -side - Margin, 0), shownColour(colour_), front);
    QRect arrow(0, 0, side, side);
    arrow.moveCenter(inside.center());
    arrow.moveRight(inside.right());
    paintSymbol(painter, arrow, QStringLiteral("chevron-down"), front);
}

void cbtnddp::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        Open();
    }
}

void cbtnddp::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Space:
        case Qt::Key_Down:
        case Qt::Key_F4:
            Open();
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace velorama

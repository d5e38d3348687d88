#include "controls/buttons/push_button.h"

#include "controls/buttons/contrast.h"
#include "controls/buttons/icon.h"
#include "controls/geometry/caption_room.h"

#include <QKeyEvent>
#include <QPainter>

namespace velorama {
namespace {

constexpr int Margin = 5;
constexpr int Gap = 6;
constexpr qreal Radius = 4;
constexpr float HoverTint = 0.10F;
constexpr float PressedTint = 0.22F;
constexpr float OutlineTint = 0.25F;

QColor faded(QColor colour, float alpha) {
    colour.setAlphaF(colour.alphaF() * alpha);
    return colour;
}

}  // namespace

cbtn::cbtn(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setIconSize({20, 20});
    setBackgroundRole(QPalette::Window);
    connect(this, &QAbstractButton::clicked, this, &cbtn::Click);
}

void cbtn::setSymbol(const QString& name) {
    symbol_ = name;
    updateGeometry();
    update();
}

bool cbtn::hasIcon() const {
    return !symbol_.isEmpty() || !icon().isNull();
}

QString cbtn::shownText() const {
    return compact_ && hasIcon() ? QString() : text();
}

QSize cbtn::sizeHint() const {
    const QString caption = shownText();
    int width = 2 * Margin + (hasIcon() ? iconSize().width() : 0);
    if (!caption.isEmpty()) {
        width += fontMetrics().size(Qt::TextShowMnemonic, caption).width() + (hasIcon() ? Gap : 0) +
                 Margin;
    }
    const int height =
        qMax(hasIcon() ? iconSize().height() : 0, caption.isEmpty() ? 0 : fontMetrics().height());
    return {width, height + 2 * Margin};
}

bool cbtn::event(QEvent* event) {
    if (event->type() == QEvent::ToolTipChange) {
        setAccessibleName(text().isEmpty() ? toolTip() : QString());
    }
    return QAbstractButton::event(event);
}

void cbtn::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!event->isAutoRepeat()) {
            click();
        }
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void cbtn::setPrimary(bool primary) {
    primary_ = primary;
    update();
}

void cbtn::setLeading(bool leading) {
    leading_ = leading;
    update();
}

void cbtn::setCompact(bool compact) {
    compact_ = compact;
    update();
}

QColor cbtn::textColour() const {
    if (primary_ && isEnabled()) {
        return palette().color(QPalette::Active, QPalette::HighlightedText);
    }
    return palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
                           QPalette::ButtonText);
}

bool cbtn::standsOut() const {
    const QWidget* below = parentWidget();
    return below != nullptr &&
           palette().color(backgroundRole()) != below->palette().color(below->backgroundRole());
}

// What lies below a button does not shine through it.
void cbtn::paintPaper(QPainter& painter, const QRectF& ground) const {
    const QColor paper = palette().color(backgroundRole());
    if (standsOut()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(paper);
        painter.drawRoundedRect(ground, Radius, Radius);
    } else {
        painter.fillRect(rect(), paper);
    }
}

void cbtn::paintGround(QPainter& painter) const {
    const QRectF ground = QRectF(rect()).adjusted(1, 1, -1, -1);
    const QColor accent = palette().color(QPalette::Active, QPalette::Highlight);
    paintPaper(painter, ground);
    if (primary_ && isEnabled()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(readableGround(accent, textColour()));
        painter.drawRoundedRect(ground, Radius, Radius);
    }
    if ((!text().isEmpty() || standsOut()) && !(primary_ && isEnabled())) {
        painter.setPen(QPen(faded(textColour(), OutlineTint), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(ground.adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    }
    if (isEnabled() && (isDown() || isChecked() || underMouse())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(faded(textColour(), isDown() || isChecked() ? PressedTint : HoverTint));
        painter.drawRoundedRect(ground, Radius, Radius);
    }
    if (hasFocus()) {
        const bool onAccent = primary_ && isEnabled();
        const qreal inset = onAccent ? 2.5 : 0;
        painter.setPen(QPen(onAccent ? textColour() : accent, 1.5));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(ground.adjusted(inset, inset, -inset, -inset), Radius, Radius);
    }
}

void cbtn::paintIcon(QPainter& painter, const QRect& place) const {
    if (!symbol_.isEmpty()) {
        paintSymbol(painter, place, symbol_, textColour());
    } else {
        icon().paint(&painter, place, Qt::AlignCenter,
                     isEnabled() ? QIcon::Normal : QIcon::Disabled);
    }
}

// In a row that is lower than its design the symbol is smaller.
QSize cbtn::shownIconSize() const {
    const int side = qMin(iconSize().height(), height() - 2);
    return hasIcon() ? QSize(side, side) : QSize(0, 0);
}

void cbtn::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter);

    painter.setFont(fontForHeight(font(), height() - 2));
    const QString caption = shownText();
    const int textWidth =
        caption.isEmpty() ? 0 : painter.fontMetrics().size(Qt::TextShowMnemonic, caption).width();
    const int gap = hasIcon() && textWidth > 0 ? Gap : 0;
    const int iconWidth = shownIconSize().width();
    QRect content(0, 0, qMin(iconWidth + gap + textWidth, width() - 2), height());
    content.moveCenter(rect().center());
    if (leading_ && textWidth > 0) {
        content.moveLeft(2 * Margin);
    }
    if (hasIcon()) {
        QRect place(QPoint(), shownIconSize());
        place.moveCenter(content.center());
        if (textWidth > 0) {
            place.moveLeft(content.left());
        }
        paintIcon(painter, place);
    }
    painter.setPen(textColour());
    painter.drawText(content.adjusted(iconWidth + gap, 0, 0, 0),
                     Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, caption);
}

}  // namespace velorama

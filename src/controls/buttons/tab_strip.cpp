#include "controls/buttons/tab_strip.h"

#include "controls/buttons/tab_strip_access.h"
#include "controls/geometry/caption_room.h"
#include "controls/geometry/twips.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>

#include <algorithm>

namespace velorama {
namespace {

// In twips.
constexpr float EndWidth = 30;
constexpr float TabHeight = 315;
constexpr float Drop = 30;
constexpr float CaptionPadding = 80;
constexpr float BorderTop = 300;

// In pixels.
constexpr qreal Radius = 4;
constexpr qreal MarkThickness = 2;

QRectF inPixels(const QRectF& twips) {
    constexpr qreal scale = 1 / static_cast<qreal>(twipsPerLogicalPixel);
    return {twips.x() * scale, twips.y() * scale, twips.width() * scale, twips.height() * scale};
}

// Round above, open below.
QPainterPath outline(const QRectF& tab) {
    QPainterPath path(tab.bottomLeft());
    path.lineTo(tab.left(), tab.top() + Radius);
    path.quadTo(tab.topLeft(), {tab.left() + Radius, tab.top()});
    path.lineTo(tab.right() - Radius, tab.top());
    path.quadTo(tab.topRight(), {tab.right(), tab.top() + Radius});
    path.lineTo(tab.bottomRight());
    return path;
}

QColor mixed(const QColor& a, const QColor& b, float share) {
    const auto mix = [share](float x, float y) { return x + (y - x) * share; };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()),
                            mix(a.blueF(), b.blueF()));
}

}  // namespace

tab::tab(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::TabFocus);
    setMouseTracking(true);
    installTabStripAccess();
    TabsSetup();
}

short tab::ActiveTab() {
    saved_ = active_;
    return static_cast<short>(active_);
}

void tab::setActiveTab(int number) {
    if (number != static_cast<short>(number)) {
        return;
    }
    if (number != active_) {
        active_ = number;
        if (holds(number)) {
            QAccessibleEvent selected(this, QAccessible::Selection);
            selected.setChild(number - 1);
            QAccessible::updateAccessibility(&selected);
        }
    }
    Redraw();
}

void tab::setActiveTabs(const QString& tabs) {
    tabString_ = tabs;
    TabsSetup();
    Redraw();
}

void tab::AddTab(const QString& caption) {
    tabs_.push_back({caption, {}});
    if (caption.isEmpty()) {
        tabs_.back().caption = tr("Tab %1").arg(Tabcount());
    }
    Redraw();
}

void tab::RemoveTab(int number) {
    if (holds(number)) {
        tabs_.erase(tabs_.begin() + number - 1);
        Redraw();
    }
}

void tab::TabClear() {
    tabs_.clear();
    Redraw();
}

void tab::TabsSetup() {
    TabClear();
    const int count = StringWordCount(tabString_);
    for (int n = 1; n <= count; ++n) {
        AddTab(StringPiece(tabString_, QStringLiteral(","), n));
    }
    setActiveTab(saved_);
}

void tab::Redraw() {
    float left = 0;
    int number = 0;
    for (Tab& each : tabs_) {
        left = layOut(each, left, ++number == active_ ? 0 : Drop);
    }
    update();
}

// The right end of the tab comes back.
float tab::layOut(Tab& each, float left, float top) const {
    const QFontMetricsF font(captionFont());
    const float captionWidth = toTwips(qCeil(font.horizontalAdvance(each.caption)));
    const float captionHeight = toTwips(qCeil(font.height()));
    const float middleWidth = captionWidth + 2 * CaptionPadding;
    each.parts.left = QRectF(left, top, EndWidth, TabHeight);
    left += EndWidth;
    // The top counts half here: the captions of the lower tabs stand one pixel lower, not two.
    each.parts.caption = QRectF(left + CaptionPadding, (top + TabHeight - captionHeight) / 2,
                                captionWidth, captionHeight);
    each.parts.middle = QRectF(left, top, middleWidth, TabHeight);
    left += middleWidth;
    each.parts.right = QRectF(left, top, EndWidth, TabHeight);
    return left + EndWidth;
}

// The tabs keep their height, whatever the font: a larger one would run into the page.
QFont tab::captionFont() const {
    return fontForHeight(font(), toPixels(TabHeight));
}

void tab::SetFont(const QFont& font) {
    setFont(font);
    Redraw();
}

QString tab::Caption(int number) const {
    return holds(number) ? tabs_[static_cast<size_t>(number) - 1].caption : QString();
}

tab::Parts tab::parts(int number) const {
    return holds(number) ? tabs_[static_cast<size_t>(number) - 1].parts : Parts();
}

QRectF tab::bounds(int number) const {
    const Parts each = parts(number);
    return inPixels(each.left | each.middle | each.right);
}

int tab::tabAt(QPointF position) const {
    for (int number = 1; number <= Tabcount(); ++number) {
        const QRectF area = bounds(number);
        if (position.x() >= area.left() && position.x() < area.right() &&
            position.y() >= area.top() && position.y() < area.bottom()) {
            return number;
        }
    }
    return 0;
}

void tab::press(int number) {
    if (holds(number)) {
        setActiveTab(number);
        emit Click(Caption(number));
    }
}

/// A click may lead the keyboard into the page; the next key is for the strip all the same.
void tab::walkTo(int number) {
    const QPointer<tab> alive(this);
    press(number);
    if (alive) {
        setFocus();
    }
}

QString tab::StringPiece(const QString& text, const QString& delimiter, int n) {
    return n >= 1 && !delimiter.isEmpty() ? text.split(delimiter).value(n - 1) : QString();
}

int tab::StringWordCount(const QString& text) {
    if (text.isEmpty()) {
        return 0;
    }
    QString plain = text;
    plain.replace(QStringLiteral("\r\n"), QStringLiteral(","));
    return static_cast<int>(plain.count(u',') + plain.count(u'-')) + 1;
}

int tab::funcCOLORVALEDIT(int colour, int delta) {
    int edited = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const qint64 byte = qint64((colour >> shift) & 0xFF) + delta;
        edited |= static_cast<int>(std::clamp<qint64>(byte, 0, 255)) << shift;
    }
    return edited;
}

QSize tab::sizeHint() const {
    return {qCeil(bounds(Tabcount()).right()), qCeil(BorderTop / twipsPerLogicalPixel) + 100};
}

bool tab::event(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        Redraw();
    }
    return QWidget::event(event);
}

void tab::mousePressEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::LeftButton) {
        press(tabAt(event->position()));
    }
}

void tab::mouseMoveEvent(QMouseEvent* event) {
    setHovered(tabAt(event->position()));
}

void tab::leaveEvent(QEvent*) {
    setHovered(0);
}

void tab::setHovered(int number) {
    if (number != hovered_) {
        hovered_ = number;
        update();
    }
}

void tab::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right: {
            const int step = event->key() == Qt::Key_Right ? 1 : -1;
            walkTo(std::clamp(active_ + step, 1, std::max(1, Tabcount())));
            break;
        }
        case Qt::Key_Home:
            walkTo(1);
            break;
        case Qt::Key_End:
            walkTo(Tabcount());
            break;
        default:
            QWidget::keyPressEvent(event);
    }
}

QColor tab::lineColour() const {
    return mixed(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.28F);
}

void tab::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const qreal top = BorderTop / twipsPerLogicalPixel;
    for (int number = 1; number <= Tabcount(); ++number) {
        if (number != active_) {
            paintTab(painter, number);
        }
    }
    const QRectF frame(0.5, top + 0.5, width() - 1, height() - top - 1);
    painter.setPen(lineColour());
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRect(frame);
    if (holds(active_)) {
        paintTab(painter, active_);
    }
}

void tab::paintTab(QPainter& painter, int number) const {
    const bool active = number == active_;
    QRectF area = bounds(number).adjusted(0.5, 0.5, -0.5, 0);
    area.setBottom(BorderTop / twipsPerLogicalPixel + (active ? 1.0F : 0.0F));
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(lineColour());
    painter.setBrush(active ? palette().color(QPalette::Base)
                            : mixed(window, text, number == hovered_ ? 0.02F : 0.08F));
    painter.drawPath(outline(area));
    if (active) {
        painter.setClipPath(outline(area.adjusted(-0.5, -0.5, 0.5, 0)));
        painter.fillRect(QRectF(area.left() - 1, area.top() - 0.5, area.width() + 2, MarkThickness),
                         palette().color(QPalette::Highlight));
    }
    painter.restore();
    paintCaption(painter, number);
}

void tab::paintCaption(QPainter& painter, int number) const {
    const QRectF caption = inPixels(parts(number).caption);
    QColor colour =
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    if (number != active_) {
        colour.setAlphaF(0.8F);
    }
    painter.setPen(colour);
    painter.setFont(captionFont());
    painter.drawText(caption, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip,
                     Caption(number));
    if (number == active_ && hasFocus()) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(caption.adjusted(-3.5, 0.5, 3.5, 0.5), 3, 3);
        painter.restore();
    }
}

}  // namespace velorama

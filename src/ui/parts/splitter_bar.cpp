#include "ui/parts/splitter_bar.h"

#include <QAccessibleWidget>
#include <QPainter>

namespace velorama {
namespace {

constexpr int gripLength = 26;
constexpr int gripWidth = 2;

QAccessibleInterface* makeAccess(const QString&, QObject* object) {
    auto* bar = qobject_cast<SplitterBar*>(object);
    return bar != nullptr ? new QAccessibleWidget(bar, QAccessible::Splitter) : nullptr;
}

/// A picture box is told of as a filler.
void installAccess() {
    static const bool once = (QAccessible::installFactory(makeAccess), true);
    Q_UNUSED(once)
}

}  // namespace

SplitterBar::SplitterBar(QWidget* parent) : PictureBox(parent) {
    installAccess();
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
}

void SplitterBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), BackColor());
    const bool live = hasFocus() || underMouse();
    QRectF grip(0, 0, gripWidth, live ? height() : gripLength);
    grip.moveCenter(QRectF(rect()).center());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Active, live ? QPalette::Highlight : QPalette::Mid));
    painter.drawRoundedRect(grip, 1, 1);
}

}  // namespace velorama

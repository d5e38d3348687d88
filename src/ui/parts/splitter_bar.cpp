#include "ui/parts/splitter_bar.h"

#include <QPainter>

namespace velorama {
namespace {

constexpr int gripLength = 26;
constexpr int gripWidth = 2;

}  // namespace

SplitterBar::SplitterBar(QWidget* parent) : PictureBox(parent) {
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

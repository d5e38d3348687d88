#include "player/pause_mark.h"

#include <QPainter>

namespace velorama {
namespace {

constexpr int side = 96;
constexpr int shownFor = 1000;

}  // namespace

PauseMark::PauseMark(QWidget* form) : QWidget(form) {
    setObjectName(QStringLiteral("pauseMark"));
    setAccessibleName(QStringLiteral("Slideshow Now Paused"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    resize(side, side);
    hide();
    second_.setSingleShot(true);
    second_.setInterval(shownFor);
    connect(&second_, &QTimer::timeout, this, &QWidget::hide);
}

void PauseMark::showBriefly() {
    move(parentWidget()->rect().center() - rect().center());
    raise();
    show();
    second_.start();
}

void PauseMark::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(24, 24, 28, 200));
    painter.drawRoundedRect(rect(), 16, 16);
    painter.setBrush(Qt::white);
    for (const int left : {30, 54}) {
        painter.drawRoundedRect(left, 26, 12, 44, 2, 2);
    }
}

}  // namespace velorama

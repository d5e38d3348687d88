#include "controls/boxes/progress_bar.h"

#include "platform/numbers.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace velorama {
namespace {

// What assistive tools are told: thousandths of the way.
constexpr int Steps = 1000;
constexpr qreal Thickness = 6;

// Of up to so many steps each one is seen; of more, a screen shows no more often than this in
// milliseconds. A bar painted for each of a thousand slides takes longer than the slides.
constexpr float fewSteps = 100;
constexpr int paintEvery = 16;

QString stepOf(const QString& doing, int step, int count) {
    return doing + u' ' + decimalText(step) + u" of " + decimalText(count);
}

}  // namespace

ProgressBar::ProgressBar(QWidget* parent) : QProgressBar(parent) {
    setRange(0, Steps);
    QProgressBar::setValue(0);
    setTextVisible(false);
    late_.setSingleShot(true);
    connect(&late_, &QTimer::timeout, this, &ProgressBar::showValue);
}

bool ProgressBar::setMin(float min) {
    if (!(min < max_)) {
        return false;
    }
    min_ = min;
    value_ = std::max(value_, min_);
    showValue();
    return true;
}

bool ProgressBar::setMax(float max) {
    if (!(max > 0 && max > min_) || std::isinf(max)) {
        return false;
    }
    max_ = max;
    value_ = std::min(value_, max_);
    showValue();
    return true;
}

bool ProgressBar::setValue(float value) {
    if (!(value >= min_ && value <= max_)) {
        return false;
    }
    value_ = value;
    showValue();
    return true;
}

void ProgressBar::setWork(const QString& doing, const QString& leaving) {
    doing_ = doing;
    leaving_ = leaving;
    toldAlone_.clear();
    setToolTip(leaving);
    setAccessibleDescription(leaving);
    emit Moved();
}

QString ProgressBar::Told() const {
    if (isHidden() || doing_.isEmpty()) {
        return toldAlone_;
    }
    return value_ > 0 ? stepOf(doing_, static_cast<int>(std::lround(value_)),
                               static_cast<int>(std::lround(max_)))
                      : doing_ + QChar(0x2026);
}

void ProgressBar::tell(int step, int count) {
    toldAlone_ = count == 0 ? QString() : stepOf(doing_, step, count);
    emit Moved();
}

bool ProgressBar::event(QEvent* event) {
    const bool done = QProgressBar::event(event);
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) {
        emit Moved();
    }
    return done;
}

int ProgressBar::filledPixels() const {
    const double share = (double(value_) - double(min_)) / (double(max_) - double(min_));
    return static_cast<int>(std::lround(share * width() * devicePixelRatioF()));
}

bool ProgressBar::mayWait() const {
    return max_ - min_ > fewSteps && value_ > min_ && value_ < max_ && sincePainted_.isValid() &&
           !sincePainted_.hasExpired(paintEvery);
}

void ProgressBar::showValue() {
    if (filledPixels() == painted_) {
        return;
    }
    if (mayWait()) {
        if (!late_.isActive()) {
            late_.start(paintEvery);
        }
        return;
    }
    sincePainted_.start();
    const double share = (double(value_) - double(min_)) / (double(max_) - double(min_));
    QProgressBar::setValue(static_cast<int>(std::lround(share * Steps)));
    if (filledPixels() != painted_) {
        repaint();
    }
    emit Moved();
}

void ProgressBar::paintEvent(QPaintEvent*) {
    painted_ = filledPixels();
    const qreal thickness = std::min<qreal>(Thickness, height());
    const QRectF track(0, (height() - thickness) / 2, width(), thickness);
    QColor trackColour = palette().color(QPalette::WindowText);
    trackColour.setAlphaF(0.18F);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(trackColour);
    painter.drawRoundedRect(track, thickness / 2, thickness / 2);
    const QRectF filled(track.topLeft(), QSizeF(painted_ / devicePixelRatioF(), thickness));
    painter.setClipRect(filled);
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawRoundedRect(track, thickness / 2, thickness / 2);
}

QSize ProgressBar::sizeHint() const {
    return {160, static_cast<int>(Thickness) + 4};
}
QSize ProgressBar::minimumSizeHint() const {
    return {10, static_cast<int>(Thickness)};
}

}  // namespace velorama

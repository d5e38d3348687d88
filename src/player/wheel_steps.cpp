#include "player/wheel_steps.h"

#include <cstdlib>
#include <utility>

namespace velorama {
namespace {

/// A notch in eighths of a degree, and in pixels of a touchpad the way that counts as much.
constexpr int notch = QWheelEvent::DefaultDeltasPerStep;
/// Where the system does not tell when fingers come and go (X11): still for so many milliseconds.
constexpr quint64 restBetweenGestures = 300;

bool isWheel(const QWheelEvent& event) {
    const QPoint angle = event.angleDelta();
    return event.phase() == Qt::NoScrollPhase && !angle.isNull() && angle.x() % notch == 0 &&
           angle.y() % notch == 0;
}

/// A touchpad's angles are the system's guess from its pixels: on Wayland ten make a notch, and a
/// swipe over the pad would run through thirty slides.
QPoint distance(const QWheelEvent& event) {
    return isWheel(event) || event.pixelDelta().isNull() ? event.angleDelta() : event.pixelDelta();
}

}  // namespace

int WheelSteps::take(const QWheelEvent& event) {
    if (event.phase() == Qt::ScrollMomentum) {
        return 0;
    }
    const bool rested = event.timestamp() - last_ > restBetweenGestures;
    if (event.phase() == Qt::ScrollBegin || (event.phase() == Qt::NoScrollPhase && rested)) {
        beginGesture();
    }
    last_ = event.timestamp();
    const QPoint moved = distance(event);
    const bool aside = std::abs(moved.x()) > std::abs(moved.y());
    const int steps = aside ? collect(Qt::Horizontal, moved.x()) : collect(Qt::Vertical, moved.y());
    if (!aside || steps == 0 || isWheel(event)) {
        return -steps;
    }
    const bool again = std::exchange(swiped_, true);
    return again ? 0 : (steps < 0 ? 1 : -1);
}

void WheelSteps::beginGesture() {
    collected_ = 0;
    swiped_ = false;
}

/// Whole notches; the rest waits for more of the same way.
int WheelSteps::collect(Qt::Orientation way, int distance) {
    if (way != way_ || (distance < 0) != (collected_ < 0)) {
        collected_ = 0;
    }
    way_ = way;
    collected_ += distance;
    const int steps = collected_ / notch;
    collected_ %= notch;
    return steps;
}

}  // namespace velorama

#pragma once

#include <QWheelEvent>

namespace velorama {

/// Turns the wheel, and two fingers on a touchpad, into steps of a show.
///
/// A notch of the wheel is a step. What a touchpad reports in small pieces is collected to as much;
/// a swipe to the side is one step however far it goes, and what a system adds after the fingers
/// have been lifted is none.
class WheelSteps {
public:
    /// The steps that the event completes: above 0 forward, which is down and to the right, below 0
    /// back.
    int take(const QWheelEvent& event);

private:
    void beginGesture();
    int collect(Qt::Orientation way, int distance);

    Qt::Orientation way_ = Qt::Vertical;
    int collected_ = 0;
    bool swiped_ = false;
    /// Milliseconds of the system's clock.
    quint64 last_ = 0;
};

}  // namespace velorama

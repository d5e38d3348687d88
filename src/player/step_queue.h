#pragma once

#include <QList>

namespace velorama {

/// What moves a show on: the tick of its timer, an arrow, and the button that pauses it.
enum class ShowStep { Tick, Right, Left, Pause };

/// The steps of a show that have been asked for and not been taken, oldest first. One is taken at a
/// time: a step holds the pictures that it loads and leaves picture, caption and counter of one
/// slide.
class StepQueue {
public:
    /// A tick joins only an empty queue: an arrow begins a period of its own, and of two ticks that
    /// wait the timer has run out once. An arrow takes the ticks before it away.
    void add(ShowStep step);

    /// `count` arrows at once, from the wheel. Those that it has asked for before and that wait at
    /// the end of the queue give way to them: a wheel that spins on piles nothing up.
    void addOfWheel(ShowStep arrow, int count);

    /// A period begins anew: the tick that waits was of the one before.
    void dropTicks() { steps_.removeAll(ShowStep::Tick); }

    bool isEmpty() const { return steps_.isEmpty(); }
    /// A show that is paused will not be, or the other way round, once all that waits is taken.
    bool turnsPause() const { return steps_.count(ShowStep::Pause) % 2 != 0; }
    bool isTickNext() const { return !isEmpty() && steps_.first() == ShowStep::Tick; }

    /// Takes the steps to carry out next: one tick, one pause, or all the arrows in front. Of
    /// arrows that have piled up only the last slide is shown.
    QList<ShowStep> takeNext();

private:
    QList<ShowStep> steps_;
    /// How many at the end are the wheel's.
    qsizetype ofWheel_ = 0;
};

}  // namespace velorama

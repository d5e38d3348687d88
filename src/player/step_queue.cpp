#include "player/step_queue.h"

#include <algorithm>

namespace velorama {
namespace {

bool isArrow(ShowStep step) {
    return step == ShowStep::Right || step == ShowStep::Left;
}

}  // namespace

void StepQueue::add(ShowStep step) {
    if (step == ShowStep::Tick && !steps_.isEmpty()) {
        return;
    }
    if (isArrow(step)) {
        dropTicks();
    }
    steps_.append(step);
    ofWheel_ = 0;
}

void StepQueue::addOfWheel(ShowStep arrow, int count) {
    steps_.resize(steps_.size() - std::min(ofWheel_, steps_.size()));
    for (int i = 0; i < count; ++i) {
        add(arrow);
    }
    ofWheel_ = count;
}

QList<ShowStep> StepQueue::takeNext() {
    const auto rest = std::find_if_not(steps_.cbegin(), steps_.cend(), isArrow);
    const qsizetype arrows = rest - steps_.cbegin();
    const qsizetype count = std::min(std::max<qsizetype>(arrows, 1), steps_.size());
    QList<ShowStep> taken = steps_.first(count);
    steps_.remove(0, count);
    return taken;
}

}  // namespace velorama

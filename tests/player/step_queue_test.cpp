#include "player/step_queue.h"

#include <gtest/gtest.h>

namespace velorama {
namespace {

using enum ShowStep;

QList<QList<ShowStep>> batches(const QList<ShowStep>& steps) {
    StepQueue queue;
    for (const ShowStep step : steps) {
        queue.add(step);
    }
    QList<QList<ShowStep>> all;
    while (!queue.isEmpty()) {
        all.append(queue.takeNext());
    }
    return all;
}

TEST(StepQueueTest, IsEmptyAtFirst) {
    EXPECT_TRUE(batches({}).isEmpty());
    EXPECT_TRUE(StepQueue().takeNext().isEmpty());
}

TEST(StepQueueTest, ArrowsThatPileUpAreTakenTogetherInTheirOrder) {
    EXPECT_EQ(batches({Right, Left, Right}), (QList<QList<ShowStep>>{{Right, Left, Right}}));
}

TEST(StepQueueTest, TwoTicksAreOne) {
    EXPECT_EQ(batches({Tick, Tick}), (QList<QList<ShowStep>>{{Tick}}));
}

TEST(StepQueueTest, AnArrowTakesTheTickBeforeItAway) {
    EXPECT_EQ(batches({Tick, Right}), (QList<QList<ShowStep>>{{Right}}));
}

TEST(StepQueueTest, ATickBehindAnArrowIsNoTick) {
    EXPECT_EQ(batches({Right, Tick}), (QList<QList<ShowStep>>{{Right}}));
}

TEST(StepQueueTest, APauseKeepsItsPlaceAmongTheArrows) {
    EXPECT_EQ(batches({Right, Pause, Left, Left, Pause}),
              (QList<QList<ShowStep>>{{Right}, {Pause}, {Left, Left}, {Pause}}));
}

TEST(StepQueueTest, OfTheWheelOnlyTheLastTurnWaits) {
    StepQueue queue;
    queue.addOfWheel(Right, 3);
    queue.addOfWheel(Left, 2);
    EXPECT_EQ(queue.takeNext(), (QList<ShowStep>{Left, Left}));
    queue.addOfWheel(Right, 1);
    EXPECT_EQ(queue.takeNext(), QList<ShowStep>{Right});
    EXPECT_TRUE(queue.isEmpty());
}

TEST(StepQueueTest, TheWheelTakesNoKeyAwayAndNoPause) {
    StepQueue queue;
    queue.add(Tick);
    queue.add(Left);
    queue.addOfWheel(Right, 1);
    queue.add(Left);
    queue.addOfWheel(Right, 1);
    queue.add(Pause);
    queue.addOfWheel(Right, 2);
    queue.addOfWheel(Right, 1);
    EXPECT_EQ(queue.takeNext(), (QList<ShowStep>{Left, Right, Left, Right}));
    EXPECT_EQ(queue.takeNext(), QList<ShowStep>{Pause});
    EXPECT_EQ(queue.takeNext(), QList<ShowStep>{Right});
}

TEST(StepQueueTest, OnlyTheTickIsDroppedWithItsPeriod) {
    StepQueue queue;
    queue.add(Tick);
    EXPECT_TRUE(queue.isTickNext());
    queue.dropTicks();
    EXPECT_TRUE(queue.isEmpty());
    EXPECT_FALSE(queue.isTickNext());
    queue.add(Left);
    queue.dropTicks();
    EXPECT_EQ(queue.takeNext(), QList<ShowStep>{Left});
}

}  // namespace
}  // namespace velorama

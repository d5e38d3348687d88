#include "platform/process/await_work.h"

#include <QCoreApplication>
#include <QSemaphore>
#include <QThread>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>
#include <new>

namespace velorama {
namespace {

const auto stays = [] { return false; };

TEST(AwaitWork, GivesWhatAnotherThreadMade) {
    const auto thread = awaitWork([] { return QThread::currentThreadId(); }, stays);
    ASSERT_TRUE(thread);
    EXPECT_NE(*thread, QThread::currentThreadId());
}

TEST(AwaitWork, EventsRunForOneTurnAtLeast) {
    bool ran = false;
    QTimer::singleShot(0, qApp, [&ran] { ran = true; });
    EXPECT_EQ(awaitWork([] { return 7; }, stays), 7);
    EXPECT_TRUE(ran);
}

TEST(AwaitWork, EventsRunWhileTheWorkDoes) {
    const auto gate = std::make_shared<QSemaphore>();
    QTimer::singleShot(0, qApp, [gate] { gate->release(); });
    const auto waits = [gate] {
        gate->acquire();
        return 7;
    };
    EXPECT_EQ(awaitWork(waits, stays), 7);
}

TEST(AwaitWork, IsLeftThoughTheWorkNeverEnds) {
    const auto gate = std::make_shared<QSemaphore>();
    const auto ended = std::make_shared<QSemaphore>();
    bool left = false;
    QTimer::singleShot(0, qApp, [&left] { left = true; });
    const auto hangs = [gate, ended] {
        gate->acquire();
        ended->release();
        return 7;
    };
    EXPECT_EQ(awaitWork(hangs, [&left] { return left; }), std::nullopt);
    // It is for nobody then, and does no harm.
    gate->release();
    ended->acquire();
}

TEST(AwaitWork, WhatIsDoneButLeftComesToNobody) {
    bool asked = false;
    EXPECT_EQ(awaitWork([] { return 7; }, [&asked] { return asked = true; }), std::nullopt);
    EXPECT_TRUE(asked);
}

TEST(AwaitWork, WorkThatFailsGivesAnEmptyResult) {
    const auto fails = []() -> int { throw std::bad_alloc(); };
    EXPECT_EQ(awaitWork(fails, stays), 0);
}

}  // namespace
}  // namespace velorama

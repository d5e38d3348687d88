#include "platform/process/worker_threads.h"

#include "platform/process/detached_thread.h"

#include <QSemaphore>
#include <QThreadPool>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>

namespace velorama {
namespace {

constexpr std::chrono::milliseconds moment{1};
constexpr std::chrono::minutes longEnough{2};

TEST(Workers, EndAtOnceWhereNoneIsAtWork) {
    EXPECT_TRUE(endWorkers(longEnough));
}

TEST(Workers, APoolThatHangsDoesNotHoldTheEndUp) {
    QSemaphore gate;
    newWorkerPool().start([&gate] { gate.acquire(); });
    EXPECT_FALSE(endWorkers(moment));
    gate.release();
    EXPECT_TRUE(endWorkers(longEnough));
}

TEST(Workers, WhatWaitsInAPoolIsDropped) {
    QSemaphore gate;
    bool ran = false;
    QThreadPool& pool = newWorkerPool();
    pool.setMaxThreadCount(1);
    pool.start([&gate] { gate.acquire(); });
    pool.start([&ran] { ran = true; });
    EXPECT_FALSE(endWorkers(moment));
    gate.release();
    EXPECT_TRUE(endWorkers(longEnough));
    EXPECT_FALSE(ran);
}

TEST(Workers, TheCommonPoolIsWaitedForToo) {
    QSemaphore gate;
    QThreadPool::globalInstance()->start([&gate] { gate.acquire(); });
    EXPECT_FALSE(endWorkers(moment));
    gate.release();
    EXPECT_TRUE(endWorkers(longEnough));
}

TEST(Workers, ADetachedThreadThatHangsDoesNotHoldTheEndUp) {
    const auto gate = std::make_shared<QSemaphore>();
    ASSERT_TRUE(startDetached([gate] { gate->acquire(); }));
    EXPECT_FALSE(endWorkers(moment));
    gate->release();
    EXPECT_TRUE(endWorkers(longEnough));
    // What it owns went before.
    EXPECT_EQ(gate.use_count(), 1);
}

}  // namespace
}  // namespace velorama

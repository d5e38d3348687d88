#include "platform/process/detached_work.h"

#include <QSemaphore>
#include <QThread>

#include <gtest/gtest.h>

#include <new>

#include <pthread.h>

namespace velorama {
namespace {

using namespace std::chrono_literals;

/// While it lives threads ask for larger stacks than there are addresses, so none begins.
class NoThreads {
public:
    NoThreads() {
        pthread_getattr_default_np(&usual_);
        pthread_attr_t greedy;
        pthread_getattr_default_np(&greedy);
        pthread_attr_setstacksize(&greedy, size_t{1} << 50);
        pthread_setattr_default_np(&greedy);
        pthread_attr_destroy(&greedy);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;
    ~NoThreads() {
        pthread_setattr_default_np(&usual_);
        pthread_attr_destroy(&usual_);
    }

private:
    pthread_attr_t usual_;
};

TEST(DetachedWork, GivesWhatAnotherThreadMade) {
    auto thread = detachedWork([] { return QThread::currentThreadId(); });
    ASSERT_TRUE(isDoneWithin(thread, 24h));
    EXPECT_NE(thread.get(), QThread::currentThreadId());
}

TEST(DetachedWork, IsNotWaitedForBeyondTheLimit) {
    const auto gate = std::make_shared<QSemaphore>();
    const std::shared_future<int> seven = detachedWork([gate] {
                                              gate->acquire();
                                              return 7;
                                          }).share();
    EXPECT_FALSE(isDoneWithin(seven, 0ms));
    EXPECT_FALSE(isDoneWithin(seven, 1ms));
    gate->release();
    EXPECT_TRUE(isDoneWithin(seven, 24h));
    EXPECT_EQ(seven.get(), 7);
}

TEST(DetachedWork, GoesOnForNobodyOnceItsFutureIsGone) {
    const auto gate = std::make_shared<QSemaphore>();
    const auto ended = std::make_shared<QSemaphore>();
    detachedWork([gate, ended] {
        gate->acquire();
        ended->release();
    });
    gate->release();
    ended->acquire();
}

TEST(DetachedWork, IsDoneHereWhereNoThreadIsToBeHad) {
    const NoThreads none;
    auto thread = detachedWork([] { return QThread::currentThreadId(); });
    ASSERT_TRUE(isDoneWithin(thread, 0ms));
    EXPECT_EQ(thread.get(), QThread::currentThreadId());
}

TEST(DetachedWork, WorkThatFailsGivesAnEmptyResult) {
    EXPECT_EQ(detachedWork([]() -> int { throw std::bad_alloc(); }).get(), 0);
    std::future<void> nothing = detachedWork([] { throw std::bad_alloc(); });
    EXPECT_NO_THROW(nothing.get());
}

}  // namespace
}  // namespace velorama

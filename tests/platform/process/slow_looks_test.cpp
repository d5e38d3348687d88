#include "platform/process/slow_looks.h"

#include "support/waiting.h"

#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <stdexcept>

namespace velorama {
namespace {

using Answer = SlowLooks::Answer;

TEST(SlowLooksTest, LookElsewhereAndAnswerHere) {
    SlowLooks looks;
    std::atomic<QThread*> looked = nullptr;
    QThread* answered = nullptr;
    looks.ask([&]() -> Answer {
        looked = QThread::currentThread();
        return [&] { answered = QThread::currentThread(); };
    });
    EXPECT_EQ(answered, nullptr);
    ASSERT_TRUE(test::comesTrue([&] { return answered != nullptr; }));
    EXPECT_EQ(answered, QThread::currentThread());
    EXPECT_NE(looked, QThread::currentThread());
}

TEST(SlowLooksTest, OneThatHangsHoldsNoOtherUpAndNoEnd) {
    auto gate = std::make_shared<std::promise<void>>();
    auto opened = std::make_shared<std::future<void>>(gate->get_future());
    std::atomic<bool> isOver = false;
    bool hung = false;
    int answered = 0;
    {
        SlowLooks looks;
        looks.ask([opened, &hung, &isOver]() -> Answer {
            opened->wait();
            isOver = true;
            return [&hung] { hung = true; };
        });
        for (int i = 0; i < 20; ++i) {
            looks.ask([&answered]() -> Answer { return [&answered] { ++answered; }; });
        }
        EXPECT_TRUE(test::comesTrue([&] { return answered == 20; }));
    }
    gate->set_value();
    ASSERT_TRUE(test::comesTrue([&] { return isOver.load(); }));
    QCoreApplication::processEvents();
    EXPECT_FALSE(hung) << "answered to somebody who is gone";
}

// Three threads at most work; what they hold is not dropped any more.
TEST(SlowLooksTest, TheOldestOfTooManyAreDroppedAndToldOf) {
    auto gate = std::make_shared<std::promise<void>>();
    const std::shared_future<void> opened = gate->get_future().share();
    std::atomic<int> begun = 0;
    SlowLooks looks;
    for (int i = 0; i < 3; ++i) {
        looks.ask([opened, &begun]() -> Answer {
            ++begun;
            opened.wait();
            return {};
        });
    }
    ASSERT_TRUE(test::comesTrue([&] { return begun == 3; }));
    int answered = 0;
    QList<int> dropped;
    for (int i = 0; i < 1002; ++i) {
        looks.ask([&answered]() -> Answer { return [&answered] { ++answered; }; },
                  [&dropped, i] { dropped.append(i); });
    }
    EXPECT_TRUE(dropped.isEmpty()) << "told of in the midst of a question";
    gate->set_value();
    EXPECT_TRUE(test::comesTrue([&] { return answered == 1000; }));
    EXPECT_EQ(dropped, QList<int>({0, 1}));
}

TEST(SlowLooksTest, OneThatFailsAnswersNothingAndTheNextOneComes) {
    SlowLooks looks;
    bool answered = false;
    looks.ask([]() -> Answer { throw std::runtime_error("no memory"); });
    looks.ask([]() -> Answer { return {}; });
    looks.ask([&]() -> Answer { return [&] { answered = true; }; });
    EXPECT_TRUE(test::comesTrue([&] { return answered; }));
}

}  // namespace
}  // namespace velorama

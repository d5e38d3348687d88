#include "platform/process/events.h"

#include <QCoreApplication>
#include <QObject>
#include <QTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace velorama {
namespace {

TEST(DoEvents, RunsWhatIsPending) {
    bool ran = false;
    QMetaObject::invokeMethod(
        qApp, [&ran] { ran = true; }, Qt::QueuedConnection);
    EXPECT_FALSE(ran);
    DoEvents();
    EXPECT_TRUE(ran);
}

TEST(DoEvents, DoesNothingOnAnotherThread) {
    bool ran = false;
    QMetaObject::invokeMethod(
        qApp, [&ran] { ran = true; }, Qt::QueuedConnection);
    std::thread([] { DoEvents(); }).join();
    EXPECT_FALSE(ran);
    DoEvents();
    EXPECT_TRUE(ran);
}

TEST(DoEventsUntil, RunsEventsUntilItIsOver) {
    bool ran = false;
    std::thread other([&ran] {
        QMetaObject::invokeMethod(
            qApp, [&ran] { ran = true; }, Qt::QueuedConnection);
    });
    DoEventsUntil([&ran] { return ran; });
    EXPECT_TRUE(ran);
    other.join();
}

TEST(DoEventsUntil, AsksFirst) {
    bool ran = false;
    QMetaObject::invokeMethod(
        qApp, [&ran] { ran = true; }, Qt::QueuedConnection);
    DoEventsUntil([] { return true; });
    EXPECT_FALSE(ran);
    DoEvents();
}

TEST(DoEventsUntil, SleepsWhereNoEventComes) {
    constexpr std::chrono::milliseconds quiet{300};
    constexpr int turns = 10;
    DoEvents();
    int asked = 0;
    bool over = false;
    QTimer::singleShot(quiet, qApp, [&over] { over = true; });
    DoEventsUntil([&] {
        ++asked;
        return over;
    });
    EXPECT_LT(asked, turns);
}

TEST(DoEventsUntil, IsWokenByWhatAWaitInsideHasHandled) {
    bool outer = false;
    bool inner = false;
    std::thread other;
    QTimer::singleShot(0, qApp, [&] {
        other = std::thread([&] {
            QMetaObject::invokeMethod(
                qApp, [&outer] { outer = true; }, Qt::QueuedConnection);
            QMetaObject::invokeMethod(
                qApp, [&inner] { inner = true; }, Qt::QueuedConnection);
        });
        DoEventsUntil([&inner] { return inner; });
    });
    DoEventsUntil([&outer] { return outer; });
    EXPECT_TRUE(inner);
    other.join();
}

TEST(DoEventsUntil, DoesNothingOnAnotherThread) {
    int asked = 0;
    std::thread([&asked] {
        DoEventsUntil([&asked] {
            ++asked;
            return false;
        });
    }).join();
    EXPECT_EQ(asked, 0);
}

TEST(PaintEvents, RunsWhatIsPending) {
    bool ran = false;
    QMetaObject::invokeMethod(
        qApp, [&ran] { ran = true; }, Qt::QueuedConnection);
    PaintEvents();
    EXPECT_TRUE(ran);
}

TEST(PaintEvents, DoesNothingOnAnotherThread) {
    bool ran = false;
    QMetaObject::invokeMethod(
        qApp, [&ran] { ran = true; }, Qt::QueuedConnection);
    std::thread([] { PaintEvents(); }).join();
    EXPECT_FALSE(ran);
    DoEvents();
    EXPECT_TRUE(ran);
}

}  // namespace
}  // namespace velorama

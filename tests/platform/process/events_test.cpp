#include "platform/process/events.h"

#include <QCoreApplication>
#include <QObject>

#include <gtest/gtest.h>

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

TEST(DoEventsUntil, AsksAgainWhereNoEventComes) {
    int asked = 0;
    DoEventsUntil([&asked] { return ++asked == 5; });
    EXPECT_EQ(asked, 5);
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

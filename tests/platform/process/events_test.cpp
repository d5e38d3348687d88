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

#include "platform/process/termination.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <csignal>

namespace velorama {
namespace {

class Termination : public testing::TestWithParam<int> {};

TEST_P(Termination, ARequestIsCarriedOutFromTheEventLoop) {
    int calls = 0;
    const TerminationWatch watch([&calls] { ++calls; });
    ::raise(GetParam());
    EXPECT_EQ(calls, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 1);
}

INSTANTIATE_TEST_SUITE_P(Requests, Termination, testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST_P(Termination, ARefusedRequestLeavesTheNextOneAFirst) {
    int calls = 0;
    const TerminationWatch watch([&calls] { ++calls; });
    for (int request = 1; request <= 3; ++request) {
        ::raise(GetParam());
        QCoreApplication::processEvents();
        EXPECT_EQ(calls, request);
    }
}

TEST(TerminationDeathTest, ARequestWhileTheFirstIsCarriedOutEndsTheProcess) {
    EXPECT_EXIT(
        {
            const TerminationWatch watch([] { ::raise(SIGTERM); });
            ::raise(SIGTERM);
            QCoreApplication::processEvents();
        },
        testing::KilledBySignal(SIGTERM), "");
}

TEST(TerminationDeathTest, ASecondRequestEndsTheProcess) {
    EXPECT_EXIT(
        {
            const TerminationWatch watch([] {});
            ::raise(SIGTERM);
            ::raise(SIGTERM);
        },
        testing::KilledBySignal(SIGTERM), "");
}

}  // namespace
}  // namespace velorama

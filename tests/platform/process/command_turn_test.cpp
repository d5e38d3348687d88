#include "platform/process/command_turn.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace velorama {
namespace {

class CommandTurnTest : public testing::Test {
protected:
    /// A command that notes its number at its beginning and end and does `inside` between.
    CommandTurn::Command noted(
        int number, std::function<void()> inside = [] {}) {
        return [this, number, inside = std::move(inside)] {
            log.push_back(number);
            inside();
            log.push_back(-number);
        };
    }

    std::optional<CommandTurn> turn{std::in_place};
    std::vector<int> log;
};

TEST_F(CommandTurnTest, RunsAtOnce) {
    turn->run(noted(1));
    EXPECT_EQ(log, std::vector<int>({1, -1}));
    EXPECT_FALSE(turn->isRunning());
}

TEST_F(CommandTurnTest, WhatIsPressedInsideRunsBehindInItsOrder) {
    turn->run(noted(1, [this] {
        EXPECT_TRUE(turn->isRunning());
        EXPECT_FALSE(turn->isAwaited());
        turn->run(noted(2, [this] { turn->run(noted(4)); }));
        turn->run(noted(3));
        EXPECT_TRUE(turn->isAwaited());
    }));
    EXPECT_EQ(log, std::vector<int>({1, -1, 2, -2, 3, -3, 4, -4}));
    EXPECT_FALSE(turn->isRunning());
    EXPECT_FALSE(turn->isAwaited());
}

TEST_F(CommandTurnTest, TheLastTakesThePlaceOfThoseThatWait) {
    turn->runLast(noted(1, [this] {
        turn->runLast(noted(2));
        turn->runLast(noted(3));
    }));
    EXPECT_EQ(log, std::vector<int>({1, -1, 3, -3}));
}

TEST_F(CommandTurnTest, DestroyedByItsCommandItDropsWhatWaits) {
    turn->run(noted(1, [this] {
        turn->run(noted(2));
        turn.reset();
    }));
    EXPECT_EQ(log, std::vector<int>({1, -1}));
}

}  // namespace
}  // namespace velorama

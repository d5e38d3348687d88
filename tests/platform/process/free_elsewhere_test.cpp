#include "platform/process/free_elsewhere.h"

#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <vector>

namespace velorama {
namespace {

/// Tells in which thread it went.
class Part {
public:
    explicit Part(std::atomic<QThread*>& end) : end_(end) {}
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;
    ~Part() { end_ = QThread::currentThread(); }

private:
    std::atomic<QThread*>& end_;
};

std::vector<std::unique_ptr<Part>> parts(std::size_t count, std::atomic<QThread*>& end) {
    std::vector<std::unique_ptr<Part>> made;
    for (std::size_t i = 0; i < count; ++i) {
        made.push_back(std::make_unique<Part>(end));
    }
    return made;
}

TEST(FreeElsewhere, AnotherThreadFreesWhatIsLong) {
    std::atomic<QThread*> end = nullptr;
    auto rows = parts(1000, end);
    freeElsewhere(rows);
    EXPECT_TRUE(rows.empty());
    QThreadPool::globalInstance()->waitForDone();
    EXPECT_NE(end, nullptr);
    EXPECT_NE(end, QThread::currentThread());
}

TEST(FreeElsewhere, WhatIsShortGoesAtOnce) {
    std::atomic<QThread*> end = nullptr;
    auto rows = parts(999, end);
    freeElsewhere(rows);
    EXPECT_TRUE(rows.empty());
    EXPECT_EQ(end, QThread::currentThread());
}

}  // namespace
}  // namespace velorama

#include "imaging/decode/memory_share.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace velorama {
namespace {

TEST(MemoryShare, is_given_up_to_the_largest) {
    MemoryPool pool(100, 70);
    EXPECT_TRUE(MemoryShare(pool, 0));
    EXPECT_TRUE(MemoryShare(pool, 70));
    EXPECT_FALSE(MemoryShare(pool, 71));
    EXPECT_FALSE(MemoryShare(pool, -1));
}

TEST(MemoryShare, goes_back_when_it_ends) {
    MemoryPool pool(100, 100);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(MemoryShare(pool, 100));
    }
}

TEST(MemoryShare, leaves_room_beside_the_largest) {
    MemoryPool pool(100, 70);
    const MemoryShare large(pool, 70);
    const MemoryShare small(pool, 30);
    EXPECT_TRUE(large && small);
}

TEST(MemoryShare, never_lets_threads_have_more_than_there_is) {
    MemoryPool pool(100, 70);
    std::atomic<int> taken = 0;
    std::atomic<int> most = 0;
    {
        std::vector<std::jthread> threads;
        for (const int bytes : {70, 60, 45, 30, 20, 5}) {
            threads.emplace_back([&, bytes] {
                for (int i = 0; i < 2000; ++i) {
                    const MemoryShare share(pool, bytes);
                    const int now = taken += bytes;
                    int before = most;
                    while (now > before && !most.compare_exchange_weak(before, now)) {
                    }
                    taken -= bytes;
                }
            });
        }
    }
    EXPECT_LE(most, 100);
    EXPECT_GE(most, 70);
}

}  // namespace
}  // namespace velorama

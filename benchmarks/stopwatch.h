#pragma once

#include <chrono>

namespace velorama::bench {

/// Milliseconds since it was made.
class Stopwatch {
public:
    double milliseconds() const {
        return std::chrono::duration<double, std::milli>(Clock::now() - begin_).count();
    }

private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point begin_ = Clock::now();
};

}  // namespace velorama::bench

#pragma once

#include "imaging/ahead/picture_threads.h"

#include <QSemaphore>

namespace velorama::test {

/// Keeps every thread that loads pictures from its work, as a slow disk would.
class BusyThreads {
public:
    BusyThreads() {
        for (int i = 0; i < count_; ++i) {
            pictureThreads().start([this] { end_.acquire(); });
        }
    }
    BusyThreads(const BusyThreads&) = delete;
    BusyThreads& operator=(const BusyThreads&) = delete;
    ~BusyThreads() {
        release();
        pictureThreads().waitForDone();
    }

    /// Lets them go on.
    void release() {
        if (isBusy_) {
            end_.release(count_);
        }
        isBusy_ = false;
    }
    bool isBusy() const { return isBusy_; }

private:
    const int count_ = pictureThreads().maxThreadCount();
    QSemaphore end_;
    bool isBusy_ = true;
};

}  // namespace velorama::test

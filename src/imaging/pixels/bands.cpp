#include "imaging/pixels/bands.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace velorama {
namespace {

class Helper {
public:
    Helper() : thread_([this](const std::stop_token& stop) { serve(stop); }) {}

    /// False if the helper is at work for somebody else.
    bool start(const std::function<void(int, int)>& work, int first, int end) {
        const std::lock_guard lock(mutex_);
        if (work_ != nullptr) {
            return false;
        }
        work_ = &work;
        first_ = first;
        end_ = end;
        wake_.notify_one();
        return true;
    }

    void wait() {
        std::unique_lock lock(mutex_);
        done_.wait(lock, [this] { return ready_; });
        ready_ = false;
        work_ = nullptr;
    }

private:
    void serve(const std::stop_token& stop) {
        std::unique_lock lock(mutex_);
        while (wake_.wait(lock, stop, [this] { return work_ != nullptr && !ready_; })) {
            lock.unlock();
            (*work_)(first_, end_);
            lock.lock();
            ready_ = true;
            done_.notify_one();
        }
    }

    std::mutex mutex_;
    std::condition_variable_any wake_;
    std::condition_variable done_;
    const std::function<void(int, int)>* work_ = nullptr;
    int first_ = 0;
    int end_ = 0;
    bool ready_ = false;
    std::jthread thread_;
};

}  // namespace

void inBands(int rows, const std::function<void(int, int)>& work) {
    static const bool several = std::thread::hardware_concurrency() > 1;
    if (!several) {
        work(0, rows);
        return;
    }
    static Helper helper;
    const int middle = rows / 2;
    const bool shared = helper.start(work, middle, rows);
    work(0, shared ? middle : rows);
    if (shared) {
        helper.wait();
    }
}

}  // namespace velorama

#include "platform/process/slow_looks.h"

#include "platform/process/detached_thread.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <utility>

namespace velorama {
namespace {

// One place that does not answer leaves the others theirs.
constexpr int mostThreads = 3;
constexpr std::size_t mostWaiting = 1000;

// A look takes a millisecond where the disk answers, and had better be over when the program ends.
constexpr std::chrono::milliseconds moment{200};

SlowLooks::Answer answerOf(const SlowLooks::Look& look) {
    try {
        return look();
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace

struct SlowLooks::Shared {
    std::mutex lock;
    std::condition_variable ended;
    SlowLooks* asker = nullptr;
    struct Asked {
        Look look;
        Answer ifDropped;
    };
    std::deque<Asked> waiting;
    int working = 0;

    void tell(const Answer& answer) const {
        if (answer && asker != nullptr) {
            QMetaObject::invokeMethod(asker, answer, Qt::QueuedConnection);
        }
    }
};

SlowLooks::SlowLooks(QObject* parent) : QObject(parent), shared_(std::make_shared<Shared>()) {
    shared_->asker = this;
}

SlowLooks::~SlowLooks() {
    std::unique_lock held(shared_->lock);
    shared_->asker = nullptr;
    shared_->waiting.clear();
    shared_->ended.wait_for(held, moment, [this] { return shared_->working == 0; });
}

void SlowLooks::ask(Look look, Answer ifDropped) {
    const std::lock_guard held(shared_->lock);
    shared_->waiting.push_back({std::move(look), std::move(ifDropped)});
    if (shared_->waiting.size() > mostWaiting) {
        shared_->tell(shared_->waiting.front().ifDropped);
        shared_->waiting.pop_front();
    }
    if (shared_->working < mostThreads && startDetached([shared = shared_] { work(shared); })) {
        ++shared_->working;
    }
}

void SlowLooks::work(const std::shared_ptr<Shared>& shared) {
    std::unique_lock held(shared->lock);
    while (!shared->waiting.empty()) {
        const Look look = std::move(shared->waiting.back().look);
        shared->waiting.pop_back();
        held.unlock();
        const Answer answer = answerOf(look);
        held.lock();
        shared->tell(answer);
    }
    --shared->working;
    shared->ended.notify_all();
}

}  // namespace velorama

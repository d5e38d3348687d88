#include "platform/process/worker_threads.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThreadPool>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <vector>

namespace velorama {
namespace {

struct Workers {
    std::mutex lock;
    std::condition_variable ended;
    int detached = 0;
    std::vector<QThreadPool*> pools;
};

/// Never taken down: a thread may come to its end after all that is static has gone.
Workers& workers() {
    static auto* const all = new Workers;
    return *all;
}

std::vector<QThreadPool*> pools() {
    const std::lock_guard held(workers().lock);
    return workers().pools;
}

/// Before anything that the work needs is taken down.
void endPools() {
    for (QThreadPool* pool : pools()) {
        pool->clear();
        pool->waitForDone();
    }
}

bool endDetached(const QDeadlineTimer& end) {
    Workers& all = workers();
    std::unique_lock held(all.lock);
    return all.ended.wait_for(held, std::chrono::milliseconds(end.remainingTime()),
                              [&all] { return all.detached == 0; });
}

}  // namespace

QThreadPool& newWorkerPool() {
    auto* const pool = new QThreadPool;
    const std::lock_guard held(workers().lock);
    if (workers().pools.empty()) {
        qAddPostRoutine(endPools);
    }
    workers().pools.push_back(pool);
    return *pool;
}

bool endWorkers(std::chrono::milliseconds limit) {
    const QDeadlineTimer end(limit);
    std::vector<QThreadPool*> all = pools();
    for (QThreadPool* pool : all) {
        pool->clear();
    }
    all.push_back(QThreadPool::globalInstance());
    const auto isOver = [&end](QThreadPool* pool) {
        return pool->waitForDone(static_cast<int>(end.remainingTime()));
    };
    return std::all_of(all.begin(), all.end(), isOver) && endDetached(end);
}

void countDetached(int more) {
    const std::lock_guard held(workers().lock);
    workers().detached += more;
    workers().ended.notify_all();
}

}  // namespace velorama

#pragma once

#include "platform/process/detached_thread.h"

#include <chrono>
#include <exception>
#include <future>
#include <memory>
#include <type_traits>
#include <utility>

namespace velorama {

/// What `work` gives, or an empty result where it fails with an exception.
template <typename Work>
std::invoke_result_t<Work&> resultOf(Work& work) {
    try {
        return work();
    } catch (const std::exception&) {
        return std::invoke_result_t<Work>();
    }
}

/// What `work` gives, made on a thread of its own that nobody waits for: it has to own what it
/// works on, and goes on for nobody once the future is gone. Where no thread is to be had, the
/// caller's does it. Work that fails with an exception gives an empty result.
template <typename Work>
std::future<std::invoke_result_t<Work>> detachedWork(Work work) {
    using Result = std::invoke_result_t<Work>;
    const auto task = std::make_shared<std::packaged_task<Result()>>(
        [work = std::move(work)]() mutable { return resultOf(work); });
    std::future<Result> result = task->get_future();
    if (!startDetached([task] { (*task)(); })) {
        (*task)();
    }
    return result;
}

/// Lets no events run. The future of `detachedWork`, or one shared of it.
template <typename Future>
bool isDoneWithin(const Future& future, std::chrono::milliseconds limit) {
    return future.wait_for(limit) == std::future_status::ready;
}

}  // namespace velorama

#pragma once

#include "platform/process/detached_work.h"
#include "platform/process/events.h"

#include <QFutureWatcher>
#include <QPromise>

#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

namespace velorama {

/// Lets events run until `future` is finished or `isLeft`, which is asked after each turn of them.
/// False if it was left.
template <typename Result>
bool awaitFuture(const QFuture<Result>& future, const std::function<bool()>& isLeft,
                 Events events = Events::All) {
    QFutureWatcher<Result> waker;
    waker.setFuture(future);
    DoEventsUntil([&] { return future.isFinished() || isLeft(); }, events);
    return !isLeft();
}

/// What `work` gives, made on a thread of its own while events run, at least for one turn. Nothing
/// as soon as `isLeft`: the work then goes on for nobody, be it for ever on a disk that hangs, so
/// it has to own what it works on. Where no thread is to be had, the caller's does it.
/// Work that fails with an exception gives an empty result.
template <typename Work>
std::optional<std::invoke_result_t<Work>> awaitWork(const Work& work,
                                                    const std::function<bool()>& isLeft,
                                                    Events events = Events::All) {
    using Result = std::invoke_result_t<Work>;
    QPromise<Result> promise;
    const QFuture<Result> future = promise.future();
    promise.start();
    const bool started = startDetached([promise = std::move(promise), work = work]() mutable {
        promise.addResult(resultOf(work));
        promise.finish();
    });
    events == Events::All ? DoEvents() : PaintEvents();
    if (!awaitFuture(future, isLeft, events)) {
        return std::nullopt;
    }
    return started ? future.result() : resultOf(work);
}

}  // namespace velorama

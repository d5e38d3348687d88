#pragma once

#include "platform/process/worker_threads.h"

#include <system_error>
#include <thread>
#include <utility>

namespace velorama {

/// Starts a thread that nobody waits for, and that owns all it works on. False if none is to be
/// had. The end of the program gives it a moment (`endWorkers`).
template <typename Work>
bool startDetached(Work work) {
    countDetached(1);
    try {
        std::thread([work = std::move(work)]() mutable {
            {
                // What it owns goes before it counts as ended.
                Work owned = std::move(work);
                owned();
            }
            countDetached(-1);
        }).detach();
        return true;
    } catch (const std::system_error&) {
        countDetached(-1);
        return false;
    }
}

}  // namespace velorama

#pragma once

#include <system_error>
#include <thread>
#include <utility>

namespace velorama {

/// Starts a thread that nobody waits for, and that owns all it works on. False if none is to be
/// had.
template <typename Work>
bool startDetached(Work work) {
    try {
        std::thread(std::move(work)).detach();
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

}  // namespace velorama

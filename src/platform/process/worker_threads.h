#pragma once

#include <chrono>

class QThreadPool;

namespace velorama {

/// A pool that lives as long as the process. What waits in it at the end of the program is dropped;
/// what runs is waited for by `endWorkers`, or else by the end of the application object.
QThreadPool& newWorkerPool();

/// Ends the work on those pools, the common pool and all detached threads of this library. False if
/// one is still at work when `limit` is over, as where a disk does not answer: then nothing may be
/// taken down that it could use, and the process has to be left without that.
bool endWorkers(std::chrono::milliseconds limit);

/// Counts the detached threads, for `endWorkers`. Any thread.
void countDetached(int more);

}  // namespace velorama

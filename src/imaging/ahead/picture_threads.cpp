#include "imaging/ahead/picture_threads.h"

#include "platform/process/worker_threads.h"

namespace velorama {

QThreadPool& pictureThreads() {
    static QThreadPool& threads = newWorkerPool();
    return threads;
}

}  // namespace velorama

#include "imaging/pixels/bands.h"

#include <qtconcurrenttask.h>

namespace velorama {

void inBands(int rows, const std::function<void(int, int)>& work) {
    constexpr int aheadOfPictures = 1;  // those that wait for a thread of the pool
    const int middle = rows / 2;
    QFuture<void> lower =
        QtConcurrent::task([&] { work(middle, rows); }).withPriority(aheadOfPictures).spawn();
    work(0, middle);
    lower.waitForFinished();
}

}  // namespace velorama

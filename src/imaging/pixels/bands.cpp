#include "imaging/pixels/bands.h"

#include <qtconcurrenttask.h>

namespace velorama {

void inBands(int rows, const std::function<void(int, int)>& work) {
    const int middle = rows / 2;
    QFuture<void> lower = QtConcurrent::task([&] { work(middle, rows); }).spawn();
    work(0, middle);
    lower.waitForFinished();
}

}  // namespace velorama

#pragma once

#include <QThreadPool>

namespace velorama {

/// The threads that load pictures, as many as there are processors. The program's common pool is
/// not for that: Qt paints and converts large images on it, and whoever paints would wait until
/// pictures are loaded. At the end of the program they end as `newWorkerPool` tells.
QThreadPool& pictureThreads();

}  // namespace velorama

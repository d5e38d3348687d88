#include "imaging/ahead/picture_threads.h"

#include <QCoreApplication>

namespace velorama {
namespace {

/// Before anything that the work needs is taken down.
void endPictureThreads() {
    pictureThreads().clear();
    pictureThreads().waitForDone();
}

}  // namespace

QThreadPool& pictureThreads() {
    static QThreadPool threads;
    [[maybe_unused]] static const bool ends = [] {
        qAddPostRoutine(endPictureThreads);
        return true;
    }();
    return threads;
}

}  // namespace velorama

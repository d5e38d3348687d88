#include "platform/events.h"

#include <QCoreApplication>
#include <QThread>

namespace velorama {

void DoEvents() {
    const QCoreApplication* app = QCoreApplication::instance();
    if (app != nullptr && QThread::currentThread() == app->thread()) {
        QCoreApplication::processEvents();
    }
}

}  // namespace velorama

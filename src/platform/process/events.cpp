#include "platform/process/events.h"

#include <QCoreApplication>
#include <QThread>

namespace velorama {
namespace {

void processEvents(QEventLoop::ProcessEventsFlags flags) {
    const QCoreApplication* app = QCoreApplication::instance();
    if (app != nullptr && QThread::currentThread() == app->thread()) {
        QCoreApplication::processEvents(flags);
    }
}

}  // namespace

void DoEvents() {
    processEvents(QEventLoop::AllEvents);
}

void WaitEvents() {
    processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void PaintEvents() {
    processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace velorama

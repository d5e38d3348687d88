#include "platform/process/events.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <chrono>

namespace velorama {
namespace {

constexpr std::chrono::seconds longestPainting{2};

bool isOnEventThread() {
    const QCoreApplication* app = QCoreApplication::instance();
    return app != nullptr && QThread::currentThread() == app->thread();
}

void processEvents(QEventLoop::ProcessEventsFlags flags) {
    if (isOnEventThread()) {
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

void DoEventsUntil(const std::function<bool()>& isOver, Events events) {
    if (!isOnEventThread() || isOver()) {
        return;
    }
    QTimer first;
    first.setSingleShot(true);
    if (events == Events::PaintingFirst) {
        first.start(longestPainting);
    }
    // What comes in between two turns is still to be handled, so that the next one does not sleep;
    // what a wait inside this one has handled was in a turn of this one too.
    while (!isOver()) {
        const bool isPainting = events == Events::Painting || first.isActive();
        const QEventLoop::ProcessEventsFlags which =
            isPainting ? QEventLoop::ExcludeUserInputEvents : QEventLoop::AllEvents;
        processEvents(which | QEventLoop::WaitForMoreEvents);
    }
}

void PaintEvents() {
    processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace velorama

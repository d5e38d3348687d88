#include "platform/process/events.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <chrono>

namespace velorama {
namespace {

// What was to wake a wait may have been taken by another inside it.
constexpr std::chrono::milliseconds longestSleep{10};

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

void DoEventsUntil(const std::function<bool()>& isOver) {
    if (!isOnEventThread() || isOver()) {
        return;
    }
    QTimer alarm;
    alarm.start(longestSleep);
    while (!isOver()) {
        processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
}

void PaintEvents() {
    processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace velorama

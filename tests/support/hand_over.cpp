// Linked into the tests under the thread sanitizer only, before Qt: what goes to a task on a pool
// of Qt's and comes back from it is handed over under locks that the sanitizer does not see, as Qt
// is not built for it. Here it is told. All tasks have one mark in common, so that more is taken
// for ordered than is: a race between tasks that run at the same time is found, one between tasks
// that chance lets run one after the other may not be. A call that is left to the thread of an
// object is handed over as well, with the object for its mark.
#include <QEvent>
#include <QFutureInterface>
#include <QMetaObject>
#include <QObject>
#include <QThreadPool>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>
#include <functional>
#include <utility>

namespace {

char handedOver;

using OfFuture = void (*)(QFutureInterfaceBase*);
using AskOfFuture = bool (*)(const QFutureInterfaceBase*);

/// The function of that name that Qt itself has.
template <typename Function>
Function qtsOwn(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

void QThreadPool::start(QRunnable* runnable, int priority) {
    using Start = void (*)(QThreadPool*, QRunnable*, int);
    static const auto own = qtsOwn<Start>("_ZN11QThreadPool5startEP9QRunnablei");
    __tsan_release(&handedOver);
    own(this, runnable, priority);
}

void QThreadPool::start(std::function<void()> work, int priority) {
    using Start = void (*)(QThreadPool*, std::function<void()>, int);
    static const auto own = qtsOwn<Start>("_ZN11QThreadPool5startESt8functionIFvvEEi");
    // Moved on: what the work holds goes with the task, and not here.
    std::function<void()> seen = [work = std::move(work)] {
        __tsan_acquire(&handedOver);
        work();
    };
    __tsan_release(&handedOver);
    own(this, std::move(seen), priority);
}

// The first that a task asks.
bool QFutureInterfaceBase::isCanceled() const {
    static const auto own = qtsOwn<AskOfFuture>("_ZNK20QFutureInterfaceBase10isCanceledEv");
    __tsan_acquire(&handedOver);
    return own(this);
}

// The last that it does.
void QFutureInterfaceBase::reportFinished() {
    static const auto own = qtsOwn<OfFuture>("_ZN20QFutureInterfaceBase14reportFinishedEv");
    __tsan_release(&handedOver);
    own(this);
}

void QFutureInterfaceBase::waitForFinished() {
    static const auto own = qtsOwn<OfFuture>("_ZN20QFutureInterfaceBase15waitForFinishedEv");
    own(this);
    __tsan_acquire(&handedOver);
}

// What the last of those who know a result takes down, others have looked at.
bool QFutureInterfaceBase::derefT() const noexcept {
    static const auto own = qtsOwn<AskOfFuture>("_ZNK20QFutureInterfaceBase6derefTEv");
    __tsan_release(&handedOver);
    const bool isKnown = own(this);
    __tsan_acquire(&handedOver);
    return isKnown;
}

bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* slot,
                                   Qt::ConnectionType type, void* result) {
    using Invoke = bool (*)(QObject*, QtPrivate::QSlotObjectBase*, Qt::ConnectionType, void*);
    static const auto own = qtsOwn<Invoke>(
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15QSlotObjectBaseEN2Qt14"
        "ConnectionTypeEPv");
    __tsan_release(object);
    const bool isInvoked = own(object, slot, type, result);
    if (type == Qt::BlockingQueuedConnection) {
        __tsan_acquire(object);
    }
    return isInvoked;
}

// Where such a call arrives: ours have no other for it, and those of Qt's that do end here.
bool QObject::event(QEvent* event) {
    using Arrive = bool (*)(QObject*, QEvent*);
    static const auto own = qtsOwn<Arrive>("_ZN7QObject5eventEP6QEvent");
    if (event->type() != QEvent::MetaCall) {
        return own(this, event);
    }
    __tsan_acquire(this);
    const bool isKnown = own(this, event);
    __tsan_release(this);
    return isKnown;
}

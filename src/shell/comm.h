#pragma once

#include "platform/instances/instance_bus.h"

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace velorama {

/// The messages between the windows of two instances (`cComm`).
class Comm : public QObject {
    Q_OBJECT
public:
    explicit Comm(InstanceBus& bus) : bus_(bus) {}

    /// From now on texts for this window, which has its handle, arrive here, and others find it by
    /// its caption.
    void CommBind(QWidget& window);
    /// Number of another instance's window whose caption fits the pattern, which may end in the
    /// wildcard " *"; 0 if there is none.
    quint32 CommFindWindow(const QString& pattern) const { return bus_.find(pattern); }
    /// Delivers the text to the object bound to that window; a window that is gone is no matter.
    void CommSend(const QString& text, quint32 window) { bus_.send(text, window); }

signals:
    void MessageReceived(const QString& message);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    InstanceBus& bus_;
    QPointer<QWidget> window_;
};

}  // namespace velorama

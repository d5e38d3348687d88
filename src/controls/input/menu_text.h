#pragma once

#include <QAction>
#include <QList>
#include <QMetaObject>
#include <QObject>
#include <QPointer>

class QMenu;
class QMenuBar;

namespace velorama {

/// Tells on which menu entry the pointer or the keyboard rests, once each time it comes there.
class mnutxt : public QObject {
    Q_OBJECT
public:
    explicit mnutxt(QObject* parent = nullptr) : QObject(parent) {}

    /// Watches a menu bar with all menus below it, and popups that belong to no bar. A second start
    /// ends the first. They may be destroyed at any time.
    void start(QMenuBar* bar, const QList<QMenu*>& popups = {});
    void stop();
    bool isRunning() const { return !watched_.isEmpty(); }

signals:
    /// `text` is the entry's own, with its ampersand.
    void MenuHover(const QString& text);

private:
    void tell(const QAction* entry);

    QList<QMetaObject::Connection> watched_;
    QPointer<const QAction> last_;
};

}  // namespace velorama

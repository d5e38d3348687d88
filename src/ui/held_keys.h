#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QWidget>

namespace velorama {

/// Keeps the keys that are still down when a show ends from the window that comes back: a show is
/// left by any key, be it the Ctrl of Ctrl+Z or a Delete that goes on repeating itself.
class HeldKeys : public QObject {
public:
    /// `window` must outlive this object.
    explicit HeldKeys(QWidget& window) : window_(window) {}

    /// From now on, until a key is pressed anew.
    void begin();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isHeld(const QKeyEvent& press) const;

    QWidget& window_;
    /// The modifier keys that may have been down before.
    Qt::KeyboardModifiers before_;
};

}  // namespace velorama

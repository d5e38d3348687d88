#pragma once

#include <QObject>

namespace velorama {

/// Keeps keys, pointer, touch and the closing of windows from the whole program, for as long as it
/// lives. What the system asks for, it asks for by signals.
class InputLock : public QObject {
public:
    InputLock();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace velorama

#include "controls/input/wheel_guard.h"

#include <QEvent>
#include <QWidget>

namespace velorama {
namespace {

class WheelGuard : public QObject {
public:
    explicit WheelGuard(QWidget& field) : QObject(&field), field_(field) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Wheel && !field_.hasFocus()) {
            event->ignore();
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget& field_;
};

}  // namespace

void guardFromWheel(QWidget& field) {
    field.setFocusPolicy(Qt::StrongFocus);
    field.installEventFilter(new WheelGuard(field));
}

}  // namespace velorama

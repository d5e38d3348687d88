#include "shell/window_number.h"

#include <QEvent>

#include <utility>

namespace velorama {
namespace {

class HandleWatch : public QObject {
public:
    HandleWatch(QWidget& window, std::function<void()> then)
        : QObject(&window), then_(std::move(then)) {
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::WinIdChange && then_) {
            watched->removeEventFilter(this);
            std::exchange(then_, {})();
            deleteLater();
        }
        return false;
    }

private:
    std::function<void()> then_;
};

}  // namespace

quint32 windowNumber(const QWidget& window) {
    return static_cast<quint32>(window.internalWinId());
}

void whenNumbered(QWidget& window, std::function<void()> then) {
    if (window.internalWinId() != 0) {
        then();
    } else {
        new HandleWatch(window, std::move(then));
    }
}

}  // namespace velorama

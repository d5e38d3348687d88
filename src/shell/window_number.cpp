#include "shell/window_number.h"

#include <QEvent>

#include <utility>
#include <vector>

namespace velorama {
namespace {

class HandleWatch : public QObject {
public:
    explicit HandleWatch(QWidget& window) : QObject(&window) { window.installEventFilter(this); }

    void add(std::function<void()> then) { waiting_.push_back(std::move(then)); }

    /// The one that waits for this window already, or null.
    static HandleWatch* of(const QWidget& window) {
        for (QObject* child : window.children()) {
            if (auto* watch = dynamic_cast<HandleWatch*>(child)) {
                return watch->done_ ? nullptr : watch;
            }
        }
        return nullptr;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::WinIdChange && !done_) {
            done_ = true;
            watched->removeEventFilter(this);
            for (const auto& then : waiting_) {
                then();
            }
            deleteLater();
        }
        return false;
    }

private:
    std::vector<std::function<void()>> waiting_;
    bool done_ = false;
};

}  // namespace

quint32 windowNumber(const QWidget& window) {
    return static_cast<quint32>(window.internalWinId());
}

void whenNumbered(QWidget& window, std::function<void()> then) {
    if (window.internalWinId() != 0) {
        then();
    } else {
        HandleWatch* const known = HandleWatch::of(window);
        (known != nullptr ? known : new HandleWatch(window))->add(std::move(then));
    }
}

}  // namespace velorama

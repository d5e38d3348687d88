#include "controls/boxes/list_frame.h"

#include <QPainter>

#include <algorithm>

namespace velorama {
namespace {

// Logical pixels: the frame's room, and how much of it the accent takes and the quiet line.
constexpr int room = 2;
constexpr int accentWidth = 2;
constexpr int quietWidth = 1;

QColor quiet(const QPalette& palette) {
    constexpr float share = 0.3F;
    const QColor ground = palette.color(QPalette::Active, QPalette::Base);
    const QColor ink = palette.color(QPalette::Active, QPalette::Text);
    const auto mixed = [](float a, float b) { return a + (b - a) * share; };
    return QColor::fromRgbF(mixed(ground.redF(), ink.redF()), mixed(ground.greenF(), ink.greenF()),
                            mixed(ground.blueF(), ink.blueF()));
}

/// What is left of `outer` inside an edge of so many pixels.
QRegion edge(const QRect& outer, int width) {
    return QRegion(outer) - QRegion(outer.adjusted(width, width, -width, -width));
}

/// Lets the list handle what concerns its frame, and paints over it.
class FrameOver : public QObject {
public:
    explicit FrameOver(QAbstractScrollArea& list) : QObject(&list), list_(list) {
        list.installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        updateListFrame(list_, event->type());
        if (event->type() != QEvent::Paint) {
            return QObject::eventFilter(watched, event);
        }
        watched->event(event);
        paintListFrame(list_);
        return true;
    }

private:
    QAbstractScrollArea& list_;
};

}  // namespace

void frameOtherList(QAbstractScrollArea& list) {
    setListFrame(list);
    new FrameOver(list);
}

void setListFrame(QAbstractScrollArea& list) {
    list.setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    list.setLineWidth(room);
}

void paintListFrame(QAbstractScrollArea& list) {
    if (list.frameWidth() == 0) {
        return;
    }
    QPainter painter(&list);
    const QTransform toDevice = painter.deviceTransform();
    const QRect outer = toDevice.mapRect(list.rect());
    const bool focus = list.hasFocus();
    const QColor line =
        focus ? list.palette().color(QPalette::Active, QPalette::Highlight) : quiet(list.palette());
    const qreal scale = list.devicePixelRatioF();
    const int width = std::max(1, qRound((focus ? accentWidth : quietWidth) * scale));
    const auto fill = [&](const QRegion& region, const QColor& colour) {
        for (const QRect& part : region) {
            painter.fillRect(toDevice.inverted().mapRect(QRectF(part)), colour);
        }
    };
    // What the style has painted there goes, and what stands inside stays.
    painter.setClipRegion(edge(list.rect(), room));
    painter.fillRect(list.rect(), list.palette().color(QPalette::Base));
    fill(edge(outer, width), line);
}

void updateListFrame(QAbstractScrollArea& list, QEvent::Type type) {
    if (list.frameWidth() > 0 && (type == QEvent::FocusIn || type == QEvent::FocusOut)) {
        list.update(edge(list.rect(), room));
    }
}

}  // namespace velorama

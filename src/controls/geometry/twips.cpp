#include "controls/geometry/twips.h"

#include "platform/numbers.h"

#include <QGuiApplication>
#include <QScreen>
#include <QVariant>

#include <algorithm>
#include <array>
#include <cmath>

namespace velorama {
namespace {

enum Edge : int { LeftEdge, TopEdge, WidthEdge, HeightEdge };

constexpr std::array<const char*, 4> propertyNames = {"twipsLeft", "twipsTop", "twipsWidth",
                                                      "twipsHeight"};

constexpr const char* heldName = "twipsHeld";

bool isHeld(const QWidget& widget) {
    return widget.property(heldName).toBool();
}

int pixels(const QWidget& widget, Edge edge) {
    switch (edge) {
        case LeftEdge:
            return widget.x();
        case TopEdge:
            return widget.y();
        case WidthEdge:
            return widget.width();
        default:
            return widget.height();
    }
}

float read(const QWidget& widget, Edge edge) {
    const int now = pixels(widget, edge);
    const QVariant exact = widget.property(propertyNames.at(edge));
    if (exact.isValid() && (isHeld(widget) || toPixels(exact.toFloat()) == now)) {
        return exact.toFloat();
    }
    return toTwips(now);
}

void apply(QWidget& widget, Edge edge, int now) {
    switch (edge) {
        case LeftEdge:
            return widget.move(now, widget.y());
        case TopEdge:
            return widget.move(widget.x(), now);
        case WidthEdge:
            return widget.resize(now, widget.height());
        default:
            return widget.resize(widget.width(), now);
    }
}

void write(QWidget& widget, Edge edge, float twips) {
    widget.setProperty(propertyNames.at(edge), twips);
    if (isHeld(widget)) {
        return;
    }
    // A window told to stand where it happens to be must still be put there, not where a window
    // manager likes.
    if (widget.isWindow() || pixels(widget, edge) != toPixels(twips)) {
        apply(widget, edge, toPixels(twips));
    }
}

bool isSize(float twips) {
    return std::isfinite(twips) && twips >= 0;
}

QSize screenSize(const QWidget& widget) {
    const QScreen* screen = widget.screen();
    return screen ? screen->geometry().size() : QSize();
}

}  // namespace

float TwipsPerPixelX(const QWidget& widget) {
    return static_cast<float>(twipsPerLogicalPixel / widget.devicePixelRatioF());
}

float TwipsPerPixelY(const QWidget& widget) {
    return TwipsPerPixelX(widget);
}

float Left(const QWidget& widget) {
    return read(widget, LeftEdge);
}
float Top(const QWidget& widget) {
    return read(widget, TopEdge);
}
float Width(const QWidget& widget) {
    return read(widget, WidthEdge);
}
float Height(const QWidget& widget) {
    return read(widget, HeightEdge);
}

QSize devicePixels(const QWidget& widget) {
    return {toPixels(Width(widget), TwipsPerPixelX(widget)),
            toPixels(Height(widget), TwipsPerPixelY(widget))};
}

void setLeft(QWidget& widget, float twips) {
    write(widget, LeftEdge, twips);
}
void setTop(QWidget& widget, float twips) {
    write(widget, TopEdge, twips);
}

bool setWidth(QWidget& widget, float twips) {
    if (!isSize(twips)) {
        return false;
    }
    write(widget, WidthEdge, twips);
    return true;
}

bool setHeight(QWidget& widget, float twips) {
    if (!isSize(twips)) {
        return false;
    }
    write(widget, HeightEdge, twips);
    return true;
}

void place(QWidget& widget, float left, float top, float width, float height) {
    setLeft(widget, left);
    setTop(widget, top);
    setWidth(widget, width);
    setHeight(widget, height);
}

HeldGeometry::HeldGeometry(QWidget& widget) : widget_(widget), outermost_(!isHeld(widget)) {
    if (outermost_) {
        // From here on the properties count, so they must say what is.
        for (const Edge edge : {LeftEdge, TopEdge, WidthEdge, HeightEdge}) {
            widget.setProperty(propertyNames.at(edge), read(widget, edge));
        }
        widget.setProperty(heldName, true);
    }
}

HeldGeometry::~HeldGeometry() {
    if (!outermost_) {
        return;
    }
    const QRect held(toPixels(Left(widget_)), toPixels(Top(widget_)), toPixels(Width(widget_)),
                     toPixels(Height(widget_)));
    widget_.setProperty(heldName, false);
    if (widget_.geometry() != held) {
        widget_.setGeometry(held);
    }
}

float screenWidth(const QWidget& widget) {
    return toTwips(screenSize(widget).width());
}

float screenHeight(const QWidget& widget) {
    return toTwips(screenSize(widget).height());
}

float toTwips(qreal logicalPixels) {
    return static_cast<float>(logicalPixels) * twipsPerLogicalPixel;
}

int toPixels(float twips) {
    return toPixels(twips, twipsPerLogicalPixel);
}

int toPixels(float twips, float twipsPerPixel) {
    constexpr qint64 farthest = QWIDGETSIZE_MAX;
    const qint64 pixels = roundHalfEven(static_cast<double>(twips / twipsPerPixel));
    return static_cast<int>(std::clamp(pixels, -farthest, farthest));
}

}  // namespace velorama

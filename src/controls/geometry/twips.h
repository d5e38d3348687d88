#pragma once

#include <QRectF>
#include <QWidget>

namespace velorama {

/// Forms and controls are placed in twips, 15 to the logical pixel. The exact single-precision
/// values are kept beside the pixel geometry that they round to; where the pixel geometry has since
/// been changed by others (the user, the window manager), it counts.
constexpr float twipsPerLogicalPixel = 15;

/// Twips to one device pixel of the widget's screen: 15 at 96 dots per inch, 7.5 at twice that.
float TwipsPerPixelX(const QWidget& widget);
float TwipsPerPixelY(const QWidget& widget);

float Left(const QWidget& widget);
float Top(const QWidget& widget);
float Width(const QWidget& widget);
float Height(const QWidget& widget);
/// Its size in whole device pixels.
QSize devicePixels(const QWidget& widget);

void setLeft(QWidget& widget, float twips);
void setTop(QWidget& widget, float twips);
/// A size that is negative or no number is refused: nothing changes and false comes back.
bool setWidth(QWidget& widget, float twips);
bool setHeight(QWidget& widget, float twips);

/// All four at once, for the design of a form.
void place(QWidget& widget, float left, float top, float width, float height);

/// While it lives, the widget keeps what it is told in twips, and its pixels follow once at the
/// end: a box that is placed twice in a row is moved and painted once.
class HeldGeometry {
public:
    explicit HeldGeometry(QWidget& widget);
    ~HeldGeometry();
    HeldGeometry(const HeldGeometry&) = delete;
    HeldGeometry& operator=(const HeldGeometry&) = delete;

private:
    QWidget& widget_;
    bool outermost_;
};

/// Size in twips of the screen that the widget is on.
float screenWidth(const QWidget& widget);
float screenHeight(const QWidget& widget);

/// Twips of a length in logical pixels.
float toTwips(qreal logicalPixels);
/// Whole logical pixels of a length in twips, halves to even.
int toPixels(float twips);
/// Whole pixels of a length in twips at `twipsPerPixel`, halves to even.
int toPixels(float twips, float twipsPerPixel);

}  // namespace velorama

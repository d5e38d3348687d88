#include "controls/geometry/caption_room.h"

#include "controls/geometry/twips.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QVariant>

#include <algorithm>

namespace velorama {
namespace {

constexpr const char* designName = "designSize";
// Above and below a line of text, in logical pixels.
constexpr int lineMargin = 2;
// Twips. Lower letters could not be read.
constexpr float leastColumnHeight = 195;

/// Empty for a control without a design.
QSizeF designOf(const QWidget& control) {
    return control.property(designName).toSizeF();
}

float roomyWidth(const QWidget& control) {
    return std::max(static_cast<float>(designOf(control).width()),
                    toTwips(control.sizeHint().width()));
}

/// What a line of its caption needs; 0 for a button that has none.
float lineHeight(const QWidget& control) {
    const auto* button = qobject_cast<const QAbstractButton*>(&control);
    const bool isBare = button != nullptr && button->text().isEmpty();
    return isBare ? 0 : toTwips(control.fontMetrics().height() + 2 * lineMargin);
}

float roomyHeight(const QWidget& control, float most) {
    return std::max(static_cast<float>(designOf(control).height()),
                    std::min(lineHeight(control), most));
}

float columnHeight(const QWidget& control, float most) {
    const float wanted =
        std::max(static_cast<float>(designOf(control).height()), lineHeight(control));
    return std::max(leastColumnHeight, std::min(wanted, most));
}

}  // namespace

void placeDesign(QWidget& control, float left, float top, float width, float height) {
    control.setProperty(designName,
                        QSizeF(static_cast<double>(width), static_cast<double>(height)));
    place(control, left, top, width, height);
}

void giveRoom(QWidget& control, float most) {
    if (!designOf(control).isEmpty()) {
        setWidth(control, roomyWidth(control));
        setHeight(control, roomyHeight(control, most));
    }
}

float giveRoomInColumn(const QList<QWidget*>& column, float gap, float bottom) {
    if (column.isEmpty()) {
        return 0;
    }
    const auto count = static_cast<float>(column.size());
    const float left = Left(*column.first());
    float top = Top(*column.first());
    const float most = (bottom - top - gap * (count - 1)) / count;
    float width = 0;
    for (const QWidget* control : column) {
        width = std::max(width, roomyWidth(*control));
    }
    for (QWidget* control : column) {
        place(*control, left, top, width, columnHeight(*control, most));
        top += Height(*control) + gap;
    }
    return left + width;
}

QFont fontForHeight(const QFont& font, int height) {
    QFont fitting = font;
    const int line = QFontMetrics(font).height();
    if (line <= height || height <= 0) {
        return fitting;
    }
    // Heights are rounded up and grow by steps, so the proportion alone may miss by one.
    constexpr qreal step = 0.97;
    const bool inPoints = font.pointSizeF() > 0;
    qreal size = (inPoints ? font.pointSizeF() : font.pixelSize()) * height / line;
    for (bool fits = false; !fits && size >= 1; size *= step) {
        if (inPoints) {
            fitting.setPointSizeF(size);
        } else {
            fitting.setPixelSize(static_cast<int>(size));
        }
        fits = QFontMetrics(fitting).height() <= height;
    }
    return fitting;
}

}  // namespace velorama

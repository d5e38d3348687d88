#include "controls/lists/item_mark.h"

#include "controls/buttons/icon.h"

#include <QPainter>

namespace velorama {
namespace {

// Logical pixels.
constexpr double badge = 18;
constexpr double badgeRim = 4;
constexpr double badgeSymbol = 14;
constexpr double ring = 1.5;
constexpr double middleDisc = 44;
constexpr double middleSymbol = 28;
// Of the disc behind a mark in the middle: a picture shows through it.
constexpr float strength = 0.85F;

QRectF centred(const QPointF& middle, double side) {
    return {middle.x() - side / 2, middle.y() - side / 2, side, side};
}

void paintDisc(QPainter& painter, const QRectF& disc, const QColor& colour, const QPen& rim) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(rim);
    painter.setBrush(colour);
    painter.drawEllipse(disc);
}

void paintCorner(QPainter& painter, const QString& symbol, const QRect& picture,
                 const QPalette& palette) {
    const QRectF place(picture.x() + picture.width() - badgeRim - badge, picture.y() + badgeRim,
                       badge, badge);
    paintDisc(painter, place, palette.color(QPalette::Active, QPalette::Highlight),
              QPen(palette.color(QPalette::Active, QPalette::HighlightedText), ring));
    paintSymbol(painter, centred(place.center(), badgeSymbol), symbol,
                palette.color(QPalette::Active, QPalette::HighlightedText));
}

void paintMiddle(QPainter& painter, const QString& symbol, const QRect& picture,
                 const QPalette& palette) {
    QColor ground = palette.color(QPalette::Active, QPalette::Base);
    ground.setAlphaF(strength);
    const QPointF middle = QRectF(picture).center();
    paintDisc(painter, centred(middle, middleDisc), ground, Qt::NoPen);
    paintSymbol(painter, centred(middle, middleSymbol), symbol,
                palette.color(QPalette::Active, QPalette::Text));
}

}  // namespace

void paintMark(QPainter& painter, const ItemMark& mark, const QRect& picture,
               const QPalette& palette) {
    painter.save();
    if (mark.place == ItemMark::Place::Corner) {
        paintCorner(painter, mark.symbol, picture, palette);
    } else {
        paintMiddle(painter, mark.symbol, picture, palette);
    }
    painter.restore();
}

}  // namespace velorama

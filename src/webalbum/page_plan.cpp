#include "webalbum/page_plan.h"

#include <algorithm>

namespace velorama {
namespace {

// The browser's margin, the spacing and the padding of the table around everything.
constexpr qreal edge = 8 + 1 + 10;
// From one row of that table to the next: padding, spacing, padding.
constexpr qreal rowGap = 10 + 1 + 10;
constexpr qreal barPadding = 10;
constexpr qreal arrowSide = 20;
constexpr qreal arrowsWidth = 198;
constexpr qreal picturesPadding = 6;

constexpr int columnsPerRow = 4;
constexpr qreal spacing = 1;
constexpr qreal cellPadding = 5;

struct Arrows {
    QRectF previous;
    QRectF between;
    QRectF next;
};

/// Three cells, which share the width by what they hold; a picture is never cut.
Arrows planArrows(qreal middle, qreal top, const PageLines& lines) {
    const qreal held = 2 * arrowSide + lines.between;
    const qreal arrowCell = std::max(arrowSide, arrowsWidth * arrowSide / held);
    const qreal inset = (arrowCell - arrowSide) / 2;
    const qreal left = middle - arrowsWidth / 2;
    const qreal text = arrowsWidth - 2 * arrowCell;
    return {QRectF(left + inset, top, arrowSide, arrowSide),
            QRectF(left + arrowCell, top, text, lines.text),
            QRectF(left + arrowCell + text + inset, top, arrowSide, arrowSide)};
}

QRectF centred(qreal middle, qreal top, const QSizeF& size) {
    return {QPointF(middle - size.width() / 2, top), size};
}

qreal highest(const std::vector<QSizeF>& pictures, std::size_t first, std::size_t end) {
    qreal height = 0;
    for (std::size_t i = first; i < end; ++i) {
        height = std::max(height, pictures[i].height());
    }
    return height;
}

/// Left edge and width of the columns that pictures stand in.
struct Columns {
    qreal left = 0;
    qreal width = 0;

    qreal at(std::size_t column) const {
        return left + static_cast<qreal>(column) * (width + spacing);
    }
};

/// A quarter of the table each, but the spacer row above the pictures has three cells: it leaves
/// two pictures as much as one of four has, and three share the whole.
Columns planColumns(qreal left, qreal width, std::size_t count) {
    const bool isFull = count >= columnsPerRow;
    const qreal room = width - (isFull ? columnsPerRow + 1 : columnsPerRow) * spacing;
    return {left + spacing, room / (count == columnsPerRow - 1 ? 3 : columnsPerRow)};
}

/// What a row of pictures needs at least.
qreal leastWidth(const std::vector<QSizeF>& pictures) {
    qreal widest = 0;
    for (const QSizeF& picture : pictures) {
        widest = std::max(widest, picture.width());
    }
    const auto columns = static_cast<qreal>(std::min<std::size_t>(pictures.size(), columnsPerRow));
    return columns * (widest + 2 * cellPadding + spacing) + spacing;
}

void planCells(IndexPlan& plan, const Columns& columns, qreal top,
               const std::vector<QSizeF>& pictures, qreal lineHeight) {
    for (std::size_t first = 0; first < pictures.size(); first += columnsPerRow) {
        const std::size_t end = std::min(first + columnsPerRow, pictures.size());
        const qreal height = highest(pictures, first, end);
        const qreal caption = top + height + 3 * cellPadding + spacing;
        for (std::size_t i = first; i < end; ++i) {
            const qreal left = columns.at(i - first) + cellPadding;
            const qreal width = columns.width - 2 * cellPadding;
            plan.cells.push_back({centred(left + width / 2, top + cellPadding, pictures[i]),
                                  QRectF(left, caption, width, lineHeight)});
        }
        top = caption + lineHeight + cellPadding + spacing;
    }
}

}  // namespace

IndexPlan planIndexPage(qreal width, const std::vector<QSizeF>& thumbnails,
                        const PageLines& lines) {
    constexpr qreal titlePadding = 14 + spacing;
    const std::vector<QSizeF> shown(
        thumbnails.begin(),
        thumbnails.begin() + std::min<qsizetype>(picturesPerPage, std::ssize(thumbnails)));
    const qreal room = std::max(width - 2 * edge, leastWidth(shown) + 2 * picturesPadding);
    IndexPlan plan;
    plan.titleBar = QRectF(edge, edge, room, 2 * titlePadding + lines.title);
    plan.title = plan.titleBar.adjusted(titlePadding, titlePadding, -titlePadding, -titlePadding);
    // A line break stands above the arrows.
    const qreal arrows = plan.titleBar.bottom() + barPadding + lines.text;
    plan.controlBar = QRectF(edge, plan.titleBar.bottom(), room,
                             2 * barPadding + lines.text + std::max(arrowSide, lines.text));
    const Arrows row = planArrows(edge + room / 2, arrows, lines);
    plan.previous = row.previous;
    plan.numbers = row.between;
    plan.next = row.next;
    const Columns columns =
        planColumns(edge + picturesPadding, room - 2 * picturesPadding, shown.size());
    const qreal spacerRow = spacing + 2 * cellPadding + spacing;
    planCells(plan, columns, plan.controlBar.bottom() + rowGap + picturesPadding + spacerRow, shown,
              lines.text);
    return plan;
}

SlidePlan planSlidePage(qreal width, const SlidePictures& pictures, const PageLines& lines) {
    constexpr qreal wantedSide = 200 + 2 * barPadding;
    // The arrows, and two cells with nothing in them.
    constexpr qreal middle = arrowsWidth + 6 * barPadding;
    const qreal leastSide =
        std::max(pictures.before.width(), pictures.behind.width()) + 2 * barPadding;
    const qreal room = std::max(
        {width - 2 * edge, pictures.picture.width() + 2 * picturesPadding, 2 * leastSide + middle});
    const qreal side = std::max(leastSide, std::min(wantedSide, (room - middle) / 2));
    const qreal inBar =
        std::max({arrowSide, pictures.before.height(), pictures.behind.height(), lines.text});
    const qreal top = edge + barPadding;
    SlidePlan plan;
    plan.bar = QRectF(edge, edge, room, inBar + 2 * barPadding);
    plan.before = centred(edge + side / 2, top, pictures.before);
    plan.behind = centred(edge + room - side / 2, top, pictures.behind);
    const Arrows row = planArrows(edge + room / 2, top, lines);
    plan.previous = row.previous;
    plan.home = row.between;
    plan.next = row.next;
    plan.picture =
        centred(edge + room / 2, plan.bar.bottom() + rowGap + picturesPadding, pictures.picture);
    plan.caption = QRectF(edge + picturesPadding, plan.picture.bottom() + 2 * picturesPadding,
                          room - 2 * picturesPadding, lines.text);
    return plan;
}

}  // namespace velorama

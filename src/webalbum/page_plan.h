#pragma once

#include <QRectF>
#include <QSizeF>

#include <vector>

namespace velorama {

/// Where a browser puts the parts of an album's pages, for who wants to show them without one. All
/// lengths are in pixels of the page, and its corner is the origin.

/// What fonts give: how high a line is, and how wide the text between the two arrows.
struct PageLines {
    qreal title = 0;
    qreal text = 0;
    qreal between = 0;
};

/// An index page.
struct IndexPlan {
    struct Cell {
        QRectF picture;
        QRectF caption;
    };

    QRectF titleBar;
    QRectF title;
    QRectF controlBar;
    QRectF previous;
    QRectF numbers;
    QRectF next;
    std::vector<Cell> cells;
};

/// A slide page; `before` and `behind` are its neighbours, or the picture that stands for none.
struct SlidePlan {
    QRectF bar;
    QRectF before;
    QRectF previous;
    QRectF home;
    QRectF next;
    QRectF behind;
    QRectF picture;
    QRectF caption;
};

struct SlidePictures {
    QSizeF before;
    QSizeF picture;
    QSizeF behind;
};

/// Pictures of an index page; what is behind them is on the next one.
inline constexpr int picturesPerPage = 12;

/// `width` is that of the browser's window; where the pictures need more the page is wider than
/// that. Of the thumbnails those of one page are taken. Every text is one line.
IndexPlan planIndexPage(qreal width, const std::vector<QSizeF>& thumbnails, const PageLines& lines);
SlidePlan planSlidePage(qreal width, const SlidePictures& pictures, const PageLines& lines);

}  // namespace velorama

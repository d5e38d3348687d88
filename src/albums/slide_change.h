#pragma once

#include <QList>
#include <QString>

namespace velorama {

/// What a slide is, apart from the list that it stands in.
struct ListedSlide {
    QString key;
    QString text;
    /// Key of its thumbnail, which the number of the image does not outlive; empty for none.
    QString picture;

    bool operator==(const ListedSlide& other) const;
};
using ListedSlides = QList<ListedSlide>;

/// So many places of a list, from `first` on, which counts from 1.
struct SlideRange {
    int first = 1;
    int count = 0;

    bool operator==(const SlideRange&) const = default;
};

/// What turns one list of slides into another: who leaves, by the places in the first, and who
/// comes, by the places in the second. Those who stay keep their order, and nothing is held of
/// them.
struct SlideChange {
    struct Run {
        int first = 1;
        ListedSlides slides;

        bool operator==(const Run&) const = default;
    };
    /// Rising, and none beside another.
    QList<SlideRange> leaving;
    QList<Run> coming;

    bool isEmpty() const { return leaving.isEmpty() && coming.isEmpty(); }
    /// The slides that it holds.
    qsizetype held() const;
};

/// What turns `from` into `to`, with as few slides as may be.
SlideChange changeBetween(const ListedSlides& from, const ListedSlides& to);

/// Adds the place behind those that are there.
void appendPlace(QList<SlideRange>& ranges, int place);

}  // namespace velorama

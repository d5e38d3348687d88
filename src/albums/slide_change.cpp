#include "albums/slide_change.h"

#include <QHash>

#include <algorithm>
#include <vector>

namespace velorama {
namespace {

/// For each slide of one list its place in the other, from 0, where it may stay; else nowhere.
using Places = std::vector<qsizetype>;
constexpr qsizetype nowhere = -1;

/// The slides that stand in both lists, whatever their order.
Places common(const ListedSlides& from, const ListedSlides& to) {
    QHash<QString, qsizetype> byKey;
    byKey.reserve(to.size());
    for (qsizetype i = 0; i < to.size(); ++i) {
        byKey.insert(to[i].key, i);
    }
    Places places;
    places.reserve(static_cast<std::size_t>(from.size()));
    for (const ListedSlide& slide : from) {
        const qsizetype place = byKey.value(slide.key, nowhere);
        places.push_back(place != nowhere && to[place] == slide ? place : nowhere);
    }
    return places;
}

/// Leaves only those that need not change places: a longest rising sequence.
void keepRising(Places& places) {
    // ends[n]: where the sequence of n + 1 slides ends that ends lowest; before[i]: who goes before
    // slide i in its own.
    std::vector<std::size_t> ends;
    std::vector<std::size_t> before(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i] == nowhere) {
            continue;
        }
        const auto end =
            std::lower_bound(ends.begin(), ends.end(), places[i],
                             [&](std::size_t one, qsizetype place) { return places[one] < place; });
        before[i] = end == ends.begin() ? i : *(end - 1);
        end == ends.end() ? ends.push_back(i) : static_cast<void>(*end = i);
    }
    Places rising(places.size(), nowhere);
    for (std::size_t left = ends.size(), i = left ? ends.back() : 0; left > 0; --left) {
        rising[i] = places[i];
        i = before[i];
    }
    places = std::move(rising);
}

void appendSlide(QList<SlideChange::Run>& runs, int place, const ListedSlide& slide) {
    if (runs.isEmpty() || runs.last().first + runs.last().slides.size() != place) {
        runs.append(SlideChange::Run{.first = place, .slides = {}});
    }
    runs.last().slides.append(slide);
}

/// Of the slides behind the `front` first of both lists.
SlideChange changeInside(const ListedSlides& from, const ListedSlides& to, int front) {
    Places places = common(from, to);
    keepRising(places);
    SlideChange change;
    std::vector<bool> stays(static_cast<std::size_t>(to.size()));
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (places[i] == nowhere) {
            appendPlace(change.leaving, front + static_cast<int>(i) + 1);
        } else {
            stays[static_cast<std::size_t>(places[i])] = true;
        }
    }
    for (qsizetype i = 0; i < to.size(); ++i) {
        if (!stays[static_cast<std::size_t>(i)]) {
            appendSlide(change.coming, front + static_cast<int>(i) + 1, to[i]);
        }
    }
    return change;
}

}  // namespace

bool ListedSlide::operator==(const ListedSlide& other) const {
    const auto same = [](const QString& one, const QString& two) {
        // Nearly all are one text held twice.
        return one.constData() == two.constData() ? one.size() == two.size() : one == two;
    };
    return same(key, other.key) && same(text, other.text) && same(picture, other.picture);
}

qsizetype SlideChange::held() const {
    qsizetype all = 0;
    for (const Run& run : coming) {
        all += run.slides.size();
    }
    return all;
}

void appendPlace(QList<SlideRange>& ranges, int place) {
    if (ranges.isEmpty() || ranges.last().first + ranges.last().count != place) {
        ranges.append(SlideRange{place, 0});
    }
    ++ranges.last().count;
}

SlideChange changeBetween(const ListedSlides& from, const ListedSlides& to) {
    // Most changes are small, and the list may be long: its ends stay.
    const qsizetype most = std::min(from.size(), to.size());
    qsizetype front = 0;
    while (front < most && from[front] == to[front]) {
        ++front;
    }
    qsizetype back = 0;
    while (back < most - front && from[from.size() - 1 - back] == to[to.size() - 1 - back]) {
        ++back;
    }
    return changeInside(from.mid(front, from.size() - front - back),
                        to.mid(front, to.size() - front - back), static_cast<int>(front));
}

}  // namespace velorama

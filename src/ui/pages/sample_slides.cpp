#include "ui/pages/sample_slides.h"

#include <cmath>

namespace velorama {

SampleSlides::SampleSlides(const ListView& list, WebAlbumPage& page, Load load)
    : list_(list), page_(page), load_(std::move(load)) {
    const QAbstractItemModel* model = list.model();
    connect(model, &QAbstractItemModel::modelReset, this, &SampleSlides::update);
    connect(model, &QAbstractItemModel::dataChanged, this, &SampleSlides::update);
    connect(&page, &WebAlbumPage::Shown, this, &SampleSlides::update);
}

void SampleSlides::update() {
    if (!page_.isVisible() || !takeSlides()) {
        return;
    }
    const int side = static_cast<int>(std::lround(thumbnailSide * page_.devicePixelRatioF()));
    // What is asked for last comes first: the small ones, from the first slide on.
    if (!keys_.isEmpty() && pictures_.value(keys_.first()).width() <= side) {
        ask({keys_.first(), photoSide});
    }
    for (auto key = keys_.crbegin(); key != keys_.crend(); ++key) {
        if (!pictures_.contains(*key)) {
            ask({*key, side});
        }
    }
    show();
}

/// False where they are those that are shown.
bool SampleSlides::takeSlides() {
    QStringList keys;
    QStringList names;
    for (int i = 1; i <= std::min(picturesPerPage, list_.Count()); ++i) {
        keys.append(list_.item(i)->Key());
        names.append(list_.item(i)->Text());
    }
    const bool isNew = keys != keys_ || names != names_ || list_.Count() != count_;
    keys_ = keys;
    names_ = names;
    count_ = list_.Count();
    pictures_.removeIf([&keys](const auto& held) { return !keys.contains(held.key()); });
    return isNew;
}

void SampleSlides::ask(const Wish& wish) {
    looks_.ask([this, wish, load = load_]() -> SlowLooks::Answer {
        const QImage image = load(wish.path, wish.side);
        return [this, wish, image] { arrived(wish, image); };
    });
}

void SampleSlides::arrived(const Wish& wish, const QImage& image) {
    const QImage known = pictures_.value(wish.path);
    if (keys_.contains(wish.path) && (known.isNull() || image.width() > known.width())) {
        pictures_.insert(wish.path, image);
        show();
    }
}

void SampleSlides::show() {
    SampleAlbum album;
    album.count = count_;
    for (qsizetype i = 0; i < keys_.size(); ++i) {
        album.slides.push_back({names_.at(i), pictures_.value(keys_.at(i))});
    }
    page_.setSampleSlides(album);
}

}  // namespace velorama

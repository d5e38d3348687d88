#include "controls/lists/late_images.h"

#include "platform/process/worker_threads.h"

#include <QFutureWatcher>
#include <QThreadPool>
#include <QtConcurrentRun>

#include <algorithm>

namespace velorama {
namespace {

/// Not the program's pool: Qt has wide areas filled there, and painting would wait for what is
/// made.
QThreadPool& makers() {
    static QThreadPool& threads = newWorkerPool();
    return threads;
}

QImage makeImage(const std::shared_ptr<const ImageOrigin>& origin) {
    return origin->make();
}

}  // namespace

LateImages::LateImages(QAbstractItemView& view) : QObject(&view), view_(view) {}

void LateImages::setIcons(ImageList* icons) {
    icons_ = icons;
    wishes_.clear();
}

QImage LateImages::painted(int number, const QModelIndex& row) {
    if (!icons_) {
        return {};
    }
    if (const std::optional<QImage> image = icons_->atHand(number)) {
        return *image;
    }
    std::erase_if(wishes_, [&](const Wish& wish) { return wish.row == row; });
    wishes_.push_back({number, row});
    makeNext();
    return {};
}

bool LateImages::isInSight(const Wish& wish) const {
    return wish.row.isValid() && view_.isVisible() &&
           view_.viewport()->rect().intersects(view_.visualRect(wish.row));
}

void LateImages::makeNext() {
    const int most = makers().maxThreadCount();
    if (static_cast<int>(making_.size()) >= most) {
        return;
    }
    std::erase_if(wishes_, [this](const Wish& wish) { return !isInSight(wish); });
    for (auto wish = wishes_.rbegin();
         wish != wishes_.rend() && static_cast<int>(making_.size()) < most; ++wish) {
        if (!making_.contains(wish->number)) {
            make(wish->number);
        }
    }
}

void LateImages::make(int number) {
    const std::shared_ptr<const ImageOrigin> origin = icons_ ? icons_->origin(number) : nullptr;
    if (!origin) {
        return;
    }
    making_.insert(number);
    auto* watcher = new QFutureWatcher<QImage>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, number, origin] {
        watcher->deleteLater();
        made(number, origin, watcher->result());
    });
    watcher->setFuture(QtConcurrent::run(&makers(), makeImage, origin));
}

/// The list may show other images under the number by now: painting asks for them anew. It would do
/// so without end for a null image, there being no memory for one.
void LateImages::made(int number, const std::shared_ptr<const ImageOrigin>& origin,
                      const QImage& image) {
    making_.erase(number);
    if (icons_) {
        icons_->restore(number, origin, image);
    }
    std::erase_if(wishes_, [&](const Wish& wish) {
        const bool isIt = wish.number == number;
        if (isIt && wish.row.isValid() && !image.isNull()) {
            view_.update(wish.row);
        }
        return isIt;
    });
    makeNext();
}

}  // namespace velorama

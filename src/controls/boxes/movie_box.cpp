#include "controls/boxes/movie_box.h"

#include "controls/geometry/device_pixels.h"

#include <QPainter>

#include <utility>

namespace velorama {

void MovieBox::Navigate(const QString& file) {
    setStill({});
    if (file.isEmpty()) {
        return;
    }
    auto movie = std::make_unique<QMovie>(file, "gif");
    if (movie->frameCount() <= 1) {
        return;
    }
    movie_ = std::move(movie);
    connect(movie_.get(), &QMovie::frameChanged, this, [this] { update(); });
    if (isVisible()) {
        movie_->start();
    }
}

void MovieBox::setStill(const QImage& picture) {
    movie_.reset();
    still_ = picture;
    update();
}

void MovieBox::setView(const QRect& view) {
    view_ = view;
    update();
}

void MovieBox::showEvent(QShowEvent*) {
    if (movie_) {
        movie_->start();
    }
}

void MovieBox::hideEvent(QHideEvent*) {
    if (movie_) {
        movie_->stop();
    }
}

void MovieBox::paintEvent(QPaintEvent*) {
    const QImage seen = frame();
    if (seen.isNull()) {
        return;
    }
    QRectF place(QPointF(), QSizeF(seen.size()) / devicePixelRatioF());
    place.moveCenter(QRectF(view_).center());
    QPainter painter(this);
    drawDevicePixels(painter, place.topLeft(), seen);
}

}  // namespace velorama

#include "controls/movie_box.h"

#include <QPainter>

namespace velorama {

void MovieBox::Navigate(const QString& file) {
    movie_ = std::make_unique<QMovie>(file, "gif");
    connect(movie_.get(), &QMovie::frameChanged, this, [this] { update(); });
    if (isVisible()) {
        movie_->start();
    }
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
    if (!movie_ || movie_->currentImage().isNull()) {
        return;
    }
    QImage frame = movie_->currentImage();
    frame.setDevicePixelRatio(devicePixelRatioF());
    QRectF place(QPointF(), frame.deviceIndependentSize());
    place.moveCenter(QRectF(view_).center());
    QPainter painter(this);
    painter.drawImage(place.topLeft(), frame);
}

}  // namespace velorama

#include "controls/boxes/movie_box.h"

#include "controls/geometry/device_pixels.h"

#include <QImageReader>
#include <QPainter>

namespace velorama {

void MovieBox::Navigate(const QString& file) {
    movie_.reset();
    update();
    if (file.isEmpty()) {
        return;
    }
    // A name may lie about its content; nothing but pictures that the program reads is let in.
    const QByteArray content = QImageReader::imageFormat(file);
    const bool still = content == "jpeg" || content == "png" || content == "bmp";
    movie_ = std::make_unique<QMovie>(file, still ? content : QByteArray("gif"));
    connect(movie_.get(), &QMovie::frameChanged, this, [this] { update(); });
    if (isVisible()) {
        movie_->start();
    }
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
    const QImage frame = movie_->currentImage();
    QRectF place(QPointF(), QSizeF(frame.size()) / devicePixelRatioF());
    place.moveCenter(QRectF(view_).center());
    QPainter painter(this);
    drawDevicePixels(painter, place.topLeft(), frame);
}

}  // namespace velorama

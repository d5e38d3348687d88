#include "controls/boxes/image_box.h"

#include "controls/geometry/device_pixels.h"
#include "controls/geometry/twips.h"

#include <QPainter>

#include <cmath>

namespace velorama {

void ImageBox::setStretch(bool stretch) {
    stretch_ = stretch;
    takeNaturalSize();
}

void ImageBox::setPicture(const QImage& bitmap, QSize natural) {
    if (bitmap.isNull()) {
        return;
    }
    picture_ = bitmap;
    natural_ = natural;
    takeNaturalSize();
    update();
}

void ImageBox::takeNaturalSize() {
    if (!stretch_ && !natural_.isEmpty()) {
        setWidth(*this, static_cast<float>(natural_.width()) * TwipsPerPixelX(*this));
        setHeight(*this, static_cast<float>(natural_.height()) * TwipsPerPixelY(*this));
    }
}

void ImageBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    // On a screen of a broken scale no size in logical pixels is that of the picture to the pixel.
    const QSizeF room = QSizeF(size()) * devicePixelRatioF();
    if (std::abs(room.width() - picture_.width()) <= 1 &&
        std::abs(room.height() - picture_.height()) <= 1) {
        drawDevicePixels(painter, QPointF(), picture_);
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), picture_);
}

}  // namespace velorama

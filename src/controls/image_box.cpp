#include "controls/image_box.h"

#include "controls/twips.h"

#include <QPainter>

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
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), picture_);
}

}  // namespace velorama

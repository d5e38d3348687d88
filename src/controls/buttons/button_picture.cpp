#include "controls/buttons/button_picture.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace velorama {

struct ButtonPicture::Drawing {
    QSvgRenderer renderer;
    // As last painted, in device pixels: a button rarely changes its size or its screen.
    QImage pixels;

    const QImage& at(const QSize& size) {
        if (pixels.size() != size) {
            pixels = QImage(size, QImage::Format_ARGB32_Premultiplied);
            pixels.fill(Qt::transparent);
            QPainter painter(&pixels);
            renderer.render(&painter, QRectF(QPointF(), size));
        }
        return pixels;
    }
};

ButtonPicture::ButtonPicture(const QString& file) {
    auto drawing = std::make_shared<Drawing>();
    if (QFile::exists(file) && drawing->renderer.load(file)) {
        drawing->renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        drawing_ = std::move(drawing);
    }
}

void ButtonPicture::paint(QPainter& painter, const QRectF& place) const {
    const QTransform toDevice = painter.deviceTransform();
    const QRect device = toDevice.mapRect(place).toRect();
    if (isNull() || device.isEmpty() || !toDevice.isInvertible()) {
        return;
    }
    // Whole device pixels, also where the logical place begins between two of them.
    painter.drawImage(toDevice.inverted().mapRect(QRectF(device)), drawing_->at(device.size()));
}

}  // namespace velorama

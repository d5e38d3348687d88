#include "controls/boxes/picture_box.h"

#include <QMouseEvent>
#include <QPainter>

namespace velorama {
namespace {

/// The logical pixels that device pixels touch. Rounded outwards they stay enough where a
/// fractional scale puts the box itself between two device pixels: rounding both by the same keeps
/// the order.
QRect touched(const QRect& part, qreal scale) {
    return QRectF(part.x() / scale, part.y() / scale, part.width() / scale, part.height() / scale)
        .toAlignedRect();
}

}  // namespace

PictureBox::PictureBox(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureBox::setBackColor(const QColor& colour) {
    backColor_ = colour;
    image_ = {};
    update();
}

void PictureBox::setPicture(const QImage& picture) {
    const bool isShown = !picture.isNull() && picture.cacheKey() == image_.cacheKey();
    picture_ = picture;
    image_ = {};
    if (autoSize_ && !picture.isNull()) {
        setWidth(*this, static_cast<float>(picture.width()) * TwipsPerPixelX(*this));
        setHeight(*this, static_cast<float>(picture.height()) * TwipsPerPixelY(*this));
    }
    if (!isShown) {
        update();
    }
}

QImage& PictureBox::Image() {
    if (!image_.isNull() && image_.devicePixelRatio() != devicePixelRatioF()) {
        // On a screen of another scale: what was drawn lasts, in as many pixels as there are here.
        image_ = image_.scaled(scaleSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    if (image_.size() != scaleSize()) {
        // A picture of the box's own size needs no copy until somebody draws on the image.
        const bool whole = picture_.size() == scaleSize() && !picture_.hasAlphaChannel();
        image_ = whole ? picture_ : blank();
    }
    image_.setDevicePixelRatio(devicePixelRatioF());
    return image_;
}

QImage PictureBox::blank() const {
    QImage image(scaleSize(), QImage::Format_RGB32);
    if (image.isNull()) {
        return image;
    }
    image.fill(backColor_);
    if (!picture_.isNull()) {
        QPainter painter(&image);
        const QRect area = stretch_ ? image.rect() : QRect(QPoint(), picture_.size());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(area, picture_);
    }
    return image;
}

void PictureBox::keepImage() {
    const QImage shown = Image();
    setPicture(shown);
    image_ = shown;
}

void PictureBox::Cls() {
    image_ = {};
    update();
}

void PictureBox::Refresh(const QRegion& part) {
    QRegion area;
    for (const QRect& each : part) {
        area += touched(each, devicePixelRatioF());
    }
    if (!area.isEmpty()) {
        repaint(area);
    }
}

void PictureBox::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QImage& shown = Image();
    if (shown.isNull()) {
        painter.fillRect(event->rect(), backColor_);
        return;
    }
    // A fractional scale can leave a sliver of the box beyond its image.
    const QSizeF covered = shown.deviceIndependentSize();
    if (covered.width() < width() || covered.height() < height()) {
        painter.fillRect(rect(), backColor_);
    }
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QPoint(), shown);
}

void PictureBox::mousePressEvent(QMouseEvent* event) {
    emit MouseDown(mouseButton(event->button()), toTwips(event->position().x()),
                   toTwips(event->position().y()));
}

void PictureBox::mouseMoveEvent(QMouseEvent* event) {
    emit MouseMove(heldButtons(event->buttons()), toTwips(event->position().x()),
                   toTwips(event->position().y()));
}

void PictureBox::mouseReleaseEvent(QMouseEvent* event) {
    emit MouseUp(mouseButton(event->button()), toTwips(event->position().x()),
                 toTwips(event->position().y()));
}

void PictureBox::keyPressEvent(QKeyEvent* event) {
    emit KeyDown(keyCode(*event), shiftMask(event->modifiers()));
    QWidget::keyPressEvent(event);
}

}  // namespace velorama

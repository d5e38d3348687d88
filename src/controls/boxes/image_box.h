#pragma once

#include <QImage>
#include <QWidget>

namespace velorama {

/// An image control. Without Stretch it takes its picture's natural size, a pixel to the device
/// pixel; with it the picture fills whatever size the control is given.
class ImageBox : public QWidget {
    Q_OBJECT
public:
    explicit ImageBox(QWidget* parent = nullptr) : QWidget(parent) {}

    void setStretch(bool stretch);
    /// `natural`: size in device pixels; the bitmap may have been decoded smaller. A null bitmap
    /// changes nothing.
    void setPicture(const QImage& bitmap, QSize natural);
    const QImage& Picture() const { return picture_; }
    /// Size in device pixels of the picture on show; empty before the first.
    QSize naturalSize() const { return natural_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void takeNaturalSize();

    QImage picture_;
    QSize natural_;
    bool stretch_ = false;
};

}  // namespace velorama

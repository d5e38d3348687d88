#pragma once

#include "controls/geometry/twips.h"
#include "controls/input/keys.h"

#include <QColor>
#include <QImage>
#include <QRegion>
#include <QWidget>

namespace velorama {

/// A picture box: a picture, and over it an image that drawings last on. Images are in device
/// pixels.
class PictureBox : public QWidget {
    Q_OBJECT
public:
    explicit PictureBox(QWidget* parent = nullptr);

    /// The box takes its picture's size from then on whenever it is given one.
    void setAutoSize(bool autoSize) { autoSize_ = autoSize; }
    /// The picture is stretched over the whole box instead of standing at its corner.
    void setStretch(bool stretch) { stretch_ = stretch; }
    void setBackColor(const QColor& colour);
    QColor BackColor() const { return backColor_; }

    const QImage& Picture() const { return picture_; }
    /// Null: the box is empty, its size stays. What was drawn before is gone.
    void setPicture(const QImage& picture);

    /// What the box shows: its picture, or its plain back colour, and all that was drawn since. As
    /// large as the box in device pixels. Drawing on it shows at the next Refresh.
    QImage& Image();
    /// Makes what the box shows its picture.
    void keepImage();
    /// Takes away what was drawn; the picture stays.
    void Cls();

    /// Size in device pixels, whole numbers.
    QSize scaleSize() const { return devicePixels(*this); }
    /// Paints at once.
    void Refresh() { repaint(); }
    /// The same of a part, in device pixels of the image; nothing where it is empty.
    void Refresh(const QRegion& part);

signals:
    /// Button 1 left, 2 right, 4 middle; of a move the sum of those held. Position in twips within
    /// the box.
    void MouseDown(int button, float x, float y);
    void MouseMove(int button, float x, float y);
    void MouseUp(int button, float x, float y);
    void KeyDown(int keyCode, int shift);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QImage blank() const;

    QColor backColor_ = Qt::white;
    QImage picture_;
    QImage image_;
    bool autoSize_ = false;
    bool stretch_ = false;
};

}  // namespace velorama

#pragma once

#include "controls/boxes/picture_box.h"

namespace velorama {

/// The divider between two parts of a page: a grip, and the accent while it is pointed at, dragged
/// or has the keyboard.
class SplitterBar : public PictureBox {
    Q_OBJECT
public:
    explicit SplitterBar(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velorama

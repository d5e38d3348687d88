#pragma once

#include "controls/boxes/picture_box.h"

namespace velorama {

/// Where a slide stands: the picture area, a fixed box derived from the screen, and its white
/// frame. All lengths are single-precision twips; nothing is rounded.
class SlideFitting {
public:
    SlideFitting(QWidget& form, PictureBox& picPREVIEW, PictureBox& picBORDERFRAME,
                 PictureBox& imgPREVIEW98);

    /// The area for the form's present size.
    void setArea();
    void CenterPreview();
    /// Fits what is on show to the area again and places it.
    void ResizePic();
    /// The fixed box of the system path that does not scale.
    void setOldArea();
    /// Gives that box the aspect of a picture of `size` pixels.
    void shapeOldArea(QSize size);

private:
    QWidget& form_;
    PictureBox& picPREVIEW_;
    PictureBox& picBORDERFRAME_;
    PictureBox& imgPREVIEW98_;
};

}  // namespace velorama

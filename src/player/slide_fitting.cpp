#include "player/slide_fitting.h"

#include "controls/geometry/twips.h"
#include "core/globals.h"
#include "imaging/scale/scaling.h"
#include "platform/numbers.h"

namespace velorama {
namespace {

constexpr Colour black = 0;

}  // namespace

SlideFitting::SlideFitting(QWidget& form, PictureBox& picPREVIEW, PictureBox& picBORDERFRAME,
                           PictureBox& imgPREVIEW98)
    : form_(form),
      picPREVIEW_(picPREVIEW),
      picBORDERFRAME_(picBORDERFRAME),
      imgPREVIEW98_(imgPREVIEW98) {}

void SlideFitting::setArea() {
    place(picPREVIEW_, 2000, 200, Width(form_) - 2000 - 650, Height(form_) - 2000);
}

void SlideFitting::CenterPreview() {
    setTop(picPREVIEW_, (screenHeight(form_) - Height(picPREVIEW_)) * 0.5F - 50);
    setLeft(picPREVIEW_, (screenWidth(form_) - Width(picPREVIEW_)) * 0.5F);
    place(picBORDERFRAME_, Left(picPREVIEW_) - 250, Top(picPREVIEW_) - 150,
          Width(picPREVIEW_) + 500, Height(picPREVIEW_) + 300);
}

void SlideFitting::ResizePic() {
    setWidth(imgPREVIEW98_, Width(picPREVIEW_));
    setHeight(imgPREVIEW98_, Height(picPREVIEW_));
    if (isModernSystem()) {
        imgPREVIEW98_.hide();
        const QSize area = picPREVIEW_.scaleSize();
        const QImage fitted = PictureResize(picPREVIEW_.Picture(), area, black);
        // Events have run inside: a form with another size by now has fitted it to that.
        if (picPREVIEW_.scaleSize() == area) {
            picPREVIEW_.setPicture(fitted);
        }
    } else {
        picPREVIEW_.hide();
    }
    // The area stands 125 twips above the middle here, 50 after CenterPreview.
    setTop(picPREVIEW_, (screenHeight(form_) - Height(picPREVIEW_) - 250) * 0.5F);
    setLeft(picPREVIEW_, (screenWidth(form_) - Width(picPREVIEW_)) * 0.5F);
}

void SlideFitting::setOldArea() {
    place(picPREVIEW_, 3000, 2000, Width(form_) - 3000 - 650, Height(form_) - 3000);
}

void SlideFitting::shapeOldArea(QSize size) {
    const auto w = static_cast<float>(size.width());
    const auto h = static_cast<float>(size.height());
    // Compared through text, as the widths are kept: digits beyond a single's text drop out.
    if (numericValue(singleText(w)) > numericValue(singleText(h))) {
        setHeight(picPREVIEW_, Width(picPREVIEW_) * (h / w));
    } else {
        setWidth(picPREVIEW_, Height(picPREVIEW_) * (w / h));
        CenterPreview();
    }
}

}  // namespace velorama

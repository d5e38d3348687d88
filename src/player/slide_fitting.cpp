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
    setWidth(picPREVIEW_, Width(form_) - 2000 - 650);
    setTop(picPREVIEW_, 200);
    setLeft(picPREVIEW_, 2000);
    setHeight(picPREVIEW_, Height(form_) - 2000);
}

void SlideFitting::CenterPreview() {
    setTop(picPREVIEW_, (screenHeight(form_) - Height(picPREVIEW_)) * 0.5F - 50);
    setLeft(picPREVIEW_, (screenWidth(form_) - Width(picPREVIEW_)) * 0.5F);
    setLeft(picBORDERFRAME_, Left(picPREVIEW_) - 250);
    setWidth(picBORDERFRAME_, Width(picPREVIEW_) + 500);
    setHeight(picBORDERFRAME_, Height(picPREVIEW_) + 300);
    setTop(picBORDERFRAME_, Top(picPREVIEW_) - 150);
}

void SlideFitting::ResizePic() {
    setWidth(imgPREVIEW98_, Width(picPREVIEW_));
    setHeight(imgPREVIEW98_, Height(picPREVIEW_));
    if (isModernSystem()) {
        imgPREVIEW98_.hide();
        const int width = toPixels(Width(picPREVIEW_), TwipsPerPixelX(picPREVIEW_));
        const int height = toPixels(Height(picPREVIEW_), TwipsPerPixelY(picPREVIEW_));
        const QImage shown = picPREVIEW_.Picture();
        picPREVIEW_.setPicture(PictureResize(shown, {width, height}, black));
    } else {
        picPREVIEW_.hide();
    }
    // The area stands 125 twips above the middle here, 50 after CenterPreview.
    setTop(picPREVIEW_, (screenHeight(form_) - Height(picPREVIEW_) - 250) * 0.5F);
    setLeft(picPREVIEW_, (screenWidth(form_) - Width(picPREVIEW_)) * 0.5F);
}

void SlideFitting::setOldArea() {
    setWidth(picPREVIEW_, Width(form_) - 3000 - 650);
    setTop(picPREVIEW_, 2000);
    setLeft(picPREVIEW_, 3000);
    setHeight(picPREVIEW_, Height(form_) - 3000);
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

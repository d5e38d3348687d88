#include "picture_lists.h"

#include "platform/files/paths.h"
#include "platform/process/events.h"

namespace velorama::bench {
namespace {

// About the main window at its design size, in pixels.
constexpr QSize formSize(790, 560);
constexpr QRect foundPlace(250, 60, 530, 300);
constexpr QRect slidePlace(5, 400, 780, 130);
constexpr QRect barPlace(5, 540, 200, 15);

const QString pattern = QStringLiteral("*.bmp;*.jpg;*.gif");

}  // namespace

FoundWindow::FoundWindow()
    : found_({&ftvFOLDER_, &flbFOUND_, &lvwFOUND_, &imlFOUNDICONS_, &prgBARSLIDES_}, thumbnails_,
             {}) {
    form_.resize(formSize);
    lvwFOUND_.setGeometry(foundPlace);
    prgBARSLIDES_.setGeometry(barPlace);
    form_.show();
    DoEvents();
}

bool FoundWindow::isComplete(int count) const {
    return lvwFOUND_.Count() == count && imlFOUNDICONS_.Count() == count + 1;
}

SlideWindow::SlideWindow(const QString& folder)
    : slides_({.form = &form_,
               .lvwSLIDEBAR = &lvwSLIDEBAR_,
               .lvwFOUND = &lvwFOUND_,
               .flbFOUND = &flbFOUND_,
               .imlTHUMBNAILS = &imlTHUMBNAILS_,
               .prgBARSLIDES = &prgBARSLIDES_},
              thumbnails_, {}) {
    form_.resize(formSize);
    lvwFOUND_.setGeometry(foundPlace);
    lvwSLIDEBAR_.setGeometry(slidePlace);
    prgBARSLIDES_.setGeometry(barPlace);
    imlTHUMBNAILS_.setImageSize({Thumbnails::slideCell, Thumbnails::slideCell});
    lvwSLIDEBAR_.setArrangement(ListView::Arrangement::Strip);
    lvwSLIDEBAR_.setIcons(&imlTHUMBNAILS_);
    flbFOUND_.setPath(folder);
    flbFOUND_.setPattern(pattern);
    form_.show();
    DoEvents();
}

void SlideWindow::makeThumbnails() {
    QImage image(Thumbnails::slideCell, Thumbnails::slideCell, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::gray);
    for (int i = 0; i < flbFOUND_.ListCount(); ++i) {
        imlTHUMBNAILS_.Add(joinPath(flbFOUND_.Path(), flbFOUND_.List(i)), image);
    }
}

void SlideWindow::addAll() {
    slides_.AddAll();
    DoEvents();
}

}  // namespace velorama::bench

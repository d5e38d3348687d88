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

}  // namespace

PictureWindow::PictureWindow(std::shared_ptr<ThumbnailCache> cache) : pictures_(std::move(cache)) {
    form_.resize(formSize);
    found_.ftvFOLDER->hide();
    found_.lvwFOUND->setGeometry(foundPlace);
    bar_.lvwSLIDEBAR->setGeometry(slidePlace);
    bar_.prgBARSLIDES->setGeometry(barPlace);
    form_.show();
    DoEvents();
}

bool PictureWindow::isListed(int count) const {
    return found_.lvwFOUND->Count() == count && found_.imlFOUNDICONS->Count() == count + 1;
}

void PictureWindow::name(const QString& folder) {
    found_.flbFOUND->setPath(folder);
    found_.flbFOUND->setPattern(pictureMask);
    DoEvents();
}

void PictureWindow::makeThumbnails() {
    QImage image(Thumbnails::slideCell, Thumbnails::slideCell, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::gray);
    for (int i = 0; i < files(); ++i) {
        bar_.imlTHUMBNAILS->Add(joinPath(found_.flbFOUND->Path(), found_.flbFOUND->List(i)), image);
    }
}

void PictureWindow::addAll() {
    slides_.AddAll();
    DoEvents();
}

}  // namespace velorama::bench

#include "browse/thumbnails.h"

#include "imaging/scale/scaling.h"
#include "platform/process/events.h"

#include <QPainter>

namespace velorama {
namespace {

/// The file scaled to a square cell; its bitmap is null if it cannot be loaded, or if the batch was
/// left. Events run.
Cell resampledFile(LookAhead& pictures, const QString& path, int side,
                   const Thumbnails::IsLeft& isLeft) {
    Cell cell = pictures.await(path, side, isLeft);
    if (!cell.bitmap.isNull()) {
        cell.bitmap = PictureResize(cell.bitmap, cell.bitmap.size(), white);
    }
    return cell;
}

FileState stateOf(const Cell& cell) {
    if (!cell.bitmap.isNull()) {
        return FileState::Readable;
    }
    return cell.file.isFile() ? FileState::Unreadable : FileState::NotFound;
}

/// Also true once the window, and its lists with it, has gone.
Thumbnails::IsLeft orGone(const Thumbnails::IsLeft& isLeft, const QPointer<ImageList>& list) {
    return [isLeft, list] { return !list || (isLeft && isLeft()); };
}

}  // namespace

Thumbnails::Thumbnails(ImageList& imlFOUNDICONS, ImageList& imlTHUMBNAILS, LookAhead& pictures,
                       double devicePixelRatio)
    : imlFOUNDICONS_(&imlFOUNDICONS), imlTHUMBNAILS_(&imlTHUMBNAILS), pictures_(pictures) {
    using Kind = ThumbnailMaker::Kind;
    const auto maker = [&](Kind kind) {
        return std::make_shared<const ThumbnailMaker>(kind, devicePixelRatio, pictures_.cells());
    };
    pictures_.setCells({maker(Kind::Found)->side(), maker(Kind::Slide)->side()});
    found_ = maker(Kind::Found);
    slide_ = maker(Kind::Slide);
}

void Thumbnails::add(ImageList& list, const QString& path, const Cell& cell,
                     const std::shared_ptr<const ThumbnailMaker>& maker) {
    list.Add(path, maker->compose(cell.bitmap), originOf(maker, path, cell));
}

void Thumbnails::FoundThumbnailAdd(const QString& Path, const IsLeft& isLeft) {
    // After each yield the lists tell whether the window, and with it this object, is still there.
    const QPointer<ImageList> list = imlFOUNDICONS_;
    const IsLeft left = orGone(isLeft, list);
    DoEvents();
    if (left()) {
        return;
    }
    // A second image under the key would be refused: the picture need not be decoded for that.
    if (list->indexOf(Path) == 0) {
        const std::shared_ptr<const ThumbnailMaker> maker = found_;
        const Cell cell = resampledFile(pictures_, Path, maker->side(), left);
        if (left()) {
            return;
        }
        add(*list, Path, cell, maker);
    }
    DoEvents();
}

void Thumbnails::SlideThumbnailAdd(const QString& Path, const IsLeft& isLeft) {
    const QPointer<ImageList> list = imlTHUMBNAILS_;
    if (!list) {
        return;
    }
    list->setImageSize(QSize(slideCell, slideCell));
    if (list->indexOf(Path) != 0) {
        return;
    }
    const std::shared_ptr<const ThumbnailMaker> maker = slide_;
    const IsLeft left = orGone(isLeft, list);
    const Cell cell = resampledFile(pictures_, Path, maker->side(), left);
    if (left()) {
        return;
    }
    if (list->Count() == 0) {
        slideFiles_.clear();
    }
    learn(Path, stateOf(cell));
    add(*list, Path, cell, maker);
}

void Thumbnails::SlideThumbnailLater(const QString& Path) {
    if (imlTHUMBNAILS_) {
        imlTHUMBNAILS_->setImageSize(QSize(slideCell, slideCell));
        imlTHUMBNAILS_->Add(Path, QImage(), originOf(slide_, Path));
    }
}

int Thumbnails::FoundIconIndex(const QString& Path) const {
    return imlFOUNDICONS_ ? imlFOUNDICONS_->firstKeyWithin(Path) : 0;
}

int Thumbnails::SlideIconIndex(const QString& Path) const {
    return imlTHUMBNAILS_ ? imlTHUMBNAILS_->firstKeyWithin(Path) : 0;
}

void Thumbnails::expectFound(const QStringList& paths) {
    pictures_.expect(paths, Fit::cell(found_->side()));
}

void Thumbnails::expectSlides(const QStringList& paths) {
    pictures_.expect(paths, Fit::cell(slide_->side()));
}

QImage Thumbnails::placeholder() const {
    QImage cell = found_->empty();
    cell.setDevicePixelRatio(found_->ratio());
    QPainter painter(&cell);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x8c, 0x92, 0x99), 2));
    painter.setBrush(QColor(0xee, 0xf0, 0xf2));
    painter.drawRoundedRect(QRectF(7, 13, 50, 38), 3, 3);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xc3, 0xc9, 0xcf));
    painter.drawEllipse(QPointF(20, 25), 4, 4);
    painter.drawPolygon(QPolygonF({{11, 47}, {25, 33}, {32, 40}, {41, 28}, {53, 42}, {53, 47}}));
    return cell;
}

}  // namespace velorama

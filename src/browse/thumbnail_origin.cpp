#include "browse/thumbnail_maker.h"
#include "imaging/cache/pixel_packing.h"

#include <QFile>

#include <utility>

namespace velorama {
namespace {

/// In memory. Photographs take a quarter of what they take as they are drawn.
class PackedThumbnail : public ImageOrigin {
public:
    PackedThumbnail(const QByteArray& pixels, double ratio) : pixels_(pixels), ratio_(ratio) {}

    static std::shared_ptr<const ImageOrigin> of(const QImage& image) {
        const QByteArray pixels = packPixels(image);
        return pixels.isEmpty()
                   ? nullptr
                   : std::make_shared<PackedThumbnail>(pixels, image.devicePixelRatio());
    }

    Kept isKept() const override { return Kept::Yes; }
    std::shared_ptr<const ImageOrigin> packed(const QImage& image) const override {
        return of(image);
    }
    std::optional<QImage> find() const override { return make(); }
    QImage make() const override {
        QImage image = unpackPixels(pixels_);
        image.setDevicePixelRatio(ratio_);
        return image;
    }

private:
    QByteArray pixels_;
    double ratio_;
};

/// In the cache, by the state that the file had, and in the file.
class KeptThumbnail : public ImageOrigin {
public:
    KeptThumbnail(std::shared_ptr<const ThumbnailMaker> maker, const QString& path,
                  const FileStamp& file)
        : maker_(std::move(maker)), path_(path), file_(file) {}

    Kept isKept() const override {
        switch (maker_->cells().holds(file_, maker_->side())) {
            case ThumbnailCache::Holding::Written:
                return Kept::Yes;
            case ThumbnailCache::Holding::Unwritten:
                return Kept::NotYet;
            default:
                return isInTheFile() ? Kept::Yes : Kept::No;
        }
    }
    std::shared_ptr<const ImageOrigin> packed(const QImage& image) const override {
        return PackedThumbnail::of(image);
    }
    std::optional<QImage> find() const override {
        const std::optional<QImage> cell = maker_->cells().find(file_, maker_->side());
        return cell ? std::optional(maker_->compose(*cell)) : std::nullopt;
    }
    QImage make() const override {
        return maker_->compose(maker_->cells().load(path_, maker_->side()));
    }

private:
    /// Tiny pictures by the ten thousand are decoded faster than a disk takes their thumbnails, and
    /// would fill the memory. Then the file counts as where they are laid by, as it does for those
    /// that the cache pushes out later.
    bool isInTheFile() const {
        return file_.isFile() && maker_->cells().hasRefused() &&
               FileStamp::of(QFile::decodeName(file_.path)) == file_;
    }

    std::shared_ptr<const ThumbnailMaker> maker_;
    QString path_;
    FileStamp file_;
};

}  // namespace

std::shared_ptr<const ImageOrigin> originOf(std::shared_ptr<const ThumbnailMaker> maker,
                                            const QString& path, const Cell& cell) {
    return cell.bitmap.isNull()
               ? nullptr
               : std::make_shared<KeptThumbnail>(std::move(maker), path, cell.file);
}

// Without the state of the file it is looked for in the cache when it is made, on the thread that
// does it: asking for the states of ten thousand files takes its time too.
std::shared_ptr<const ImageOrigin> originOf(std::shared_ptr<const ThumbnailMaker> maker,
                                            const QString& path) {
    return std::make_shared<KeptThumbnail>(std::move(maker), path, FileStamp());
}

}  // namespace velorama

#pragma once

#include "imaging/cache/thumbnail_cache.h"
#include "imaging/decode/picture.h"

#include <memory>
#include <vector>

namespace velorama {

/// The bitmap of a thumbnail cell, and the state of the file that it was made from: that of no file
/// where the file changed meanwhile.
struct Cell {
    QImage bitmap;
    FileStamp file;
};

/// Where the bitmaps of thumbnail cells come from: the cache, or the picture. Which of the two
/// makes no difference but in time. Cheap to copy; its loading is safe on any thread.
class CellSource {
public:
    explicit CellSource(std::shared_ptr<ThumbnailCache> cache) : cache_(std::move(cache)) {}

    /// The sides, in device pixels, of the cells that a picture gets sooner or later: whoever
    /// decodes it for one makes the others from the same bitmap, if the cache can take them.
    void setCells(const std::vector<int>& sides) { sides_ = sides; }

    /// The picture in a cell of `side` device pixels, as of `LookAhead::load`.
    QImage load(const QString& path, int side) const { return cell(path, side).bitmap; }
    Cell cell(const QString& path, int side) const;

    /// As of ThumbnailCache.
    std::optional<QImage> find(const FileStamp& file, int side) const {
        return cache_->find(file, side);
    }
    ThumbnailCache::Holding holds(const FileStamp& file, int side) const {
        return cache_->holds(file, side);
    }
    bool hasRefused() const { return cache_->hasRefused(); }

private:
    void keep(const FileStamp& file, int side, const QImage& bitmap, const Picture& picture) const;

    std::shared_ptr<ThumbnailCache> cache_;
    std::vector<int> sides_;
};

/// `picture` as `fit` asks for it.
QImage fitted(const Picture& picture, const Fit& fit);

}  // namespace velorama

#include "imaging/ahead/cell_source.h"

#include "imaging/decode/picture_size.h"
#include "imaging/scale/scaling.h"
#include "platform/files/paths.h"

#include <QFile>

namespace velorama {
namespace {

/// Whether all of a file can be read. What a disk or a server refuses now it may give later, so
/// that tells nothing about the picture.
bool canBeRead(const QString& file) {
    QFile handle(file);
    QByteArray piece(1024LL * 1024, Qt::Uninitialized);
    qint64 count = handle.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? 1 : -1;
    while (count > 0) {
        count = handle.read(piece.data(), piece.size());
    }
    return count == 0;
}

/// Whether a file that gave no bitmap will never give one. One with a picture's head may have
/// failed for want of memory, and is tried again.
bool isNoPicture(const QString& file) {
    return PictureFileSize(file).isEmpty() && canBeRead(file);
}

/// A picture that cannot be decoded can be for no cell.
bool servesBoth(const Picture& picture, int one, int other) {
    return picture.isNull() || decodesAlike(picture.size, Fit::cell(one), Fit::cell(other));
}

}  // namespace

QImage fitted(const Picture& picture, const Fit& fit) {
    return fittedBitmap(picture.bitmap, fitTarget(picture.size, fit), white, picture.extent);
}

Cell CellSource::cell(const QString& path, int side) const {
    const QString host = hostFile(path);
    const FileStamp file = FileStamp::of(host);
    if (std::optional<QImage> kept = cache_->find(file, side)) {
        return {*std::move(kept), file};
    }
    // Asked before the file is read: a change from here on will show.
    const bool isSettled = file.isSettled();
    const Picture picture = LoadPicture(path, Fit::cell(side));
    const QImage bitmap = fitted(picture, Fit::cell(side));
    if (FileStamp::of(host) != file) {
        return {bitmap, {}};
    }
    if (isSettled && cache_->isUsable() && bitmap.isNull() == picture.isNull() &&
        (!picture.isNull() || isNoPicture(host))) {
        keep(file, side, bitmap, picture);
    }
    return {bitmap, file};
}

void CellSource::keep(const FileStamp& file, int side, const QImage& bitmap,
                      const Picture& picture) const {
    cache_->keep(file, side, bitmap);
    for (const int other : sides_) {
        const QImage also = other != side && servesBoth(picture, side, other)
                                ? fitted(picture, Fit::cell(other))
                                : QImage();
        if (other != side && also.isNull() == picture.isNull()) {
            cache_->keep(file, other, also);
        }
    }
}

}  // namespace velorama

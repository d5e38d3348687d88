#include "imaging/decode/picture.h"

#include "imaging/decode/decoding.h"
#include "platform/files/paths.h"
#include "platform/numbers.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <new>

namespace velorama {
namespace {

int atLeastOnePixel(double length) {
    return std::max(1, static_cast<int>(roundHalfEven(length)));
}

/// Size of an ordinary file; folders, pipes and devices, which might never end, count as empty.
qint64 ordinarySize(const QString& path) {
    const QFileInfo info(path);
    return info.isFile() ? info.size() : 0;
}

/// Up to `size` bytes from the file's start; none if it cannot be read.
QByteArray firstBytes(const QString& path, qint64 size) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? file.read(size) : QByteArray();
}

}  // namespace

Picture PictureFromBitmap(const QImage& bitmap) {
    if (bitmap.isNull()) {
        return {};
    }
    const bool plain = bitmap.format() == QImage::Format_RGB32 ||
                       bitmap.format() == QImage::Format_ARGB32_Premultiplied;
    const QImage::Format format =
        bitmap.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    const QImage pixels = plain ? bitmap : bitmap.convertToFormat(format);
    // Memory may have run out on the way.
    return pixels.isNull() ? Picture() : Picture{PictureType::Bitmap, pixels.size(), pixels, {}};
}

QSizeF cellSize(QSize picture, int cell) {
    if (picture.isEmpty()) {
        return {};
    }
    const double width = picture.width();
    const double height = picture.height();
    return height <= width ? QSizeF(cell, cell * (height / width))
                           : QSizeF(cell * (width / height), cell);
}

QSize fitTarget(QSize picture, const Fit& fit) {
    switch (fit.kind) {
        case Fit::Kind::Area:
            return fit.box;
        case Fit::Kind::Cell: {
            const QSizeF size = cellSize(picture, fit.box.width());
            return size.isEmpty()
                       ? QSize()
                       : QSize(atLeastOnePixel(size.width()), atLeastOnePixel(size.height()));
        }
        default:
            return picture;
    }
}

Picture LoadPicture(const QString& path, const Fit& fit) {
    try {
        const QString file = hostFile(path);
        const qint64 size = ordinarySize(file);
        const MemoryShare share(fileMemory(), size);
        return size > 0 && share ? decodePicture(firstBytes(file, size), fit) : Picture();
    } catch (const std::bad_alloc&) {
        return {};
    }
}

}  // namespace velorama

#include "imaging/picture.h"

#include "imaging/decoding.h"
#include "platform/numbers.h"
#include "platform/paths.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <new>

namespace velorama {
namespace {

int atLeastOnePixel(double length) {
    return std::max(1, static_cast<int>(roundHalfEven(length)));
}

/// Content of an ordinary file; folders, pipes and devices, which might never end, give nothing.
QByteArray fileBytes(const QString& path) {
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > pictureMemory / 2) {
        return {};
    }
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? file.read(info.size())
                                                                  : QByteArray();
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
    return {
        PictureType::Bitmap, bitmap.size(), plain ? bitmap : bitmap.convertToFormat(format), {}};
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
        return decodePicture(fileBytes(hostFile(path)), fit);
    } catch (const std::bad_alloc&) {
        return {};
    }
}

}  // namespace velorama

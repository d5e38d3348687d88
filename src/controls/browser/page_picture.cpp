#include "controls/browser/page_picture.h"

#include <QBuffer>
#include <QImageReader>

namespace velorama {
namespace {

constexpr int longestSide = 8192;  // pixels
constexpr int largestPicture = 4;  // million pixels, which are 16 MB

}  // namespace

// Formats that draw by a program of their own could lead to files of this machine.
QImage pagePicture(const QByteArray& file) {
    QByteArray bytes = file;
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QByteArray format = reader.format();
    const QSize size = reader.size();
    const bool known = format == "gif" || format == "jpeg" || format == "png" || format == "bmp";
    const qint64 pixels = qint64(size.width()) * size.height();
    if (!known || !size.isValid() || qMax(size.width(), size.height()) > longestSide ||
        pixels > qint64(largestPicture) * 1000 * 1000) {
        return {};
    }
    return reader.read();
}

}  // namespace velorama

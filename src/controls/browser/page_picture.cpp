#include "controls/browser/page_picture.h"

#include <QBuffer>
#include <QImageReader>
#include <QtEndian>

namespace velorama {
namespace {

constexpr int longestSide = 8192;  // pixels
constexpr int largestPicture = 4;  // million pixels, which are 16 MB

/// The reader of GIF tells the size of the first frame, and gives a picture as large as the screen.
QSize gifScreen(const QByteArray& bytes) {
    return bytes.size() < 10 ? QSize()
                             : QSize(qFromLittleEndian<quint16>(bytes.constData() + 6),
                                     qFromLittleEndian<quint16>(bytes.constData() + 8));
}

bool isOfAPage(QSize size) {
    return size.isValid() && qMax(size.width(), size.height()) <= longestSide &&
           qint64(size.width()) * size.height() <= qint64(largestPicture) * 1000 * 1000;
}

}  // namespace

// Formats that draw by a program of their own could lead to files of this machine.
QImage pagePicture(const QByteArray& file) {
    QByteArray bytes = file;
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QByteArray format = reader.format();
    const bool known = format == "gif" || format == "jpeg" || format == "png" || format == "bmp";
    if (!known || !isOfAPage(reader.size()) || (format == "gif" && !isOfAPage(gifScreen(bytes)))) {
        return {};
    }
    const QImage picture = reader.read();
    return isOfAPage(picture.size()) ? picture : QImage();
}

}  // namespace velorama

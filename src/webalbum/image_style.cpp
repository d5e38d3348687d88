#include "imaging/decode/picture_size.h"
#include "platform/numbers.h"
#include "platform/process/events.h"
#include "webalbum/album_folder.h"
#include "webalbum/mod_webalbum.h"

namespace velorama {
namespace {

/// What is taken off the height of every picture that is not wider than high.
constexpr double portraitMargin = 24;

/// A number as its decimal text gives it back.
double throughText(double value) {
    constexpr int digits = 15;
    return numericValue(QString::number(value, 'G', digits));
}

double ratioOf(double part, double whole) {
    return whole == 0 ? 0 : part / whole;
}

QSizeF displaySize(QSizeF picture, qint32 size) {
    const double width = picture.width();
    const double height = picture.height();
    if (throughText(width) > throughText(height)) {
        return {double(size), size * ratioOf(height, width)};
    }
    const double high = size - portraitMargin;
    return {high * ratioOf(width, height), high};
}

}  // namespace

void modWEBALBUM::begin() {
    // As the making of a thumbnail leaves the holder.
    constexpr double cell = 90;
    picSLIDETMPLT_ = {cell, cell};
}

void modWEBALBUM::load(const QString& path) {
    const QSize size = PictureFileSize(path);
    if (!size.isEmpty()) {
        picSLIDETMPLT_ = size;
    }
}

QString modWEBALBUM::WebAlbumImageStyle(const QString& path, qint32 size) {
    load(path);
    picSLIDETMPLT_ = displaySize(picSLIDETMPLT_, size);
    const QString height = decimalText(roundHalfEven(picSLIDETMPLT_.height()));
    const QString width = decimalText(roundHalfEven(picSLIDETMPLT_.width()));
    DoEvents();
    return u" style=\"WIDTH: " % width % u"px; HEIGHT: " % height % u"px ";
}

QString modWEBALBUM::style(const QString& folder, const QString& subfolder, const QString& name,
                           qint32 size) {
    return WebAlbumImageStyle(fileIn(folderIn(folder, subfolder), name), size);
}

}  // namespace velorama

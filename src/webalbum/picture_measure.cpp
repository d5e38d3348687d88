#include "webalbum/picture_measure.h"

#include "imaging/decode/picture_size.h"
#include "platform/numbers.h"
#include "platform/process/events.h"
#include "webalbum/album_folder.h"

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

}  // namespace

QSizeF displaySize(QSizeF picture, qint32 size) {
    const double width = picture.width();
    const double height = picture.height();
    if (throughText(width) > throughText(height)) {
        return {double(size), size * ratioOf(height, width)};
    }
    const double high = size - portraitMargin;
    return {high * ratioOf(width, height), high};
}

QString PictureMeasure::WebAlbumImageStyle(const QString& path, qint32 size) {
    const QSize picture = PictureFileSize(path);
    shown_ = displaySize(picture.isEmpty() ? shown_ : QSizeF(picture), size);
    const QString height = decimalText(roundHalfEven(shown_.height()));
    const QString width = decimalText(roundHalfEven(shown_.width()));
    DoEvents();
    return u" style=\"WIDTH: " % width % u"px; HEIGHT: " % height % u"px ";
}

QString PictureMeasure::styleOf(const QString& album, const QString& subfolder, const QString& name,
                                const QString& size) {
    return WebAlbumImageStyle(fileIn(folderIn(album, subfolder), name),
                              wholeNumber(size).value_or(0));
}

}  // namespace velorama

#pragma once

#include <QSizeF>
#include <QString>

namespace velorama {

/// The size at which a page shows a picture: a landscape one `size` wide, any other 24 less high.
/// Nothing of an empty one.
QSizeF displaySize(QSizeF picture, qint32 size);

/// Works out at which size a page shows a picture. A file that is no picture takes the place of the
/// one measured before, and the first of all that of a thumbnail's cell.
class PictureMeasure {
public:
    /// The start of a style attribute, left open, that shows a picture file at a size: a landscape
    /// one as wide, any other 24 less high. Lets events run.
    QString WebAlbumImageStyle(const QString& path, qint32 size);
    /// The same for a file in a subfolder of the album. A size that is no number counts as 0.
    QString styleOf(const QString& album, const QString& subfolder, const QString& name,
                    const QString& size);

private:
    QSizeF shown_{90, 90};
};

}  // namespace velorama

#pragma once

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QString>

namespace velorama::test {

/// How a sample JPEG is written.
struct JpegStyle {
    enum class Colours { Rgb, RgbPlain, Grey, Cmyk, CmykPlain, Ycck };
    Colours colours = Colours::Rgb;
    bool progressive = false;
    int quality = 95;
    /// EXIF orientation to write, 0 for none.
    int orientation = 0;
    bool bigEndianExif = false;
    QByteArray profile = {};
    bool arithmetic = false;
    /// Blocks between two restart markers, 0 for none.
    int restart = 0;
};

/// Bytes of a JPEG. Cmyk and Ycck write Adobe's marker and inverted inks, CmykPlain neither;
/// RgbPlain writes three colours as they are, with that marker.
QByteArray jpegBytes(const QImage& image, const JpegStyle& style = {});

/// Content of an APP1 segment with an orientation.
QByteArray exifSegment(int orientation, bool bigEndian);

/// One frame of a GIF: indices into the palette, row by row.
struct GifFrame {
    QSize size;
    QByteArray pixels;
    bool interlaced = false;
    int transparent = -1;
    QPoint at = {};
};

/// Bytes of a GIF with the palette black, red, green, blue.
QByteArray gifBytes(QSize screen, const QList<GifFrame>& frames, int background = 0);

/// Bytes of a BMP with rows as they stand in the file, bottom row first.
QByteArray bmpBytes(QSize size, int depth, int compression, const QByteArray& palette,
                    const QByteArray& rows);

/// Bytes of a file that the toolkit writes, "bmp" or "png".
QByteArray toolkitBytes(const QImage& image, const char* format);

/// Path of a new file of this name and content.
QString sampleFile(const QString& name, const QByteArray& content);

/// A picture with smooth colours, different in all four corners.
QImage landscape(int width, int height);

/// Peak signal to noise of two pictures of equal size, in decibels; 99 for equal ones.
double psnr(const QImage& a, const QImage& b);

}  // namespace velorama::test
